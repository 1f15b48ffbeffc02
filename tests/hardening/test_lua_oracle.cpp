#include "lua_oracle.h"
#include "template_generator.h"
#include "test_support.h"

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

bool write_file(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
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

TEST_F(lua_oracle, generated_templates_match_lua)
{
    // Enough templates to meet every branch of the generator many times while
    // keeping the interpreter launches to a few seconds.
    constexpr int template_count = 300;
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());

    int agreements = 0;
    int rejections = 0;
    int exact_values = 0;
    int numeric_values = 0;
    for (int i = 0; i < template_count; ++i) {
        template_generator generator(static_cast<std::uint32_t>(i));
        const QByteArray bytes = generator.make();
        const QString path = dir.filePath(QStringLiteral("generated-%1.lrtemplate").arg(i));
        ASSERT_TRUE(write_file(path, bytes));
        const oracle_comparison c = compare_reader_with_lua(path);
        EXPECT_TRUE(c.differences.isEmpty()) << "template " << i << ":\n    " << describe(c).toStdString()
                                             << "\n--- text ---\n" << bytes.toStdString();
        if (c.differences.isEmpty())
            ++agreements;
        if (c.both_reject)
            ++rejections;
        exact_values += c.exact_values;
        numeric_values += c.numeric_values;
    }
    std::cout << template_count << " generated templates: " << agreements << " agree with Lua (" << rejections
              << " rejected by both, " << exact_values << " values and curves equal as text, " << numeric_values
              << " equal only as numbers)\n";
}

// Where the reader's grammar is simpler than Lua's, on purpose: each line is a
// template Lua reads and the reader reads differently or not at all.
struct grammar_case {
    const char* name;
    const char* text;
    const char* reader_outcome; // the reader's message, or the difference in the record
};

void PrintTo(const grammar_case& c, std::ostream* out)
{
    *out << c.name;
}

class lua_grammar_difference : public lua_oracle, public ::testing::WithParamInterface<grammar_case> {};

TEST_P(lua_grammar_difference, lua_and_the_reader_disagree_as_stated)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString path = dir.filePath(QStringLiteral("case.lrtemplate"));
    ASSERT_TRUE(write_file(path, GetParam().text));
    const oracle_comparison c = compare_reader_with_lua(path);
    ASSERT_FALSE(c.differences.isEmpty());
    const QString outcome = c.reader_error.isEmpty() ? c.differences.join(QLatin1Char('|')) : c.reader_error;
    EXPECT_EQ(outcome.toStdString(), GetParam().reader_outcome);
}

INSTANTIATE_TEST_SUITE_P(
    hardening, lua_grammar_difference,
    ::testing::Values(
        grammar_case{"equals_without_spaces", "s = { a=1, }",
                     "Unexpected token type found. Expected token_type::equals, got token_type::comma"},
        grammar_case{"escaped_quote", "s = { a = \"x\\\"y\", }",
                     "Unexpected token type found. Expected token_type::name, got token_type::eof"},
        grammar_case{"escape_sequence", "s = { a = \"tab\\there\", }",
                     "a: reader \"tab\\there\", Lua \"tab\there\""},
        grammar_case{"single_quotes", "s = { a = 'x', }", "a: reader \"'x'\", Lua \"x\""},
        grammar_case{"hexadecimal_number", "s = { a = 0x10, }", "a: reader \"0x10\", Lua \"16\""},
        grammar_case{"bracketed_key", "s = { [\"a\"] = 1, }",
                     "a: missing, Lua has \"1\"|[\"a\"]: reader stored \"1\", Lua has no such value"},
        grammar_case{"long_string", "s = { a = [[x]], }", "a: reader \"[[x]]\", Lua \"x\""},
        grammar_case{"semicolon_separator", "s = { a = 1; }",
                     "Unexpected token type found. Expected token_type::comma, got token_type::rbrace"},
        grammar_case{"no_comma_before_brace", "s = { a = 1 }",
                     "Unexpected token type found. Expected token_type::comma, got token_type::rbrace"}),
    [](const ::testing::TestParamInfo<grammar_case>& info) { return std::string(info.param.name); });

} // namespace
