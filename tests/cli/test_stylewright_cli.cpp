#include "conversion/preset_fixtures.h"
#include "conversion/zip_reading.h"
#include "test_support.h"

#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace preset_fixtures;

namespace {

const QString cli = QStringLiteral(STYLEWRIGHT_CLI_PATH);

struct cli_result {
    int exit_code = -1;
    QByteArray out;
    QByteArray err;
    QStringList lines() const { return QString::fromUtf8(err).split(QLatin1Char('\n'), Qt::SkipEmptyParts); }
};

// The converter as a user runs it, in a work folder, with a home and
// configuration folder of its own so that a stored setting would show there.
class stylewright_cli : public ::testing::Test {
protected:
    cli_result run_command(const QStringList& command) const
    {
        QProcess process;
        process.setWorkingDirectory(work.path());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("HOME", home.path());
        environment.insert("XDG_CONFIG_HOME", home.filePath("config"));
        environment.remove("QT_LOGGING_RULES");
        process.setProcessEnvironment(environment);
        process.start(command.first(), command.mid(1));
        cli_result result;
        if (process.waitForFinished(120000) && process.exitStatus() == QProcess::NormalExit)
            result = {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
        return result;
    }
    cli_result run(const QStringList& arguments) const { return run_command(QStringList{cli} + arguments); }
    // Under a file-size limit of 512 bytes, below a style's and a pack's size.
    cli_result run_with_tiny_file_limit(const QStringList& arguments) const
    {
        return run_command(QStringList{"/bin/sh", "-c", "ulimit -f 1; trap '' XFSZ; exec \"$0\" \"$@\"", cli} +
                           arguments);
    }
    QString preset(const QString& file, const QString& flags = QString(), const QString& name = "P") const
    {
        return write_file(work.path(), file, file.endsWith(QLatin1String(".lrtemplate"), Qt::CaseInsensitive)
                                                 ? lrtemplate_text(name, flagged(flags))
                                                 : xmp_text(name, flagged(flags)));
    }
    QString path(const QString& name) const { return work.filePath(name); }
    QStringList files_in(const QString& folder = ".") const
    {
        return QDir(path(folder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    QTemporaryDir work;
    QTemporaryDir home;
};

TEST_F(stylewright_cli, wrong_usage_exits_2_with_a_one_line_hint_and_writes_nothing)
{
    preset("a.xmp");
    for (const char* arguments :
         {"", "--bogus a.xmp", "-c cmyk a.xmp", "--white-balance maybe a.xmp", "--unsupported=ask a.xmp",
          "--category a.xmp", "-p x.costylepack --stdout a.xmp", "--inspect --stdout a.xmp",
          "-o out -p x.costylepack a.xmp", "-v -q a.xmp", "--stdout a.xmp a.xmp", "a.xmp -o"}) {
        SCOPED_TRACE(arguments);
        const cli_result result = run(QString(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts));
        EXPECT_EQ(result.exit_code, 2);
        EXPECT_TRUE(result.out.isEmpty());
        ASSERT_EQ(result.lines().size(), 1) << result.err.constData();
        EXPECT_TRUE(result.err.startsWith("stylewright-cli: ")) << result.err.constData();
        EXPECT_TRUE(result.err.endsWith(" Try 'stylewright-cli --help'.\n")) << result.err.constData();
        EXPECT_EQ(files_in(), QStringList{"a.xmp"});
    }
}

TEST_F(stylewright_cli, version_and_help)
{
    const cli_result version = run({"--version"});
    EXPECT_EQ(version.exit_code, 0);
    EXPECT_EQ(version.out, "Stylewright 1.0.8\n");
    const cli_result help = run({"--help"});
    EXPECT_EQ(help.exit_code, 0);
    for (const char* option : {"--output", "--colorspace", "--pack", "--category", "--white-balance", "--unsupported",
                               "--calibration", "--stdout", "--inspect", "--verbose", "--quiet", "--version"})
        EXPECT_TRUE(help.out.contains(option)) << option;
}

TEST_F(stylewright_cli, separate_styles_go_to_the_output_folder_made_for_them_or_the_current_one)
{
    preset("a.xmp");
    preset("b.lrtemplate");
    const cli_result result = run({"-o", "out/styles", "a.xmp", "b.lrtemplate"});
    EXPECT_EQ(result.exit_code, 0) << result.err.constData();
    EXPECT_TRUE(result.out.isEmpty());
    EXPECT_EQ(result.lines(), QStringList{"2 converted, 0 skipped, 0 failed"});
    EXPECT_EQ(files_in("out/styles"), (QStringList{"a.costyle", "b.costyle"}));
    EXPECT_EQ(run({"a.xmp"}).exit_code, 0);
    EXPECT_EQ(files_in(), (QStringList{"a.costyle", "a.xmp", "b.lrtemplate"}));
}

TEST_F(stylewright_cli, stdout_prints_the_one_style_or_nothing_and_the_colour_space_counts)
{
    write_file(work.path(), "a.xmp", xmp_text("Warm & \"Cosy\"", {{"SplitToningShadowHue", "200"},
                                                                   {"SplitToningShadowSaturation", "40"}}));
    const cli_result raw = run({"--stdout", "a.xmp"});
    EXPECT_EQ(raw.exit_code, 0);
    EXPECT_TRUE(raw.out.startsWith("<?xml version=\"1.0\"?>\n<SL Engine=\"900\">\n")) << raw.out.constData();
    EXPECT_TRUE(raw.out.contains("<E K=\"Name\" V=\"Warm &amp; &quot;Cosy&quot;\"/>")) << raw.out.constData();
    EXPECT_TRUE(raw.out.endsWith("</SL>\n"));
    EXPECT_EQ(raw.lines(), QStringList{"1 converted, 0 skipped, 0 failed"});
    const auto colour_balance = [](const QByteArray& style) {
        const int at = style.indexOf("K=\"ColorBalanceShadow\"");
        return style.mid(at, style.indexOf('/', at) - at);
    };
    EXPECT_NE(colour_balance(raw.out), colour_balance(run({"--stdout", "-c", "srgb", "a.xmp"}).out));

    preset("wb.xmp", "wb");
    const cli_result skipped = run({"--stdout", "--white-balance", "skip", "wb.xmp"});
    EXPECT_EQ(skipped.exit_code, 0);
    EXPECT_TRUE(skipped.out.isEmpty());
    EXPECT_TRUE(skipped.err.endsWith("0 converted, 1 skipped, 0 failed\n"));
    EXPECT_EQ(files_in(), (QStringList{"a.xmp", "wb.xmp"}));
}

TEST_F(stylewright_cli, each_question_is_a_warning_answered_by_its_option)
{
    const char* const cases[][3] = {{"--white-balance", "wb", "White balance modified by preset"},
                                    {"--unsupported", "dehaze", "Unsupported parameters in preset"},
                                    {"--unsupported", "lut", "Unsupported parameters in preset"},
                                    {"--calibration", "cal", "Camera calibration modified by preset"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c[1]);
        preset("flagged.xmp", c[1]);
        const cli_result skipped = run({c[0], "skip", "flagged.xmp"});
        EXPECT_EQ(skipped.exit_code, 0);
        ASSERT_EQ(skipped.lines().size(), 2) << skipped.err.constData();
        EXPECT_TRUE(skipped.lines()[0].startsWith(QStringLiteral("Warning: flagged.xmp: %1: ").arg(c[2])));
        EXPECT_EQ(skipped.lines()[1], "0 converted, 1 skipped, 0 failed");
        EXPECT_EQ(files_in(), QStringList{"flagged.xmp"});
        const cli_result converted = run({c[0], "convert", "flagged.xmp"});
        EXPECT_EQ(converted.lines().size(), 2);
        EXPECT_TRUE(converted.err.endsWith("1 converted, 0 skipped, 0 failed\n"));
        EXPECT_TRUE(QFile::remove(path("flagged.costyle")));
    }
    // The question's text without markup, on one line.
    preset("haze.xmp", "dehaze lut", "Haze");
    EXPECT_EQ(run({"haze.xmp"}).lines().value(0),
              "Warning: haze.xmp: Unsupported parameters in preset: Your selected preset Haze contains the following "
              "parameters, which can't be mapped in Capture One: - LUT - Dehaze These parameters will be ignored.");
}

TEST_F(stylewright_cli, failures_get_one_line_each_and_exit_1)
{
    preset("good.xmp");
    write_file(work.path(), "notes.txt", "not a preset");
    write_file(work.path(), "broken.lrtemplate", "s = {\n title = \"x\"\n value = 1,\n}\n");
    const cli_result result = run({"notes.txt", "good.xmp", "broken.lrtemplate", "gone.xmp"});
    EXPECT_EQ(result.exit_code, 1);
    // The reader's own critical log line comes between them.
    EXPECT_EQ(result.lines().filter(QRegularExpression("^Error: |^[0-9]")),
              (QStringList{"Error: gone.xmp: No such file or folder.",
                           "Error: notes.txt: Unsupported preset format: Your preset notes.txt is in a format "
                           "Stylewright can't convert.",
                           "Error: broken.lrtemplate: Can't read preset: Your preset broken.lrtemplate can't be "
                           "processed by Stylewright. Please contact the Quillmark support and send them a screenshot "
                           "of this message and the preset file stated above to support@quillmark.example Error: "
                           "Unexpected token type found. Expected token_type::comma, got token_type::name",
                           "1 converted, 0 skipped, 3 failed"}));
    EXPECT_TRUE(QFile::exists(path("good.costyle")));
}

TEST_F(stylewright_cli, quiet_keeps_only_errors_and_verbose_adds_debug_lines)
{
    preset("wb.xmp", "wb");
    write_file(work.path(), "notes.txt", "x");
    const cli_result quiet = run({"-q", "wb.xmp", "notes.txt"});
    EXPECT_EQ(quiet.exit_code, 1);
    ASSERT_EQ(quiet.lines().size(), 1) << quiet.err.constData();
    EXPECT_TRUE(quiet.lines()[0].startsWith("Error: notes.txt: Unsupported preset format"));
    EXPECT_FALSE(run({"wb.xmp"}).err.contains("Debug: "));
    const cli_result verbose = run({"-v", "wb.xmp"});
    EXPECT_TRUE(verbose.err.contains("Debug: ")) << verbose.err.constData();
    EXPECT_TRUE(verbose.out.isEmpty());
}

TEST_F(stylewright_cli, folders_are_searched_recursively_in_sorted_order)
{
    preset("presets/sub/B.XMP");
    preset("presets/a.Xmp");
    preset("presets/c.LRTEMPLATE");
    write_file(work.path(), "presets/notes.txt", "x");
    preset("presets/._a.xmp");
    preset("presets/.cache/d.xmp");
    QDir(work.path()).mkdir("empty");
    const cli_result result = run({"--inspect", "presets", "empty"});
    EXPECT_EQ(result.exit_code, 0) << result.err.constData();
    QStringList files;
    for (const QJsonValue& found : QJsonDocument::fromJson(result.out).array())
        files << found["file"].toString();
    EXPECT_EQ(files, (QStringList{"presets/a.Xmp", "presets/c.LRTEMPLATE", "presets/sub/B.XMP"}));
    EXPECT_EQ(result.lines(), QStringList{"Warning: empty: No preset found in this folder."});
    EXPECT_EQ(run({"empty"}).exit_code, 0);
}

TEST_F(stylewright_cli, progress_line_on_a_terminal_for_large_batches_only)
{
    const QString script = QStandardPaths::findExecutable("script");
    if (script.isEmpty())
        GTEST_SKIP() << "script (util-linux) not installed";
    for (int i = 0; i < 40; ++i)
        preset(QStringLiteral("many/p%1.xmp").arg(i, 2, 10, QLatin1Char('0')));
    for (int i = 0; i < 3; ++i)
        preset(QStringLiteral("few/p%1.xmp").arg(i));
    const auto on_terminal = [&](const QString& arguments) {
        return run_command({script, "-qec", cli + " " + arguments, "/dev/null"}).out;
    };
    const QByteArray many = on_terminal("-o out many");
    EXPECT_TRUE(many.contains("\r\033[K[1/40] p00.xmp")) << many.constData();
    // Cleared before the summary.
    EXPECT_TRUE(many.contains("\r\033[K[40/40] p39.xmp\r\033[K40 converted, 0 skipped, 0 failed"));
    const QByteArray few = on_terminal("-o out few");
    EXPECT_TRUE(few.contains("3 converted") && !few.contains("[1/3]")) << few.constData();
    EXPECT_FALSE(on_terminal("-q -o out many").contains("[1/40]"));
}

TEST_F(stylewright_cli, inspect_prints_each_preset_as_json_and_writes_nothing)
{
    settings_map settings = flagged("wb dehaze");
    settings.insert("Texture", "25");
    write_file(work.path(), "warm.xmp",
               xmp_text("Warm", settings)
                   .replace("</crs:Name>", "</crs:Name><crs:ToneCurvePV2012><rdf:Seq><rdf:li>0, 0</rdf:li>"
                                           "<rdf:li>255, 240</rdf:li></rdf:Seq></crs:ToneCurvePV2012>"));
    write_file(work.path(), "notes.txt", "x");
    const cli_result result = run({"--inspect", "warm.xmp", "notes.txt", "gone.xmp"});

    EXPECT_EQ(result.exit_code, 1);
    const QJsonArray presets = QJsonDocument::fromJson(result.out).array();
    ASSERT_EQ(presets.size(), 3) << result.out.constData();
    const QJsonObject warm = presets[0].toObject();
    EXPECT_EQ(warm.keys(), (QStringList{"curves", "description", "file", "flags", "name", "not_carried_over",
                                        "settings"}));
    EXPECT_EQ(warm["file"], "warm.xmp");
    EXPECT_EQ(warm["name"], "Warm");
    EXPECT_EQ(warm["settings"]["Temperature"], "5000");
    EXPECT_EQ(warm["settings"]["Texture"], "25");
    EXPECT_EQ(warm["curves"].toObject().keys(),
              (QStringList{"tone_curve", "tone_curve_blue", "tone_curve_green", "tone_curve_red"}));
    EXPECT_EQ(QJsonDocument(warm["curves"]["tone_curve"].toArray()).toJson(QJsonDocument::Compact),
              "[[0,0],[255,240]]");
    EXPECT_TRUE(warm["curves"]["tone_curve_red"].toArray().isEmpty());
    EXPECT_EQ(warm["flags"].toObject(), (QJsonObject{{"white_balance", true}, {"dehaze", true}, {"lut", false},
                                                     {"camera_calibration", false}}));
    EXPECT_TRUE(warm["not_carried_over"].toArray().contains("Texture"));
    EXPECT_FALSE(warm["not_carried_over"].toArray().contains("Temperature"));
    EXPECT_EQ(presets[1].toObject(),
              (QJsonObject{{"file", "notes.txt"}, {"error", "Unsupported preset format: Your preset notes.txt is in "
                                                            "a format Stylewright can't convert."}}));
    EXPECT_EQ(presets[2].toObject(), (QJsonObject{{"file", "gone.xmp"}, {"error", "No such file or folder."}}));
    // No questions, no summary.
    EXPECT_EQ(result.lines().size(), 2) << result.err.constData();
    EXPECT_EQ(files_in(), (QStringList{"notes.txt", "warm.xmp"}));
}

TEST_F(stylewright_cli, pack_lists_its_entries_in_name_order_in_the_category_folder)
{
    preset("Zürich.xmp");
    preset("Café.xmp");
    preset("b.xmp");
    const cli_result result = run({"-p", "Sommer Töne.costylepack", "--category", "Zürich.xmp", "b.xmp", "Café.xmp"});
    EXPECT_EQ(result.lines(), QStringList{"3 converted, 0 skipped, 0 failed"});
    const QString pack = path("Sommer Töne.costylepack");
    const QStringList names = {"Sommer Töne/Café.costyle", "Sommer Töne/Zürich.costyle", "Sommer Töne/b.costyle"};
    EXPECT_EQ(zip_reading::names(pack), names);
    EXPECT_TRUE(zip_reading::names_flagged_utf8(read_file(pack)));
    const QString unzip = QStandardPaths::findExecutable("unzip");
    if (unzip.isEmpty())
        GTEST_SKIP() << "unzip not installed";
    const cli_result listing = run_command({unzip, "-Z1", pack});
    EXPECT_EQ(listing.out, names.join('\n').toUtf8() + '\n');
    EXPECT_EQ(run_command({unzip, "-t", pack}).exit_code, 0);
}

TEST_F(stylewright_cli, pack_that_is_not_written_says_so)
{
    preset("a.xmp");
    preset("wb.xmp", "wb");
    const cli_result none = run({"-p", "x.costylepack", "--white-balance", "skip", "wb.xmp"});
    EXPECT_EQ(none.exit_code, 0);
    EXPECT_EQ(none.lines().mid(1), (QStringList{"Warning: No style was converted; x.costylepack was not written.",
                                                "0 converted, 1 skipped, 0 failed"}));
    const cli_result failed = run({"-p", "nowhere/x.costylepack", "a.xmp"});
    EXPECT_EQ(failed.exit_code, 1);
    EXPECT_EQ(failed.lines(), (QStringList{"Warning: libzip zip_close error -1: Unknown error -1",
                                           "Error: nowhere/x.costylepack: The style pack could not be written.",
                                           "0 converted, 0 skipped, 1 failed"}));
    EXPECT_EQ(files_in(), (QStringList{"a.xmp", "wb.xmp"}));
}

TEST_F(stylewright_cli, failed_writes_keep_the_earlier_style_and_pack)
{
    QStringList presets;
    for (int i = 0; i < 12; ++i)
        presets << preset(QStringLiteral("p%1.xmp").arg(i), "colourful");
    write_file(work.path(), "p0.costyle", "previous");
    write_file(work.path(), "x.costylepack", "previous");
    const QStringList before = files_in();

    EXPECT_EQ(run_with_tiny_file_limit({"p0.xmp"}).exit_code, 1);
    EXPECT_EQ(run_with_tiny_file_limit(QStringList{"-p", "x.costylepack"} + presets).exit_code, 1);
    EXPECT_EQ(read_file(path("p0.costyle")), "previous");
    EXPECT_EQ(read_file(path("x.costylepack")), "previous");
    EXPECT_EQ(files_in(), before);
}

TEST_F(stylewright_cli, stores_no_settings)
{
    preset("a.xmp");
    run({"a.xmp"});
    run({"-p", "p.costylepack", "a.xmp"});
    run({"--inspect", "a.xmp"});
    QDirIterator it(home.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    EXPECT_FALSE(it.hasNext()) << qPrintable(it.next());
}

TEST_F(stylewright_cli, every_corpus_preset_converts_to_well_formed_xml)
{
    const QString corpus = test_support::corpus_dir();
    if (corpus.isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    // Files the template reader rejects: three that are no develop presets (a
    // resource-fork companion, a print and a web template) and five develop
    // presets carrying Lua comments, which the reader's syntax does not include.
    const QStringList rejected = {"d5-appledouble-autumn-junk.lrtemplate",
                                  "d5-print-645-diptych-not-develop.lrtemplate",
                                  "fm-col-cross-process-alanmiller-empty-tables.lrtemplate",
                                  "fm-col-deep-negative-handedited.lrtemplate",
                                  "fm-col-negative-point-curve-comment.lrtemplate",
                                  "fm-cp-matrix-trailing-comment.lrtemplate",
                                  "fm-midnight-html-web-template-not-develop.lrtemplate",
                                  "fm-pc-m-curve-escaped-quotes.lrtemplate"};
    const cli_result result = run({"-o", "out", corpus});

    QStringList failed;
    for (const QString& line : result.lines().filter(QRegularExpression("^Error: "))) {
        failed << QFileInfo(line.mid(7).section(": ", 0, 0)).fileName();
        EXPECT_TRUE(line.contains(": Can't read preset: ")) << qPrintable(line);
    }
    failed.sort();
    EXPECT_EQ(failed, rejected) << result.err.constData();
    EXPECT_EQ(result.exit_code, 1);
    // Presets of the same base name share one style file.
    QSet<QString> expected_styles;
    int presets = 0;
    for (QDirIterator it(corpus, {"*.xmp", "*.lrtemplate"}, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QFileInfo preset(it.next());
        ++presets;
        if (!rejected.contains(preset.fileName()))
            expected_styles << preset.completeBaseName() + ".costyle";
    }
    const QStringList styles = files_in("out");
    EXPECT_EQ(QSet<QString>(styles.begin(), styles.end()), expected_styles);
    EXPECT_EQ(result.lines().last(), QStringLiteral("%1 converted, 0 skipped, 8 failed").arg(presets - 8));

    const QString xmllint = QStandardPaths::findExecutable("xmllint");
    if (xmllint.isEmpty())
        GTEST_SKIP() << "xmllint not installed";
    QStringList lint = {xmllint, "--noout"};
    for (const QString& style : styles)
        lint << path("out/" + style);
    const cli_result linted = run_command(lint);
    EXPECT_EQ(linted.exit_code, 0) << linted.err.constData();
}

} // namespace
