// SPDX-License-Identifier: GPL-3.0-or-later
#include "lua_oracle.h"
#include "support/test_support.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <iostream>
#include <map>

// The nested-template reader checked against the real Lua 5.4 interpreter:
// flatten_template.lua loads each template with Lua and prints what the
// reader should have stored.

namespace {

// Templates where Lua and the reader part ways because the reader's grammar
// is deliberately simpler than Lua's, or because the file is not a template
// at all. Every entry must still differ, and the reader must still reject
// the file or read it as stated, so the table cannot go stale.
struct expected_difference {
    const char* file;
    const char* reason;
    bool reader_rejects;
};

const expected_difference corpus_differences[] = {
    {"d5-appledouble-autumn-junk.lrtemplate",
     "an AppleDouble resource fork (binary), not a template: Lua cannot load it either", true},
    {"d5-print-645-diptych-not-develop.lrtemplate",
     "calls AgColor(...), a function of Lightroom's own environment; the reader has no function calls", true},
    {"fm-midnight-html-web-template-not-develop.lrtemplate",
     "calls AgColor(...), a function of Lightroom's own environment; the reader has no function calls", true},
    {"fm-velvia-lightroom-beta-agmutablepoint.agtemplate",
     "calls AgMutablePoint(...), a function of Lightroom's own environment; the reader has no function calls", true},
    {"fm-pc-m-curve-escaped-quotes.lrtemplate",
     "backslash escapes in a string (\"\\\"M\\\" Curve\"); the reader has no escapes and keeps the backslashes", false},
};

const expected_difference* find_difference(const QString& file)
{
    for (const expected_difference& d : corpus_differences)
        if (file == QLatin1String(d.file))
            return &d;
    return nullptr;
}

QString describe(const oracle_comparison& c)
{
    QString text = c.differences.join(QStringLiteral("\n    "));
    if (!c.reader_error.isEmpty())
        text += QStringLiteral("\n    reader threw: ") + c.reader_error;
    return text;
}


class lua_oracle : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (lua_interpreter().isEmpty())
            GTEST_SKIP() << "lua5.4 not installed";
    }
};

TEST_F(lua_oracle, every_corpus_template_matches_lua_or_its_difference_is_explained)
{
    if (test_support::corpus_dir().isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    const QDir folder(QDir(test_support::corpus_dir()).filePath(QStringLiteral("lrtemplate")));
    const QFileInfoList files = folder.entryInfoList(QDir::Files, QDir::Name);
    ASSERT_FALSE(files.isEmpty());

    int agreements = 0;
    int explained = 0;
    int exact_values = 0;
    int numeric_values = 0;
    for (const QFileInfo& file : files) {
        const oracle_comparison c = compare_reader_with_lua(file.absoluteFilePath());
        const std::string name = file.fileName().toStdString();
        const expected_difference* expected = find_difference(file.fileName());
        if (!expected) {
            EXPECT_TRUE(c.differences.isEmpty()) << name << ":\n    " << describe(c).toStdString();
            if (c.differences.isEmpty())
                ++agreements;
        } else {
            EXPECT_FALSE(c.differences.isEmpty()) << name << " now agrees with Lua; drop it from the table";
            EXPECT_EQ(!c.reader_error.isEmpty(), expected->reader_rejects) << name << ": " << describe(c).toStdString();
            ++explained;
            std::cout << "  explained: " << name << ": " << expected->reason << '\n';
        }
        exact_values += c.exact_values;
        numeric_values += c.numeric_values;
    }
    std::cout << files.size() << " templates against Lua: " << agreements << " agree (" << exact_values
              << " values and curves equal as text, " << numeric_values << " equal as numbers), " << explained
              << " explained differences\n";
    EXPECT_EQ(agreements + explained, files.size());
}

} // namespace
