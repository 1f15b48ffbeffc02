// SPDX-License-Identifier: GPL-3.0-or-later
// The template reader against the real Lua 5.4 interpreter: for every corpus
// template, flatten_template.lua prints what Lua makes of the file in the
// form below, and the reader's record must print the same.
#include "importer/lightroom_importer.h"
#include "support/log_capture.h"
#include "support/test_support.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

// Where the two part ways on purpose: the reader's grammar is simpler than
// Lua's, or the file is no template. Each must still differ, so the list
// cannot go stale.
const char* const explained[] = {
    "d5-appledouble-autumn-junk.lrtemplate",                 // binary resource fork: Lua cannot load it either
    "d5-print-645-diptych-not-develop.lrtemplate",           // calls AgColor(...): the reader has no calls
    "fm-midnight-html-web-template-not-develop.lrtemplate",  // calls AgColor(...)
    "fm-velvia-lightroom-beta-agmutablepoint.agtemplate",    // calls AgMutablePoint(...)
    "fm-pc-m-curve-escaped-quotes.lrtemplate",               // "\"M\" Curve": the reader keeps backslashes
};

QString escaped(QString text)
{
    return text.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('\t'), QLatin1String("\\t"))
        .replace(QLatin1Char('\n'), QLatin1String("\\n")).replace(QLatin1Char('\r'), QLatin1String("\\r"));
}

// The reader's record in the script's form, sorted.
QStringList reader_lines(const QString& path)
{
    lightroom_importer record;
    try {
        const test_support::log_capture quiet(false);
        record.read_lrpreset(path);
    } catch (const std::runtime_error& e) {
        return {QStringLiteral("E\t") + QString::fromUtf8(e.what())};
    }
    QStringList lines;
    for (auto it = record.settings.cbegin(); it != record.settings.cend(); ++it) {
        bool number = false;
        const double value = it.value().toDouble(&number);
        lines << QStringLiteral("S\t%1\t%2").arg(escaped(it.key()), number ? QString::asprintf("%.17g", value)
                                                                           : escaped(it.value()));
    }
    const std::pair<const char*, const QVector<QPoint>*> curves[] = {
        {"tone_curve", &record.tone_curve}, {"tone_curve_red", &record.tone_curve_red},
        {"tone_curve_green", &record.tone_curve_green}, {"tone_curve_blue", &record.tone_curve_blue}};
    for (const auto& [name, curve] : curves) {
        QStringList points;
        for (const QPoint& p : *curve)
            points << QStringLiteral("%1,%2").arg(p.x()).arg(p.y());
        if (!points.isEmpty())
            lines << QStringLiteral("C\t%1\t%2").arg(QLatin1String(name), points.join(QLatin1Char(';')));
    }
    lines.sort();
    return lines;
}

} // namespace

TEST(lua_oracle, every_corpus_template_reads_as_lua_loads_it_or_its_difference_is_explained)
{
    const QString lua = QStandardPaths::findExecutable(QStringLiteral("lua5.4"));
    const QString corpus = test_support::corpus_dir();
    if (lua.isEmpty() || corpus.isEmpty())
        GTEST_SKIP() << "lua5.4 or the corpus folder is missing";
    const QFileInfoList files = QDir(corpus + QStringLiteral("/lrtemplate")).entryInfoList(QDir::Files, QDir::Name);
    ASSERT_GT(files.size(), 50);
    for (const QFileInfo& file : files) {
        QProcess script;
        script.start(lua, {QStringLiteral(STYLEWRIGHT_SOURCE_DIR "/tests/importer/oracles/flatten_template.lua"),
                           file.filePath()});
        ASSERT_TRUE(script.waitForFinished(30000));
        QStringList expected = QString::fromUtf8(script.readAllStandardOutput()).split(QLatin1Char('\n'),
                                                                                        Qt::SkipEmptyParts);
        expected.sort();
        QStringList actual = reader_lines(file.filePath());
        // Lua names no syntax error the way the reader does.
        if (expected == QStringList{QStringLiteral("E\tsyntax")} && actual.size() == 1 && actual[0].startsWith('E'))
            actual = expected;
        const bool agree = script.exitCode() == 0 && actual == expected;
        const bool explained_here = std::find_if(std::begin(explained), std::end(explained), [&](const char* name) {
                                        return file.fileName() == QLatin1String(name);
                                    }) != std::end(explained);
        EXPECT_NE(agree, explained_here) << file.fileName().toStdString() << "\nLua:\n"
                                         << expected.join('\n').toStdString() << "\nreader:\n"
                                         << actual.join('\n').toStdString();
    }
}
