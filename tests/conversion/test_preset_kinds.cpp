// SPDX-License-Identifier: GPL-3.0-or-later
// Presets in the forms they are sold in: a DNG preset gives its XMP's style
// from a file, a folder and an archive; a profile writes no style; the same
// look reached twice under different names is written once.
#include "conversion/conversion_run.h"
#include "conversion/preset_source.h"
#include "conversion/preset_outcome.h"
#include "support/conversion_fixtures.h"
#include "support/dng_writer.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <zip.h>

using namespace fixtures;

namespace {

struct recording_shell : conversion_shell {
    question_answer ask(const conversion_question&) override { return question_answer::convert; }
    void report_failure(const conversion_failure&) override {}
    void report_outcome(const preset_outcome& outcome) override
    {
        lines << QDir(root).relativeFilePath(outcome.file) + QStringLiteral(": ") +
                     conversion_messages::outcome_line(outcome).replace(root + QLatin1Char('/'), QString());
    }
    QString output_folder() override { return out; }

    QString root; // paths are shown below it
    QString out;
    QStringList lines;
};

QString make_zip(const QString& path, const QMap<QString, QByteArray>& entries)
{
    int code = 0;
    zip_t* archive = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    for (auto it = entries.cbegin(); it != entries.cend(); ++it) {
        zip_source_t* source = zip_source_buffer(archive, it.value().constData(), zip_uint64_t(it.value().size()), 0);
        zip_file_add(archive, it.key().toUtf8().constData(), source, ZIP_FL_ENC_UTF_8);
    }
    EXPECT_EQ(zip_close(archive), 0);
    return path;
}

QByteArray without_uuid(const QByteArray& style)
{
    return QString::fromUtf8(style).remove(QRegularExpression(QStringLiteral("<E K=\"UUID\"[^>]*>"))).toUtf8();
}

const QByteArray profile_xmp =
    "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">"
    "<rdf:Description xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\" crs:PresetType=\"Look\" "
    "crs:Temperature=\"5000\" crs:ConvertToGrayscale=\"True\" crs:LookTable=\"E1095149FDB39D7A057BAB208837E2E1\">"
    "<crs:Name><rdf:Alt><rdf:li xml:lang=\"x-default\">Mono Film</rdf:li></rdf:Alt></crs:Name>"
    "</rdf:Description></rdf:RDF></x:xmpmeta>";

} // namespace

TEST(preset_kinds, a_dng_gives_its_xmp_s_style_from_a_file_a_folder_and_an_archive)
{
    QTemporaryDir in;
    const QByteArray warm = preset_text("Warm.xmp", "Warm", flagged("colourful"));
    QByteArray nameless = preset_text("x.xmp", "", flagged());
    nameless.replace("<crs:Name><rdf:Alt><rdf:li xml:lang=\"x-default\"></rdf:li></rdf:Alt></crs:Name>\n", "");
    const QString warm_xmp = write_file(in.path(), "xmp/Warm.xmp", warm);
    write_file(in.path(), "xmp/Plain.xmp", nameless);
    write_file(in.path(), "file/Warm.DNG", dng::make(warm, {dng::byte_order::big, dng::packet_type::undefined, true, false}));
    write_file(in.path(), "folder/deep/Warm.dng", dng::make(warm));
    write_file(in.path(), "folder/Plain.dng", dng::make(nameless, {dng::byte_order::little, dng::packet_type::byte, false, false}));
    make_zip(in.filePath("Pack.zip"), {{"Looks/Warm.dng", dng::make(warm)}, {"Plain.dng", dng::make(nameless)}});

    const struct {
        const char* given;
        QStringList styles;
    } runs[] = {{"xmp", {"Plain.costyle", "Warm.costyle"}},
                {"file/Warm.DNG", {"Warm.costyle"}},
                {"folder", {"Plain.costyle", "deep/Warm.costyle"}},
                {"Pack.zip", {"Looks/Warm.costyle", "Plain.costyle"}}};
    QMap<QString, QByteArray> styles_of_xmp;
    for (const auto& run : runs) {
        SCOPED_TRACE(run.given);
        QTemporaryDir out;
        recording_shell shell;
        shell.out = out.path();
        conversion_options options;
        options.colour_space = QStringLiteral("srgb");
        const gathered_presets gathered = gather_presets({in.filePath(QString::fromLatin1(run.given))});
        const conversion_result result = run_conversion(gathered.presets, options, shell);
        EXPECT_EQ(result.converted, run.styles.size());
        QStringList written;
        for (QDirIterator it(out.path(), QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
            written << QDir(out.path()).relativeFilePath(it.next());
        written.sort();
        EXPECT_EQ(written, run.styles);
        for (const QString& style : written) {
            const QString name = QFileInfo(style).fileName();
            const QByteArray bytes = without_uuid(read_file(out.filePath(style)));
            // The XMP without a name gives an empty one; its DNG the file's name.
            if (QLatin1String(run.given) == QLatin1String("xmp"))
                styles_of_xmp.insert(name, QByteArray(bytes).replace("K=\"Name\" V=\"\"", "K=\"Name\" V=\"Plain\""));
            else
                EXPECT_EQ(bytes, styles_of_xmp.value(name)) << style.toStdString();
        }
    }
    EXPECT_EQ(styles_of_xmp.size(), 2);
}

TEST(preset_kinds, profiles_are_skipped_and_one_look_is_written_once)
{
    const QByteArray soft = preset_text("Soft.xmp", "Soft", flagged("colourful"));
    const struct {
        const char* rule;
        QMap<QString, QByteArray> files; // below the one folder given
        bool pack;
        QStringList lines;
        QStringList written;
    } runs[] = {
        {"a profile writes no style and asks nothing",
         {{"Profiles/Mono.xmp", profile_xmp}, {"Profiles/Mono DNG.dng", dng::make(profile_xmp)}},
         false,
         {"in/Profiles/Mono DNG.dng: skipped: a Lightroom profile, not a develop preset; Capture One cannot use "
          "Lightroom profiles",
          "in/Profiles/Mono.xmp: skipped: a Lightroom profile, not a develop preset; Capture One cannot use "
          "Lightroom profiles"},
         {}},
        {"the same preset in two folders: one style",
         {{"Pack A/Soft.xmp", soft}, {"Pack B/Soft.xmp", soft}, {"Pack B/Soft copy.dng", dng::make(soft)}},
         false,
         {"in/Pack A/Soft.xmp: converted into out/Pack A/Soft.costyle",
          "in/Pack B/Soft copy.dng: skipped: gives the same style as in/Pack A/Soft.xmp; written once",
          "in/Pack B/Soft.xmp: skipped: gives the same style as in/Pack A/Soft.xmp; written once"},
         {"Pack A/Soft.costyle"}},
        {"the same in a pack",
         {{"Pack A/Soft.xmp", soft}, {"Pack B/Soft.xmp", soft}},
         true,
         {"in/Pack A/Soft.xmp: converted into the pack as Soft.costyle",
          "in/Pack B/Soft.xmp: skipped: gives the same style as in/Pack A/Soft.xmp; written once"},
         {"Soft.costyle"}},
        {"one folder, one base name: the later replaces the earlier",
         {{"Soft.xmp", soft}, {"Soft.lrtemplate", preset_text("Soft.lrtemplate", "Soft", flagged("colourful"))}},
         false,
         {"in/Soft.lrtemplate: converted into out/Soft.costyle", "in/Soft.xmp: converted into out/Soft.costyle"},
         {"Soft.costyle"}},
        {"styles that differ in their name stay two",
         {{"A/Soft.xmp", soft}, {"B/Soft.xmp", preset_text("Soft.xmp", "Soft B", flagged("colourful"))}},
         true,
         {"in/A/Soft.xmp: converted into the pack as Soft.costyle",
          "in/B/Soft.xmp: converted into the pack as Soft (B).costyle"},
         {"Soft (B).costyle", "Soft.costyle"}},
    };
    for (const auto& run : runs) {
        SCOPED_TRACE(run.rule);
        QTemporaryDir root;
        for (auto it = run.files.cbegin(); it != run.files.cend(); ++it)
            write_file(root.filePath("in"), it.key(), it.value());
        recording_shell shell;
        shell.root = root.path();
        shell.out = root.filePath("out");
        QDir().mkpath(shell.out);
        conversion_options options;
        options.format = run.pack ? output_format::stylepack : output_format::separate;
        const conversion_result result =
            run_conversion(gather_presets({root.filePath("in")}).presets, options, shell);
        EXPECT_EQ(shell.lines, run.lines);
        QStringList written = run.pack ? result.pack_entries.keys() : QStringList();
        for (QDirIterator it(shell.out, QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
            written << QDir(shell.out).relativeFilePath(it.next());
        written.sort();
        EXPECT_EQ(written, run.written);
        EXPECT_EQ(result.converted + result.skipped + result.failed, run.files.size());
    }
}
