// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/conversion_fixtures.h"
#include "support/test_support.h"

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

using namespace fixtures;

namespace {

const QString cli = QStringLiteral(STYLEWRIGHT_CLI_PATH);

struct cli_result {
    int exit_code = -1;
    QByteArray out;
    QByteArray err;
    QStringList lines() const { return QString::fromUtf8(err).split(QLatin1Char('\n'), Qt::SkipEmptyParts); }
};

// The converter as a user runs it: in a work folder of presets, with a home and
// configuration folder of its own, where a stored setting would show.
class stylewright_cli : public ::testing::Test {
protected:
    void SetUp() override
    {
        for (const char* flags : {"wb", "dehaze", "lut", "cal", "colourful"})
            preset(QStringLiteral("%1.xmp").arg(flags), flags);
        preset("a.xmp");
        preset("b.lrtemplate");
        preset("haze.xmp", "dehaze lut", "Haze");
        write_file(work.path(), "notes.txt", "not a preset");
        write_file(work.path(), "broken.lrtemplate", "s = {\n title = \"x\"\n value = 1,\n}\n");
        QDir(work.path()).mkdir("empty");
        initial = made_files();
    }
    // The converter reads and writes no stored settings.
    void TearDown() override
    {
        EXPECT_TRUE(QDir(home.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }

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
    QString preset(const QString& file, const QString& flags = QString(), const QString& name = "P") const
    {
        return write_file(work.path(), file, preset_text(file, name, flagged(flags)));
    }
    QString path(const QString& name) const { return work.filePath(name); }
    // The files made since set-up, in subfolders too, removed again.
    QStringList made_files() const
    {
        QStringList made;
        for (QDirIterator it(work.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); it.hasNext();) {
            const QString file = QDir(work.path()).relativeFilePath(it.next());
            if (!initial.contains(file) && (initial.isEmpty() || QFile::remove(it.filePath())))
                made << file;
        }
        made.sort();
        return made;
    }

    QTemporaryDir work;
    QTemporaryDir home;
    QStringList initial;
};

QStringList usage(const QString& message)
{
    return {"stylewright-cli: " + message + " Try 'stylewright-cli --help'."};
}

TEST_F(stylewright_cli, each_command_line_gives_its_messages_exit_status_and_files)
{
    const struct {
        const char* arguments; // split at blanks
        int exit_code;
        QStringList lines; // the beginnings of the lines on standard error
        QStringList made;
    } cases[] = {
        {"", 2, usage("No preset or folder given."), {}},
        {"--bogus a.xmp", 2, usage("Unknown option 'bogus'."), {}},
        {"-c cmyk a.xmp", 2, usage("Unknown colour space 'cmyk' (raw, adobe, srgb, prophoto or widegamut)."), {}},
        {"--white-balance maybe a.xmp", 2, usage("--white-balance takes convert or skip, not 'maybe'."), {}},
        {"--unsupported=ask a.xmp", 2, usage("--unsupported takes convert or skip, not 'ask'."), {}},
        {"--category a.xmp", 2, usage("--category needs --pack."), {}},
        {"-p x.costylepack --stdout a.xmp", 2, usage("Only one of --pack, --stdout and --inspect can be given."), {}},
        {"--inspect --stdout a.xmp", 2, usage("Only one of --pack, --stdout and --inspect can be given."), {}},
        {"-o out -p x.costylepack a.xmp", 2,
         usage("--output is for separate styles; it can't be used with --pack, --stdout or --inspect."), {}},
        {"-v -q a.xmp", 2, usage("--verbose and --quiet exclude each other."), {}},
        {"--stdout a.xmp a.xmp", 2, usage("--stdout takes exactly one preset."), {}},
        {"--stdout empty", 2,
         QStringList{"Warning: empty: No preset found in this folder."} +
             usage("--stdout takes exactly one preset, not 0."),
         {}},
        {"a.xmp -o", 2, usage("Missing value after '-o'."), {}},
        {"-o out/styles a.xmp b.lrtemplate", 0, {"2 converted, 0 skipped, 0 failed"},
         {"out/styles/a.costyle", "out/styles/b.costyle"}},
        {"a.xmp", 0, {"1 converted, 0 skipped, 0 failed"}, {"a.costyle"}},
        {"empty", 0, {"Warning: empty: No preset found in this folder.", "0 converted, 0 skipped, 0 failed"}, {}},
        // Each question is a warning, answered by its option.
        {"--white-balance skip wb.xmp", 0,
         {"Warning: wb.xmp: White balance modified by preset: Your preset P contains values for the white balance. "
          "Equal white balance values",
          "0 converted, 1 skipped, 0 failed"},
         {}},
        {"--white-balance convert wb.xmp", 0,
         {"Warning: wb.xmp: White balance modified by preset: ", "1 converted, 0 skipped, 0 failed"}, {"wb.costyle"}},
        {"--unsupported skip dehaze.xmp lut.xmp", 0,
         {"Warning: dehaze.xmp: Unsupported parameters in preset: ", "Warning: lut.xmp: Unsupported parameters ",
          "0 converted, 2 skipped, 0 failed"},
         {}},
        {"--calibration skip cal.xmp", 0,
         {"Warning: cal.xmp: Camera calibration modified by preset: ", "0 converted, 1 skipped, 0 failed"}, {}},
        {"haze.xmp", 0,
         {"Warning: haze.xmp: Unsupported parameters in preset: Your selected preset Haze contains the following "
          "parameters, which can't be mapped in Capture One: - LUT - Dehaze These parameters will be ignored.",
          "1 converted, 0 skipped, 0 failed"},
         {"haze.costyle"}},
        // One line per failure; the reader logs a critical line of its own.
        {"notes.txt a.xmp broken.lrtemplate gone.xmp", 1,
         {"Error: gone.xmp: No such file or folder.",
          "Error: notes.txt: Unsupported preset format: Your preset notes.txt is in a format Stylewright can't "
          "convert.",
          "Critical: ",
          "Error: broken.lrtemplate: Can't read preset: Your preset broken.lrtemplate can't be processed by "
          "Stylewright. Please contact the Quillmark support and send them a screenshot of this message and the "
          "preset file stated above to support@quillmark.example Error: Unexpected token type found. Expected "
          "token_type::comma, got token_type::name",
          "1 converted, 0 skipped, 3 failed"},
         {"a.costyle"}},
        {"-q wb.xmp notes.txt", 1, {"Error: notes.txt: Unsupported preset format: "}, {"wb.costyle"}},
        {"--stdout --white-balance skip wb.xmp", 0,
         {"Warning: wb.xmp: White balance ", "0 converted, 1 skipped, 0 failed"}, {}},
        {"-p x.costylepack --white-balance skip wb.xmp", 0,
         {"Warning: wb.xmp: White balance ", "Warning: No style was converted; x.costylepack was not written.",
          "0 converted, 1 skipped, 0 failed"},
         {}},
        {"-p nowhere/x.costylepack a.xmp", 1,
         {"Warning: libzip zip_close error -1: Unknown error -1",
          "Error: nowhere/x.costylepack: The style pack could not be written: Failure to create temporary file", "0 converted, 0 skipped, 1 failed"},
         {}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.arguments);
        const cli_result result = run(QString(c.arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts));
        EXPECT_EQ(result.exit_code, c.exit_code);
        EXPECT_TRUE(result.out.isEmpty());
        const QStringList lines = result.lines();
        EXPECT_EQ(lines.size(), c.lines.size()) << result.err.constData();
        for (int i = 0; i < lines.size() && i < c.lines.size(); ++i)
            EXPECT_TRUE(lines[i].startsWith(c.lines[i])) << lines[i];
        EXPECT_EQ(made_files(), c.made);
    }
}

TEST_F(stylewright_cli, version_help_and_debug_lines)
{
    const cli_result version = run({"--version"});
    EXPECT_EQ(version.exit_code, 0);
    EXPECT_EQ(version.out, "Stylewright 1.0.8\n");
    const cli_result help = run({"--help"});
    EXPECT_EQ(help.exit_code, 0);
    for (const char* option : {"--output", "--colorspace", "--pack", "--category", "--white-balance", "--unsupported",
                               "--calibration", "--stdout", "--inspect", "--verbose", "--quiet", "--version"})
        EXPECT_TRUE(help.out.contains(option)) << option;
    EXPECT_FALSE(run({"a.xmp"}).err.contains("Debug: "));
    EXPECT_TRUE(run({"-v", "a.xmp"}).err.contains("Debug: "));
}

TEST_F(stylewright_cli, stdout_prints_the_one_style_in_the_colour_space_asked_for)
{
    write_file(work.path(), "split.xmp", preset_text("split.xmp", "Warm & \"Cosy\"",
                                                     {{"SplitToningShadowHue", "200"},
                                                      {"SplitToningShadowSaturation", "40"}}));
    const cli_result raw = run({"--stdout", "split.xmp"});
    EXPECT_EQ(raw.exit_code, 0);
    EXPECT_TRUE(raw.out.startsWith("<?xml version=\"1.0\"?>\n<SL Engine=\"900\">\n")) << raw.out.constData();
    EXPECT_TRUE(raw.out.contains("<E K=\"Name\" V=\"Warm &amp; &quot;Cosy&quot;\"/>")) << raw.out.constData();
    EXPECT_TRUE(raw.out.endsWith("</SL>\n"));
    EXPECT_EQ(raw.lines(), QStringList{"1 converted, 0 skipped, 0 failed"});
    const auto colour_balance = [](const QByteArray& style) {
        const int at = style.indexOf("K=\"ColorBalanceShadow\"");
        return style.mid(at, style.indexOf('/', at) - at);
    };
    EXPECT_NE(colour_balance(raw.out), colour_balance(run({"--stdout", "-c", "srgb", "split.xmp"}).out));
    EXPECT_EQ(made_files(), QStringList{"split.xmp"});
}

TEST_F(stylewright_cli, folders_are_searched_recursively_in_sorted_order)
{
    for (const char* file : {"presets/sub/B.XMP", "presets/a.Xmp", "presets/c.LRTEMPLATE", "presets/notes.txt",
                             "presets/._a.xmp", "presets/.cache/d.xmp"})
        preset(file);
    const cli_result result = run({"--inspect", "presets"});
    EXPECT_EQ(result.exit_code, 0) << result.err.constData();
    QStringList files;
    for (const QJsonValue& found : QJsonDocument::fromJson(result.out).array())
        files << found["file"].toString();
    EXPECT_EQ(files, (QStringList{"presets/a.Xmp", "presets/c.LRTEMPLATE", "presets/sub/B.XMP"}));
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
    settings.insert("WhiteBalance", "Daylight");
    const QByteArray local_adjustments = "<crs:GradientBasedCorrections><rdf:Seq><rdf:li/><rdf:li/></rdf:Seq>"
        "</crs:GradientBasedCorrections><crs:PaintBasedCorrections><rdf:Seq><rdf:li/></rdf:Seq>"
        "</crs:PaintBasedCorrections><crs:Look><rdf:Description crs:Name=\"Adobe Monochrome\"/></crs:Look>";
    write_file(work.path(), "warm.xmp",
               preset_text("warm.xmp", "Warm", settings)
                   .replace("xmlns:crs=", "xmlns:exif=\"http://ns.adobe.com/exif/1.0/\" exif:Make=\"Canon\" xmlns:crs=")
                   .replace("</crs:Name>", "</crs:Name><crs:ToneCurvePV2012><rdf:Seq><rdf:li>0, 0</rdf:li>"
                                           "<rdf:li>255, 240</rdf:li></rdf:Seq></crs:ToneCurvePV2012>" + local_adjustments));
    write_file(work.path(), "odd.xmp", preset_text("odd.xmp", "Quote \" back \\ tab\t new&#10;line é €", {}));
    const cli_result result = run({"--inspect", "warm.xmp", "notes.txt", "gone.xmp"});
    const cli_result odd = run({"--inspect", "odd.xmp", "warm.xmp"});
    // Written as it goes, the report reads exactly as Qt's own JSON writer would print it.
    EXPECT_EQ(QJsonDocument::fromJson(odd.out).toJson(QJsonDocument::Indented), odd.out);
    EXPECT_EQ(QJsonDocument::fromJson(odd.out).array().at(0).toObject().value("name"), "Quote \" back \\ tab\t new&#10;line é €");

    EXPECT_EQ(result.exit_code, 1);
    QJsonArray presets = QJsonDocument::fromJson(result.out).array();
    QJsonObject warm = presets.at(0).toObject();
    // The sidecar's camera make is no develop setting; what no key shows is named beside the keys.
    EXPECT_EQ(QJsonDocument(warm.take("not_carried_over").toObject()).toJson(QJsonDocument::Compact),
              R"({"local_adjustments":{"brush":1,"gradient":2},"look":"Adobe Monochrome",)"
              R"("settings":["Dehaze","Texture","WhiteBalance"],"white_balance":"Daylight"})");
    presets.replace(0, warm);
    EXPECT_EQ(QJsonDocument(presets).toJson(QJsonDocument::Compact),
              R"([{"curves":{"tone_curve":[[0,0],[255,240]],"tone_curve_blue":[],"tone_curve_green":[],)"
              R"("tone_curve_red":[]},"description":"","file":"warm.xmp","flags":{"camera_calibration":false,)"
              R"("dehaze":true,"lut":false,"white_balance":true},"name":"Warm","settings":{"Dehaze":"12",)"
              R"("Exposure2012":"0.50","Make":"Canon","Temperature":"5000","Texture":"25","WhiteBalance":"Daylight"}},{"error":"Unsupported preset format: )"
              R"(Your preset notes.txt is in a format Stylewright can't convert.","file":"notes.txt"},)"
              R"({"error":"No such file or folder.","file":"gone.xmp"}])");
    // The errors, but no questions and no summary.
    EXPECT_EQ(result.lines().size(), 2) << result.err.constData();
    EXPECT_EQ(made_files(), QStringList({"odd.xmp", "warm.xmp"}));
}

TEST_F(stylewright_cli, pack_lists_its_entries_in_name_order_in_the_category_folder)
{
    for (const char* file : {"Zürich.xmp", "Café.xmp"})
        preset(file);
    const cli_result result = run({"-p", "Sommer Töne.costylepack", "--category", "Zürich.xmp", "b.lrtemplate",
                                   "Café.xmp"});
    EXPECT_EQ(result.lines(), QStringList{"3 converted, 0 skipped, 0 failed"});
    const QString pack = path("Sommer Töne.costylepack");
    const QStringList names = {"Sommer Töne/Café.costyle", "Sommer Töne/Zürich.costyle", "Sommer Töne/b.costyle"};
    EXPECT_EQ(zip_entries(pack), names);
    const QString unzip = QStandardPaths::findExecutable("unzip");
    if (unzip.isEmpty())
        GTEST_SKIP() << "unzip not installed";
    EXPECT_EQ(run_command({unzip, "-Z1", pack}).out, names.join('\n').toUtf8() + '\n');
    EXPECT_EQ(run_command({unzip, "-t", pack}).exit_code, 0);
}

TEST_F(stylewright_cli, failed_writes_keep_the_earlier_style_and_pack)
{
    QStringList presets;
    for (int i = 0; i < 12; ++i)
        presets << preset(QStringLiteral("p%1.xmp").arg(i), "colourful");
    write_file(work.path(), "p0.costyle", "previous");
    write_file(work.path(), "x.costylepack", "previous");
    QDir(work.path()).mkdir("p1.costyle");
    // Under a file-size limit of 512 bytes, below a style's and a pack's size.
    const auto run_with_tiny_file_limit = [&](const QStringList& arguments) {
        return run_command(QStringList{"/bin/sh", "-c", "ulimit -f 1; trap '' XFSZ; exec \"$0\" \"$@\"", cli} +
                           arguments);
    };
    const cli_result styles = run_with_tiny_file_limit({"p0.xmp", "p1.xmp"});
    EXPECT_EQ(styles.exit_code, 1);
    EXPECT_EQ(styles.lines().value(0), "Error: p0.xmp: Can't write style: The style ./p0.costyle could not be "
                                       "written. File too large");
    EXPECT_TRUE(styles.lines().value(1).startsWith("Error: p1.xmp: Can't write style: The style ./p1.costyle could "
                                                   "not be written. "));
    EXPECT_EQ(run_with_tiny_file_limit(QStringList{"-p", "x.costylepack"} + presets).exit_code, 1);
    EXPECT_EQ(read_file(path("p0.costyle")), "previous");
    EXPECT_EQ(read_file(path("x.costylepack")), "previous");
    // The twelve presets and the two earlier files, nothing more.
    EXPECT_EQ(made_files().size(), 14);
}

TEST_F(stylewright_cli, every_corpus_preset_converts_to_well_formed_xml)
{
    const QString corpus = test_support::corpus_dir();
    if (corpus.isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    // Files the template reader rejects: they are no develop presets (a
    // resource-fork companion, a print and a web template).
    const QStringList rejected = {"d5-appledouble-autumn-junk.lrtemplate", "d5-print-645-diptych-not-develop.lrtemplate",
                                  "fm-midnight-html-web-template-not-develop.lrtemplate"};
    const cli_result result = run({"-o", "out", "--jobs", "2", "-v", corpus});
    // One preset at a time gives the same files and says the same, in the same order.
    const cli_result one_by_one = run({"-o", "out-1", "--jobs", "1", "-v", corpus});
    EXPECT_EQ(one_by_one.err, result.err);
    const cli_result inspected[] = {run({"--inspect", "-j", "1", "-v", corpus}), run({"--inspect", "-j", "2", "-v", corpus})};
    EXPECT_EQ(inspected[0].out, inspected[1].out);
    EXPECT_EQ(inspected[0].err, inspected[1].err);
    for (QDirIterator it(path("out"), QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString style = QDir(path("out")).relativeFilePath(it.next());
        const QRegularExpression uuid("<E K=\"UUID\"[^>]*>");
        EXPECT_EQ(QString::fromUtf8(read_file(it.filePath())).remove(uuid),
                  QString::fromUtf8(read_file(path("out-1/" + style))).remove(uuid));
    }

    QStringList failed;
    for (const QString& line : result.lines().filter(QRegularExpression("^Error: "))) {
        failed << QFileInfo(line.mid(7).section(": ", 0, 0)).fileName();
        EXPECT_TRUE(line.contains(": Can't read preset: ")) << line;
    }
    failed.sort();
    EXPECT_EQ(failed, rejected) << result.err.constData();
    EXPECT_EQ(result.exit_code, 1);
    // Presets of the same base name share one style file.
    QSet<QString> expected_styles;
    int presets = 0;
    for (QDirIterator it(corpus, {"*.xmp", "*.lrtemplate"}, QDir::Files, QDirIterator::Subdirectories); it.hasNext();
         ++presets) {
        const QFileInfo preset(it.next());
        if (!rejected.contains(preset.fileName()))
            expected_styles << preset.dir().dirName() + "/" + preset.completeBaseName() + ".costyle";
    }
    QStringList styles; // the folder tree mirrored below the output folder
    for (QDirIterator it(path("out"), QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
        styles << QDir(path("out")).relativeFilePath(it.next());
    EXPECT_EQ(QSet<QString>(styles.begin(), styles.end()), expected_styles);
    EXPECT_EQ(result.lines().last(), QStringLiteral("%1 converted, 0 skipped, 3 failed").arg(presets - 3));

    const QString xmllint = QStandardPaths::findExecutable("xmllint");
    if (xmllint.isEmpty())
        GTEST_SKIP() << "xmllint not installed";
    QStringList lint = {xmllint, "--noout"};
    for (const QString& style : styles)
        lint << path("out/" + style);
    const cli_result linted = run_command(lint);
    EXPECT_EQ(linted.exit_code, 0) << linted.err.constData();

    // The same presets as one pack: unzip, which we did not write, reads it whole.
    run({"--category", "-p", "corpus.costylepack", corpus});
    const QString unzip = QStandardPaths::findExecutable("unzip");
    if (unzip.isEmpty())
        GTEST_SKIP() << "unzip not installed";
    const cli_result tested = run_command({unzip, "-tq", path("corpus.costylepack")});
    EXPECT_EQ(tested.exit_code, 0) << tested.out.constData();
    EXPECT_EQ(zip_entries(path("corpus.costylepack")).size(), styles.size());
}

} // namespace
