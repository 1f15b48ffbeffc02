#include "cli_runner.h"
#include "importer/lightroom_importer.h"
#include "quiet_log.h"
#include "template_generator.h"
#include "test_support.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <iostream>

// What the converter writes, checked by tools we did not write: xmllint reads
// every style, and zipinfo and unzip read every style pack.

namespace {

const QStringList colour_spaces{QStringLiteral("raw"), QStringLiteral("adobe"), QStringLiteral("srgb"),
                                QStringLiteral("prophoto"), QStringLiteral("widegamut")};

QString tool(const char* name)
{
    return QStandardPaths::findExecutable(QString::fromLatin1(name));
}

QStringList files_below(const QString& folder, const QString& pattern)
{
    QStringList files;
    QDirIterator it(folder, {pattern}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << it.next();
    files.sort();
    return files;
}

QByteArray read_all(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Every conversion gives a style a fresh identity; the rest must be the same.
QByteArray without_uuid(QByteArray style)
{
    static const QRegularExpression uuid(QStringLiteral("K=\"UUID\" V=\"[^\"]*\""));
    return QString::fromUtf8(style).replace(uuid, QStringLiteral("K=\"UUID\" V=\"\"")).toUtf8();
}

TEST(output_oracles_generated, xmllint_reads_the_styles_of_generated_presets_and_finds_their_names)
{
    const QString xmllint = tool("xmllint");
    if (xmllint.isEmpty())
        GTEST_SKIP() << "xmllint not installed";
    // Random templates with titles and values full of what XML must escape
    // (&, <, >, quotes), text beyond ASCII and right-to-left marks.
    constexpr int preset_count = 120;
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString presets = dir.filePath(QStringLiteral("presets"));
    QDir().mkpath(presets);
    for (int i = 0; i < preset_count; ++i) {
        QFile file(QDir(presets).filePath(QStringLiteral("generated-%1.lrtemplate").arg(i)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(template_generator(static_cast<std::uint32_t>(1000 + i)).make());
    }
    const QString out = dir.filePath(QStringLiteral("out"));
    const process_result r = run_cli({QStringLiteral("-q"), QStringLiteral("-o"), out, presets}, dir.path());
    ASSERT_TRUE(r.finished) << r.err.constData();
    const QStringList styles = files_below(out, QStringLiteral("*.costyle"));
    ASSERT_GT(styles.size(), preset_count / 2);

    const process_result lint = run_program(xmllint, QStringList{QStringLiteral("--noout")} + styles, dir.path());
    EXPECT_EQ(lint.exit_code, 0) << lint.err.constData();
    int names = 0;
    for (const QString& style : styles) {
        lightroom_importer record;
        {
            const quiet_log quiet;
            record.read_lrpreset(QDir(presets).filePath(QFileInfo(style).completeBaseName() + QStringLiteral(".lrtemplate")));
        }
        const process_result name = run_program(
            xmllint, {QStringLiteral("--xpath"), QStringLiteral("string(/SL/E[@K='Name']/@V)"), style}, dir.path());
        // xmllint ends what it prints with a line break of its own (and older
        // versions fail on an empty result).
        QString reported = name.exit_code == 0 ? QString::fromUtf8(name.out) : QString();
        if (reported.endsWith(QLatin1Char('\n')))
            reported.chop(1);
        EXPECT_EQ(reported, record.name) << style.toStdString();
        names += record.name.isEmpty() ? 0 : 1;
    }
    std::cout << styles.size() << " styles of generated presets read by xmllint, " << names
              << " non-empty names found as the reader read them\n";
}

class output_oracles : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (test_support::corpus_dir().isEmpty())
            GTEST_SKIP() << "corpus folder absent";
        ASSERT_TRUE(dir_.isValid());
        corpus_ = QStringList{QDir(test_support::corpus_dir()).filePath(QStringLiteral("lrtemplate")),
                              QDir(test_support::corpus_dir()).filePath(QStringLiteral("xmp"))};
    }

    // Converts the whole corpus into separate styles; returns their paths.
    QStringList convert_corpus(const QString& colour_space)
    {
        const QString out = dir_.filePath(colour_space);
        const process_result r =
            run_cli(QStringList{QStringLiteral("-q"), QStringLiteral("-c"), colour_space, QStringLiteral("-o"), out}
                        + corpus_,
                    dir_.path());
        EXPECT_TRUE(r.finished) << r.err.constData();
        // A few corpus files are not presets (binary junk, a print template): exit 1.
        EXPECT_TRUE(r.exit_code == 0 || r.exit_code == 1) << r.err.constData();
        return files_below(out, QStringLiteral("*.costyle"));
    }

    QTemporaryDir dir_;
    QStringList corpus_;
};

TEST_F(output_oracles, xmllint_reads_every_style_of_every_colour_space)
{
    const QString xmllint = tool("xmllint");
    if (xmllint.isEmpty())
        GTEST_SKIP() << "xmllint not installed";
    int styles = 0;
    for (const QString& colour_space : colour_spaces) {
        const QStringList files = convert_corpus(colour_space);
        ASSERT_GT(files.size(), 50) << colour_space.toStdString();
        const process_result lint = run_program(xmllint, QStringList{QStringLiteral("--noout")} + files, dir_.path());
        EXPECT_TRUE(lint.finished);
        EXPECT_EQ(lint.exit_code, 0) << colour_space.toStdString() << ": " << lint.err.constData();
        EXPECT_TRUE(lint.err.isEmpty()) << lint.err.constData();
        styles += files.size();
    }
    std::cout << styles << " styles in " << colour_spaces.size() << " colour spaces read by xmllint without complaint\n";
}

TEST_F(output_oracles, zip_tools_read_every_pack_and_find_the_separate_styles_in_it)
{
    const QString zipinfo = tool("zipinfo");
    const QString unzip = tool("unzip");
    const QString xmllint = tool("xmllint");
    if (zipinfo.isEmpty() || unzip.isEmpty() || xmllint.isEmpty())
        GTEST_SKIP() << "zipinfo, unzip or xmllint not installed";

    const QStringList separate = convert_corpus(QStringLiteral("srgb"));
    ASSERT_FALSE(separate.isEmpty());
    int entries = 0;
    for (const bool category : {false, true}) {
        const QString pack = dir_.filePath(category ? QStringLiteral("Corpus Looks.costylepack")
                                                    : QStringLiteral("corpus.costylepack"));
        QStringList arguments{QStringLiteral("-q"), QStringLiteral("-c"), QStringLiteral("srgb"), QStringLiteral("-p"),
                              pack};
        if (category)
            arguments << QStringLiteral("--category");
        const process_result r = run_cli(arguments + corpus_, dir_.path());
        ASSERT_TRUE(r.finished);
        ASSERT_TRUE(QFile::exists(pack)) << r.err.constData();

        // The entry names, in the archive's order: the style names in
        // ascending order, below the category folder when asked for.
        const QString prefix = category ? QStringLiteral("Corpus Looks/") : QString();
        QStringList expected;
        for (const QString& path : separate)
            expected << prefix + QFileInfo(path).fileName();
        const process_result listing = run_program(zipinfo, {QStringLiteral("-1"), pack}, dir_.path());
        EXPECT_EQ(listing.exit_code, 0) << listing.err.constData();
        EXPECT_EQ(QString::fromUtf8(listing.out).split(QLatin1Char('\n'), Qt::SkipEmptyParts), expected);

        const process_result test = run_program(unzip, {QStringLiteral("-t"), pack}, dir_.path());
        EXPECT_EQ(test.exit_code, 0) << test.out.constData() << test.err.constData();
        EXPECT_TRUE(test.out.contains("No errors detected")) << test.out.constData();

        const QString extracted = dir_.filePath(category ? QStringLiteral("x-category") : QStringLiteral("x-plain"));
        const process_result unpack =
            run_program(unzip, {QStringLiteral("-q"), pack, QStringLiteral("-d"), extracted}, dir_.path());
        ASSERT_EQ(unpack.exit_code, 0) << unpack.err.constData();
        const QStringList files = files_below(extracted, QStringLiteral("*"));
        ASSERT_EQ(files.size(), separate.size());
        for (int i = 0; i < files.size(); ++i) {
            EXPECT_EQ(QFileInfo(files.at(i)).fileName(), QFileInfo(separate.at(i)).fileName());
            EXPECT_EQ(without_uuid(read_all(files.at(i))), without_uuid(read_all(separate.at(i))))
                << files.at(i).toStdString();
        }
        const process_result lint = run_program(xmllint, QStringList{QStringLiteral("--noout")} + files, dir_.path());
        EXPECT_EQ(lint.exit_code, 0) << lint.err.constData();
        entries += files.size();
    }
    std::cout << entries << " pack entries in 2 packs listed by zipinfo, tested by unzip, read by xmllint and "
              << "equal to the separate styles\n";
}

} // namespace
