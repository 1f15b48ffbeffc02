#include "conversion/preset_fixtures.h"
#include "conversion/zip_reading.h"
#include "test_support.h"

#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace preset_fixtures;

namespace {

struct cli_result {
    int exit_code = -1;
    QByteArray out;
    QByteArray err;

    QStringList error_lines() const { return QString::fromUtf8(err).split(QLatin1Char('\n'), Qt::SkipEmptyParts); }
};

class stylewright_cli_test : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(work_.isValid());
        ASSERT_TRUE(home_.isValid());
    }

    // Runs the converter in the work folder, with a home and configuration folder
    // of its own so that a stored setting would show up there.
    cli_result run(const QStringList& arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(work_.path());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), home_.path());
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home_.path() + QStringLiteral("/config"));
        environment.remove(QStringLiteral("QT_LOGGING_RULES"));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(STYLEWRIGHT_CLI_PATH), arguments);
        cli_result result;
        if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit)
            return result;
        result.exit_code = process.exitCode();
        result.out = process.readAllStandardOutput();
        result.err = process.readAllStandardError();
        return result;
    }

    QString work(const QString& name) const { return QDir(work_.path()).filePath(name); }
    QString xmp(const QString& file_name, const QString& name, const QMap<QString, QString>& settings) const
    {
        QDir(work_.path()).mkpath(QFileInfo(work(file_name)).path());
        return write_file(QDir(work_.path()), file_name, xmp_text(name, settings));
    }
    QStringList files_in(const QString& folder) const
    {
        return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    QTemporaryDir work_;
    QTemporaryDir home_;
};

// ---- usage -----------------------------------------------------------------

class usage_error_test : public stylewright_cli_test, public ::testing::WithParamInterface<QStringList> {};

TEST_P(usage_error_test, exits_2_with_a_one_line_hint)
{
    xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), plain());
    const cli_result result = run(GetParam());
    EXPECT_EQ(result.exit_code, 2);
    EXPECT_TRUE(result.out.isEmpty());
    ASSERT_EQ(result.error_lines().size(), 1) << result.err.constData();
    EXPECT_TRUE(result.err.startsWith("stylewright-cli: ")) << result.err.constData();
    EXPECT_TRUE(result.err.endsWith("Try 'stylewright-cli --help'.\n")) << result.err.constData();
    EXPECT_TRUE(files_in(work_.path()) == QStringList{QStringLiteral("a.xmp")});
}

INSTANTIATE_TEST_SUITE_P(
    arguments, usage_error_test,
    ::testing::Values(QStringList{}, QStringList{QStringLiteral("--bogus"), QStringLiteral("a.xmp")},
                      QStringList{QStringLiteral("-c"), QStringLiteral("cmyk"), QStringLiteral("a.xmp")},
                      QStringList{QStringLiteral("--white-balance"), QStringLiteral("maybe"), QStringLiteral("a.xmp")},
                      QStringList{QStringLiteral("--unsupported=ask"), QStringLiteral("a.xmp")},
                      QStringList{QStringLiteral("--category"), QStringLiteral("a.xmp")},
                      QStringList{QStringLiteral("-p"), QStringLiteral("x.costylepack"), QStringLiteral("--stdout"),
                                  QStringLiteral("a.xmp")},
                      QStringList{QStringLiteral("--inspect"), QStringLiteral("--stdout"), QStringLiteral("a.xmp")},
                      QStringList{QStringLiteral("-o"), QStringLiteral("out"), QStringLiteral("-p"),
                                  QStringLiteral("x.costylepack"), QStringLiteral("a.xmp")},
                      QStringList{QStringLiteral("-v"), QStringLiteral("-q"), QStringLiteral("a.xmp")},
                      QStringList{QStringLiteral("--stdout"), QStringLiteral("a.xmp"), QStringLiteral("a.xmp")},
                      QStringList{QStringLiteral("a.xmp"), QStringLiteral("-o")}));

TEST_F(stylewright_cli_test, version)
{
    const cli_result result = run({QStringLiteral("--version")});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.out, QByteArray("Stylewright 1.0.8\n"));
}

TEST_F(stylewright_cli_test, help_names_every_option)
{
    const cli_result result = run({QStringLiteral("--help")});
    EXPECT_EQ(result.exit_code, 0);
    for (const char* option : {"--output", "--colorspace", "--pack", "--category", "--white-balance", "--unsupported",
                               "--calibration", "--stdout", "--inspect", "--verbose", "--quiet", "--version"})
        EXPECT_TRUE(result.out.contains(option)) << option;
}

// ---- converting ------------------------------------------------------------

TEST_F(stylewright_cli_test, separate_styles_into_a_new_folder)
{
    xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), plain());
    write_file(QDir(work_.path()), QStringLiteral("b.lrtemplate"), lrtemplate_text(QStringLiteral("B"), plain()));

    const cli_result result = run(
        {QStringLiteral("-o"), QStringLiteral("out/styles"), QStringLiteral("a.xmp"), QStringLiteral("b.lrtemplate")});

    EXPECT_EQ(result.exit_code, 0) << result.err.constData();
    EXPECT_TRUE(result.out.isEmpty());
    EXPECT_EQ(result.error_lines(), QStringList{QStringLiteral("2 converted, 0 skipped, 0 failed")});
    EXPECT_EQ(files_in(work(QStringLiteral("out/styles"))),
              (QStringList{QStringLiteral("a.costyle"), QStringLiteral("b.costyle")}));
}

TEST_F(stylewright_cli_test, default_output_is_the_current_folder)
{
    xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), plain());
    const cli_result result = run({QStringLiteral("a.xmp")});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_TRUE(QFile::exists(work(QStringLiteral("a.costyle"))));
}

TEST_F(stylewright_cli_test, colour_space_changes_the_style)
{
    const QMap<QString, QString> split = {{QStringLiteral("SplitToningShadowHue"), QStringLiteral("200")},
                                          {QStringLiteral("SplitToningShadowSaturation"), QStringLiteral("40")}};
    xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), split);
    const auto colour_balance = [](const QByteArray& style) {
        const int at = style.indexOf("K=\"ColorBalanceShadow\"");
        return style.mid(at, style.indexOf('/', at) - at);
    };
    const cli_result raw = run({QStringLiteral("--stdout"), QStringLiteral("a.xmp")});
    const cli_result srgb =
        run({QStringLiteral("--stdout"), QStringLiteral("-c"), QStringLiteral("srgb"), QStringLiteral("a.xmp")});
    ASSERT_EQ(raw.exit_code, 0);
    ASSERT_EQ(srgb.exit_code, 0);
    EXPECT_NE(colour_balance(raw.out), colour_balance(srgb.out));
}

TEST_F(stylewright_cli_test, stdout_prints_the_one_style)
{
    xmp(QStringLiteral("a.xmp"), QStringLiteral("Warm & \"Cosy\""), plain());
    const cli_result result = run({QStringLiteral("--stdout"), QStringLiteral("a.xmp")});

    EXPECT_EQ(result.exit_code, 0);
    EXPECT_TRUE(result.out.startsWith("<?xml version=\"1.0\"?>\n<SL Engine=\"900\">\n")) << result.out.constData();
    EXPECT_TRUE(result.out.contains("<E K=\"Name\" V=\"Warm &amp; &quot;Cosy&quot;\"/>")) << result.out.constData();
    EXPECT_TRUE(result.out.endsWith("</SL>\n"));
    EXPECT_EQ(result.error_lines(), QStringList{QStringLiteral("1 converted, 0 skipped, 0 failed")});
    EXPECT_EQ(files_in(work_.path()), QStringList{QStringLiteral("a.xmp")});
}

TEST_F(stylewright_cli_test, stdout_prints_nothing_for_a_skipped_preset)
{
    xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), white_balance());
    const cli_result result = run({QStringLiteral("--stdout"), QStringLiteral("--white-balance"),
                                   QStringLiteral("skip"), QStringLiteral("a.xmp")});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_TRUE(result.out.isEmpty());
    EXPECT_TRUE(result.err.endsWith("0 converted, 1 skipped, 0 failed\n"));
}

struct answer_case {
    const char* option;
    QMap<QString, QString> settings;
    const char* title;
};

void PrintTo(const answer_case& c, std::ostream* os)
{
    *os << c.option << ' ' << c.settings.firstKey().toStdString();
}

class answer_option_test : public stylewright_cli_test, public ::testing::WithParamInterface<answer_case> {};

TEST_P(answer_option_test, skip_skips_and_convert_converts_with_one_warning_each)
{
    xmp(QStringLiteral("flagged.xmp"), QStringLiteral("Flagged"), GetParam().settings);
    const QString option = QString::fromLatin1(GetParam().option);

    const cli_result skipped = run({option, QStringLiteral("skip"), QStringLiteral("flagged.xmp")});
    EXPECT_EQ(skipped.exit_code, 0);
    const QStringList lines = skipped.error_lines();
    ASSERT_EQ(lines.size(), 2) << skipped.err.constData();
    EXPECT_TRUE(lines[0].startsWith(QStringLiteral("Warning: flagged.xmp: ") + QLatin1String(GetParam().title) +
                                    QStringLiteral(": ")))
        << qPrintable(lines[0]);
    EXPECT_FALSE(lines[0].contains(QLatin1Char('<')));
    EXPECT_EQ(lines[1], QStringLiteral("0 converted, 1 skipped, 0 failed"));
    EXPECT_FALSE(QFile::exists(work(QStringLiteral("flagged.costyle"))));

    const cli_result converted = run({option, QStringLiteral("convert"), QStringLiteral("flagged.xmp")});
    EXPECT_EQ(converted.exit_code, 0);
    EXPECT_EQ(converted.error_lines().size(), 2);
    EXPECT_TRUE(converted.err.endsWith("1 converted, 0 skipped, 0 failed\n"));
    EXPECT_TRUE(QFile::exists(work(QStringLiteral("flagged.costyle"))));
}

INSTANTIATE_TEST_SUITE_P(
    flags, answer_option_test,
    ::testing::Values(answer_case{"--white-balance", white_balance(), "White balance modified by preset"},
                      answer_case{"--unsupported", dehaze(), "Unsupported parameters in preset"},
                      answer_case{"--unsupported", lut(), "Unsupported parameters in preset"},
                      answer_case{"--calibration", calibration(), "Camera calibration modified by preset"}));

TEST_F(stylewright_cli_test, warning_line_is_the_question_text_without_markup)
{
    xmp(QStringLiteral("haze.xmp"), QStringLiteral("Haze"), merged({dehaze(), lut()}));
    const cli_result result = run({QStringLiteral("haze.xmp")});
    EXPECT_EQ(result.error_lines().value(0),
              QStringLiteral("Warning: haze.xmp: Unsupported parameters in preset: Your selected preset Haze contains "
                             "the following parameters, which can't be mapped in Capture One: - LUT - Dehaze These "
                             "parameters will be ignored."));
}

TEST_F(stylewright_cli_test, failures_get_one_line_each_and_exit_1)
{
    xmp(QStringLiteral("good.xmp"), QStringLiteral("Good"), plain());
    write_file(QDir(work_.path()), QStringLiteral("notes.txt"), "not a preset");
    write_file(QDir(work_.path()), QStringLiteral("broken.lrtemplate"), "s = {\n title = \"x\"\n value = 1,\n}\n");

    const cli_result result = run({QStringLiteral("notes.txt"), QStringLiteral("good.xmp"),
                                   QStringLiteral("broken.lrtemplate"), QStringLiteral("gone.xmp")});

    EXPECT_EQ(result.exit_code, 1);
    const QStringList lines = result.error_lines();
    EXPECT_TRUE(lines.contains(QStringLiteral("Error: gone.xmp: No such file or folder."))) << result.err.constData();
    EXPECT_TRUE(lines.contains(QStringLiteral("Error: notes.txt: Unsupported preset format: Your preset notes.txt is "
                                              "in a format Stylewright can't convert.")));
    EXPECT_TRUE(lines.contains(QStringLiteral(
        "Error: broken.lrtemplate: Can't read preset: Your preset broken.lrtemplate can't be processed by "
        "Stylewright. Please contact the Quillmark support and send them a screenshot of this message and the preset "
        "file stated above to support@quillmark.example Error: Unexpected token type found. Expected "
        "token_type::comma, got token_type::name")));
    EXPECT_EQ(lines.last(), QStringLiteral("1 converted, 0 skipped, 3 failed"));
    EXPECT_TRUE(QFile::exists(work(QStringLiteral("good.costyle"))));
}

TEST_F(stylewright_cli_test, quiet_keeps_only_errors)
{
    xmp(QStringLiteral("wb.xmp"), QStringLiteral("WB"), white_balance());
    write_file(QDir(work_.path()), QStringLiteral("notes.txt"), "x");
    const cli_result result = run({QStringLiteral("-q"), QStringLiteral("wb.xmp"), QStringLiteral("notes.txt")});
    EXPECT_EQ(result.exit_code, 1);
    const QStringList lines = result.error_lines();
    ASSERT_EQ(lines.size(), 1) << result.err.constData();
    EXPECT_TRUE(lines[0].startsWith(QStringLiteral("Error: notes.txt: Unsupported preset format")));
}

TEST_F(stylewright_cli_test, verbose_adds_debug_lines)
{
    xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), plain());
    const cli_result quiet_enough = run({QStringLiteral("a.xmp")});
    const cli_result verbose = run({QStringLiteral("-v"), QStringLiteral("a.xmp")});
    EXPECT_FALSE(quiet_enough.err.contains("Debug: "));
    EXPECT_TRUE(verbose.err.contains("Debug: ")) << verbose.err.constData();
    EXPECT_TRUE(verbose.out.isEmpty());
}

TEST_F(stylewright_cli_test, folder_is_searched_recursively_in_sorted_order)
{
    xmp(QStringLiteral("presets/sub/B.XMP"), QStringLiteral("B"), plain());
    xmp(QStringLiteral("presets/a.Xmp"), QStringLiteral("A"), plain());
    write_file(QDir(work(QStringLiteral("presets"))), QStringLiteral("c.LRTEMPLATE"),
               lrtemplate_text(QStringLiteral("C"), plain()));
    write_file(QDir(work(QStringLiteral("presets"))), QStringLiteral("notes.txt"), "x");
    xmp(QStringLiteral("presets/._a.xmp"), QStringLiteral("junk"), plain());
    xmp(QStringLiteral("presets/.cache/d.xmp"), QStringLiteral("junk"), plain());

    const cli_result result = run({QStringLiteral("--inspect"), QStringLiteral("presets")});

    EXPECT_EQ(result.exit_code, 0) << result.err.constData();
    QStringList files;
    for (const QJsonValue& preset : QJsonDocument::fromJson(result.out).array())
        files.append(preset.toObject().value(QStringLiteral("file")).toString());
    EXPECT_EQ(files, (QStringList{QStringLiteral("presets/a.Xmp"), QStringLiteral("presets/c.LRTEMPLATE"),
                                  QStringLiteral("presets/sub/B.XMP")}));
}

TEST_F(stylewright_cli_test, empty_folder_warns_and_succeeds)
{
    QDir(work_.path()).mkdir(QStringLiteral("empty"));
    const cli_result result = run({QStringLiteral("empty")});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.error_lines(), (QStringList{QStringLiteral("Warning: empty: No preset found in this folder."),
                                                 QStringLiteral("0 converted, 0 skipped, 0 failed")}));
}

// Runs the converter on a pseudo terminal (through script) in the work folder
// and returns what the terminal showed.
QByteArray run_on_terminal(const QString& folder, const QString& arguments)
{
    const QString script = QStandardPaths::findExecutable(QStringLiteral("script"));
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(script, {QStringLiteral("-qec"),
                           QStringLiteral("'%1' %2").arg(QStringLiteral(STYLEWRIGHT_CLI_PATH), arguments),
                           QStringLiteral("/dev/null")});
    return process.waitForFinished(120000) ? process.readAllStandardOutput() : QByteArray();
}

TEST_F(stylewright_cli_test, progress_line_on_a_terminal_for_large_batches_only)
{
    if (QStandardPaths::findExecutable(QStringLiteral("script")).isEmpty())
        GTEST_SKIP() << "script (util-linux) not installed";
    for (int i = 0; i < 40; ++i)
        xmp(QStringLiteral("many/p%1.xmp").arg(i, 2, 10, QLatin1Char('0')), QStringLiteral("P"), plain());
    for (int i = 0; i < 3; ++i)
        xmp(QStringLiteral("few/p%1.xmp").arg(i), QStringLiteral("P"), plain());

    const QByteArray many = run_on_terminal(work_.path(), QStringLiteral("-o out many"));
    EXPECT_TRUE(many.contains("\r\033[K[1/40] p00.xmp")) << many.constData();
    EXPECT_TRUE(many.contains("\r\033[K[40/40] p39.xmp"));
    // The progress line is cleared before the summary.
    EXPECT_TRUE(many.contains("p39.xmp\r\033[K40 converted, 0 skipped, 0 failed"));

    const QByteArray few = run_on_terminal(work_.path(), QStringLiteral("-o out few"));
    EXPECT_FALSE(few.contains("[1/3]"));
    EXPECT_TRUE(few.contains("3 converted, 0 skipped, 0 failed"));

    const QByteArray quiet = run_on_terminal(work_.path(), QStringLiteral("-q -o out many"));
    EXPECT_FALSE(quiet.contains("[1/40]"));
}

// ---- inspect ---------------------------------------------------------------

TEST_F(stylewright_cli_test, inspect_prints_the_preset_as_json)
{
    QMap<QString, QString> settings = merged({white_balance(), dehaze()});
    settings.insert(QStringLiteral("Texture"), QStringLiteral("25"));
    const QByteArray text = xmp_text(QStringLiteral("Warm"), settings)
                                .replace("</crs:Name>", "</crs:Name>\n   <crs:ToneCurvePV2012><rdf:Seq>"
                                                        "<rdf:li>0, 0</rdf:li><rdf:li>255, 240</rdf:li>"
                                                        "</rdf:Seq></crs:ToneCurvePV2012>");
    write_file(QDir(work_.path()), QStringLiteral("warm.xmp"), text);
    write_file(QDir(work_.path()), QStringLiteral("notes.txt"), "x");

    const cli_result result = run({QStringLiteral("--inspect"), QStringLiteral("warm.xmp"), QStringLiteral("notes.txt"),
                                   QStringLiteral("gone.xmp")});

    EXPECT_EQ(result.exit_code, 1);
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(result.out, &error);
    ASSERT_EQ(error.error, QJsonParseError::NoError) << result.out.constData();
    const QJsonArray presets = document.array();
    ASSERT_EQ(presets.size(), 3);

    const QJsonObject warm = presets[0].toObject();
    EXPECT_EQ(warm.keys(), (QStringList{QStringLiteral("curves"), QStringLiteral("description"), QStringLiteral("file"),
                                        QStringLiteral("flags"), QStringLiteral("name"),
                                        QStringLiteral("not_carried_over"), QStringLiteral("settings")}));
    EXPECT_EQ(warm[QStringLiteral("file")].toString(), QStringLiteral("warm.xmp"));
    EXPECT_EQ(warm[QStringLiteral("name")].toString(), QStringLiteral("Warm"));
    EXPECT_EQ(warm[QStringLiteral("settings")][QStringLiteral("Temperature")].toString(), QStringLiteral("5000"));
    EXPECT_EQ(warm[QStringLiteral("settings")][QStringLiteral("Texture")].toString(), QStringLiteral("25"));
    const QJsonObject curves = warm[QStringLiteral("curves")].toObject();
    EXPECT_EQ(curves.keys(), (QStringList{QStringLiteral("tone_curve"), QStringLiteral("tone_curve_blue"),
                                          QStringLiteral("tone_curve_green"), QStringLiteral("tone_curve_red")}));
    EXPECT_EQ(QJsonDocument(curves[QStringLiteral("tone_curve")].toArray()).toJson(QJsonDocument::Compact),
              QByteArray("[[0,0],[255,240]]"));
    EXPECT_TRUE(curves[QStringLiteral("tone_curve_red")].toArray().isEmpty());
    const QJsonObject flags = warm[QStringLiteral("flags")].toObject();
    EXPECT_TRUE(flags[QStringLiteral("white_balance")].toBool());
    EXPECT_TRUE(flags[QStringLiteral("dehaze")].toBool());
    EXPECT_FALSE(flags[QStringLiteral("lut")].toBool());
    EXPECT_FALSE(flags[QStringLiteral("camera_calibration")].toBool());
    EXPECT_TRUE(warm[QStringLiteral("not_carried_over")].toArray().contains(QStringLiteral("Texture")));
    EXPECT_FALSE(warm[QStringLiteral("not_carried_over")].toArray().contains(QStringLiteral("Temperature")));

    const QJsonObject notes = presets[1].toObject();
    EXPECT_EQ(notes.keys(), (QStringList{QStringLiteral("error"), QStringLiteral("file")}));
    EXPECT_EQ(
        notes[QStringLiteral("error")].toString(),
        QStringLiteral("Unsupported preset format: Your preset notes.txt is in a format Stylewright can't convert."));
    EXPECT_EQ(presets[2][QStringLiteral("error")].toString(), QStringLiteral("No such file or folder."));

    // Nothing written, no summary, no questions.
    EXPECT_EQ(files_in(work_.path()), (QStringList{QStringLiteral("notes.txt"), QStringLiteral("warm.xmp")}));
    EXPECT_FALSE(result.err.contains("converted"));
    EXPECT_FALSE(result.err.contains("Warning:"));
}

// ---- packs -----------------------------------------------------------------

TEST_F(stylewright_cli_test, pack_with_category_lists_entries_in_name_order_with_utf8_flag)
{
    xmp(QStringLiteral("Zürich.xmp"), QStringLiteral("Z"), plain());
    xmp(QStringLiteral("Café.xmp"), QStringLiteral("C"), plain());
    xmp(QStringLiteral("b.xmp"), QStringLiteral("B"), plain());

    const cli_result result =
        run({QStringLiteral("-p"), QStringLiteral("Sommer Töne.costylepack"), QStringLiteral("--category"),
             QStringLiteral("Zürich.xmp"), QStringLiteral("b.xmp"), QStringLiteral("Café.xmp")});

    EXPECT_EQ(result.exit_code, 0) << result.err.constData();
    EXPECT_TRUE(result.err.endsWith("3 converted, 0 skipped, 0 failed\n"));
    const QString pack = work(QStringLiteral("Sommer Töne.costylepack"));
    EXPECT_EQ(zip_reading::names(pack),
              (QStringList{QStringLiteral("Sommer Töne/Café.costyle"), QStringLiteral("Sommer Töne/Zürich.costyle"),
                           QStringLiteral("Sommer Töne/b.costyle")}));
    for (const quint16 flag : zip_reading::central_flags(read_file(pack)))
        EXPECT_TRUE(flag & zip_reading::utf8_name_flag);

    const QString unzip = QStandardPaths::findExecutable(QStringLiteral("unzip"));
    const QString zipinfo = QStandardPaths::findExecutable(QStringLiteral("zipinfo"));
    if (unzip.isEmpty() || zipinfo.isEmpty())
        GTEST_SKIP() << "unzip/zipinfo not installed";
    QProcess listing;
    listing.start(zipinfo, {QStringLiteral("-1"), pack});
    ASSERT_TRUE(listing.waitForFinished());
    EXPECT_EQ(QString::fromUtf8(listing.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts),
              zip_reading::names(pack));
    QProcess test;
    test.start(unzip, {QStringLiteral("-t"), pack});
    ASSERT_TRUE(test.waitForFinished());
    EXPECT_EQ(test.exitCode(), 0) << test.readAllStandardOutput().constData();
}

TEST_F(stylewright_cli_test, pack_without_styles_is_not_written)
{
    xmp(QStringLiteral("wb.xmp"), QStringLiteral("WB"), white_balance());
    const cli_result result =
        run({QStringLiteral("-p"), QStringLiteral("x.costylepack"), QStringLiteral("--white-balance"),
             QStringLiteral("skip"), QStringLiteral("wb.xmp")});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_TRUE(result.err.contains("Warning: No style was converted; x.costylepack was not written.\n"));
    EXPECT_FALSE(QFile::exists(work(QStringLiteral("x.costylepack"))));
}

TEST_F(stylewright_cli_test, pack_in_a_missing_folder_fails)
{
    xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), plain());
    const cli_result result =
        run({QStringLiteral("-p"), QStringLiteral("nowhere/x.costylepack"), QStringLiteral("a.xmp")});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_EQ(result.error_lines(),
              (QStringList{QStringLiteral("Warning: libzip zip_close error -1: Unknown error -1"),
                           QStringLiteral("Error: nowhere/x.costylepack: The style pack could not be written."),
                           QStringLiteral("0 converted, 0 skipped, 1 failed")}));
}

TEST_F(stylewright_cli_test, pack_that_cannot_be_opened_fails)
{
    xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), plain());
    const cli_result result =
        run({QStringLiteral("-p"), QStringLiteral("a.xmp/x.costylepack"), QStringLiteral("a.xmp")});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_EQ(result.error_lines().value(0),
              QStringLiteral("Warning: libzip zip_open error 5: Read error: Not a directory"));
}

// Runs the converter under a file-size limit of 512 bytes, below a style's and a
// pack's size, so that writing fails whoever runs the test.
int run_with_tiny_file_limit(const QString& folder, const QStringList& arguments)
{
    QProcess shell;
    shell.setWorkingDirectory(folder);
    shell.start(QStringLiteral("/bin/sh"),
                QStringList{QStringLiteral("-c"), QStringLiteral("ulimit -f 1; trap '' XFSZ; exec \"$0\" \"$@\""),
                            QStringLiteral(STYLEWRIGHT_CLI_PATH)} +
                    arguments);
    return shell.waitForFinished() ? shell.exitCode() : -1;
}

TEST_F(stylewright_cli_test, existing_style_survives_a_failed_write)
{
    xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), colourful());
    write_file(QDir(work_.path()), QStringLiteral("a.costyle"), "previous");

    EXPECT_EQ(run_with_tiny_file_limit(work_.path(), {QStringLiteral("a.xmp")}), 1);
    EXPECT_EQ(read_file(work(QStringLiteral("a.costyle"))), QByteArray("previous"));
    EXPECT_EQ(files_in(work_.path()), (QStringList{QStringLiteral("a.costyle"), QStringLiteral("a.xmp")}));
}

TEST_F(stylewright_cli_test, existing_pack_survives_a_failed_write)
{
    QStringList presets;
    for (int i = 0; i < 12; ++i)
        presets.append(xmp(QStringLiteral("p%1.xmp").arg(i), QStringLiteral("P%1").arg(i), colourful()));
    write_file(QDir(work_.path()), QStringLiteral("x.costylepack"), "previous");

    EXPECT_EQ(run_with_tiny_file_limit(work_.path(),
                                       QStringList{QStringLiteral("-p"), QStringLiteral("x.costylepack")} + presets),
              1);
    EXPECT_EQ(read_file(work(QStringLiteral("x.costylepack"))), QByteArray("previous"));
    EXPECT_EQ(QDir(work_.path())
                  .entryList({QStringLiteral("*.costylepack*"), QStringLiteral(".*")}, QDir::Files | QDir::Hidden),
              QStringList{QStringLiteral("x.costylepack")});
}

TEST_F(stylewright_cli_test, stores_no_settings)
{
    xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), plain());
    run({QStringLiteral("a.xmp")});
    run({QStringLiteral("-p"), QStringLiteral("p.costylepack"), QStringLiteral("a.xmp")});
    run({QStringLiteral("--inspect"), QStringLiteral("a.xmp")});
    QDirIterator it(home_.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    QStringList found;
    while (it.hasNext())
        found.append(it.next());
    EXPECT_TRUE(found.isEmpty()) << qPrintable(found.join(QLatin1Char(' ')));
}

// ---- the initial corpus ----------------------------------------------------

// Corpus files the template reader rejects: three that are no develop presets
// (a macOS resource-fork companion, a print and a web template) and five develop
// presets carrying Lua comments ("-- author"), which the template syntax the
// reader accepts does not include.
const QStringList corpus_failures = {
    QStringLiteral("d5-appledouble-autumn-junk.lrtemplate"),
    QStringLiteral("d5-print-645-diptych-not-develop.lrtemplate"),
    QStringLiteral("fm-col-cross-process-alanmiller-empty-tables.lrtemplate"),
    QStringLiteral("fm-col-deep-negative-handedited.lrtemplate"),
    QStringLiteral("fm-col-negative-point-curve-comment.lrtemplate"),
    QStringLiteral("fm-cp-matrix-trailing-comment.lrtemplate"),
    QStringLiteral("fm-midnight-html-web-template-not-develop.lrtemplate"),
    QStringLiteral("fm-pc-m-curve-escaped-quotes.lrtemplate"),
};

TEST_F(stylewright_cli_test, every_corpus_preset_converts_to_well_formed_xml)
{
    const QString corpus = test_support::corpus_dir();
    if (corpus.isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    const QString out = work(QStringLiteral("out"));

    const cli_result result = run({QStringLiteral("-o"), out, corpus});

    QStringList failed;
    for (const QString& line : result.error_lines()) {
        if (line.startsWith(QStringLiteral("Error: "))) {
            failed.append(QFileInfo(line.mid(7).section(QStringLiteral(": "), 0, 0)).fileName());
            EXPECT_TRUE(line.contains(QStringLiteral(": Can't read preset: "))) << qPrintable(line);
        }
    }
    failed.sort();
    EXPECT_EQ(failed, corpus_failures) << result.err.constData();
    EXPECT_EQ(result.exit_code, corpus_failures.isEmpty() ? 0 : 1);

    // Presets of the same base name share one style file, the later one winning.
    QSet<QString> style_names;
    int presets = 0;
    QDirIterator it(corpus, {QStringLiteral("*.xmp"), QStringLiteral("*.lrtemplate")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QFileInfo preset(it.next());
        ++presets;
        if (!corpus_failures.contains(preset.fileName()))
            style_names.insert(preset.completeBaseName() + QStringLiteral(".costyle"));
    }
    const QStringList styles = files_in(out);
    EXPECT_EQ(QSet<QString>(styles.begin(), styles.end()), style_names);
    EXPECT_TRUE(result.err.endsWith(QStringLiteral("%1 converted, 0 skipped, %2 failed\n")
                                        .arg(presets - corpus_failures.size())
                                        .arg(corpus_failures.size())
                                        .toUtf8()))
        << result.err.right(200).constData();

    const QString xmllint = QStandardPaths::findExecutable(QStringLiteral("xmllint"));
    if (xmllint.isEmpty())
        GTEST_SKIP() << "xmllint not installed";
    QStringList paths;
    for (const QString& style : styles)
        paths.append(QDir(out).filePath(style));
    QProcess lint;
    lint.start(xmllint, QStringList{QStringLiteral("--noout")} + paths);
    ASSERT_TRUE(lint.waitForFinished(120000));
    EXPECT_EQ(lint.exitCode(), 0) << lint.readAllStandardError().constData();
}

TEST_F(stylewright_cli_test, corpus_files_that_are_no_presets_are_reported)
{
    const QString corpus = test_support::corpus_dir();
    if (corpus.isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    const QString agtemplate =
        QDir(corpus).filePath(QStringLiteral("lrtemplate/fm-bw-old-1-lightroom-beta.agtemplate"));
    const cli_result result = run({QStringLiteral("-o"), work(QStringLiteral("out")), agtemplate,
                                   QDir(corpus).filePath(QStringLiteral("MANIFEST.tsv"))});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_EQ(result.err.count("Unsupported preset format"), 2);
    EXPECT_TRUE(result.err.endsWith("0 converted, 0 skipped, 2 failed\n"));
}

} // namespace
