// SPDX-License-Identifier: GPL-3.0-or-later
// What became of every preset's style, in one table of runs: profiles,
// the same look from two folders, names taken twice, files from before the
// run, archives in folders and in archives, packs not saved.
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
    void report_lost(const preset_outcome& earlier) override { report_outcome(earlier); }
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


const QByteArray profile_xmp =
    "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">"
    "<rdf:Description xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\" crs:PresetType=\"Look\" "
    "crs:Temperature=\"5000\" crs:ConvertToGrayscale=\"True\" crs:LookTable=\"E1095149FDB39D7A057BAB208837E2E1\">"
    "<crs:Name><rdf:Alt><rdf:li xml:lang=\"x-default\">Mono Film</rdf:li></rdf:Alt></crs:Name>"
    "</rdf:Description></rdf:RDF></x:xmpmeta>";

} // namespace

TEST(preset_kinds, every_preset_s_style_is_accounted_for)
{
    const QByteArray soft = preset_text("Soft.xmp", "Soft", flagged("colourful"));
    const QByteArray soft_b = preset_text("Soft.lrtemplate", "Soft B", flagged("wb"));
    const QByteArray warm = preset_text("Warm.xmp", "Warm", flagged());
    const struct {
        const char* rule;
        QMap<QString, QByteArray> files; // below the root
        QStringList given;               // what the run is handed, below the root
        bool picked;                     // chosen in the open dialog rather than named or dropped
        bool pack;
        QString not_saved;               // the pack was not saved, and why
        QStringList lines;
        QStringList written;
    } runs[] = {
        {"a profile writes no style and asks nothing",
         {{"in/Profiles/Mono.xmp", profile_xmp}, {"in/Profiles/Mono DNG.dng", dng::make(profile_xmp)}},
         {"in"}, false, false, {},
         {"in/Profiles/Mono DNG.dng: skipped: a Lightroom profile, not a develop preset; Capture One cannot use "
          "Lightroom profiles",
          "in/Profiles/Mono.xmp: skipped: a Lightroom profile, not a develop preset; Capture One cannot use "
          "Lightroom profiles"},
         {}},
        {"the same preset in two folders: one style",
         {{"in/Pack A/Soft.xmp", soft}, {"in/Pack B/Soft.xmp", soft}, {"in/Pack B/Soft copy.dng", dng::make(soft)}},
         {"in"}, false, false, {},
         {"in/Pack A/Soft.xmp: converted into out/Pack A/Soft.costyle",
          "in/Pack B/Soft copy.dng: skipped: gives the same style as in/Pack A/Soft.xmp; written once",
          "in/Pack B/Soft.xmp: skipped: gives the same style as in/Pack A/Soft.xmp; written once"},
         {"Pack A/Soft.costyle"}},
        {"the same in a pack", {{"in/Pack A/Soft.xmp", soft}, {"in/Pack B/Soft.xmp", soft}}, {"in"}, false, true, {},
         {"in/Pack A/Soft.xmp: converted into the pack as Soft.costyle",
          "in/Pack B/Soft.xmp: skipped: gives the same style as in/Pack A/Soft.xmp; written once"},
         {"Soft.costyle"}},
        {"one folder, one base name: the later replaces the earlier, and says so",
         {{"in/Soft.xmp", soft}, {"in/Soft.lrtemplate", soft_b}}, {"in"}, false, false, {},
         {"in/Soft.lrtemplate: converted into out/Soft.costyle",
          "in/Soft.lrtemplate: lost: replaced by the style of in/Soft.xmp (same file name)",
          "in/Soft.xmp: converted into out/Soft.costyle"},
         {"Soft.costyle"}},
        {"the same in a pack", {{"in/Soft.xmp", soft}, {"in/Soft.lrtemplate", soft_b}}, {"in"}, false, true, {},
         {"in/Soft.lrtemplate: converted into the pack as Soft.costyle",
          "in/Soft.lrtemplate: lost: replaced by the style of in/Soft.xmp (same file name)",
          "in/Soft.xmp: converted into the pack as Soft.costyle"},
         {"Soft.costyle"}},
        {"a look whose first style was replaced is written again",
         {{"in/A/Soft.lrtemplate", soft_b}, {"in/A/Soft.xmp", soft}, {"in/B/Other.lrtemplate", soft_b}}, {"in"}, false,
         false, {},
         {"in/A/Soft.lrtemplate: converted into out/A/Soft.costyle",
          "in/A/Soft.lrtemplate: lost: replaced by the style of in/A/Soft.xmp (same file name)",
          "in/A/Soft.xmp: converted into out/A/Soft.costyle", "in/B/Other.lrtemplate: converted into out/B/Other.costyle"},
         {"A/Soft.costyle", "B/Other.costyle"}},
        {"styles that differ in their name stay two",
         {{"in/A/Soft.xmp", soft}, {"in/B/Soft.xmp", preset_text("Soft.xmp", "Soft B", flagged("colourful"))}},
         {"in"}, false, true, {},
         {"in/A/Soft.xmp: converted into the pack as Soft.costyle",
          "in/B/Soft.xmp: converted into the pack as Soft (B).costyle"},
         {"Soft (B).costyle", "Soft.costyle"}},
        {"one name from two folders named as files: both kept",
         {{"in/A/Soft.xmp", soft}, {"in/B/Soft.lrtemplate", soft_b}}, {"in/A/Soft.xmp", "in/B/Soft.lrtemplate"},
         false, true, {},
         {"in/A/Soft.xmp: converted into the pack as Soft.costyle",
          "in/B/Soft.lrtemplate: converted into the pack as Soft (B).costyle"},
         {"Soft (B).costyle", "Soft.costyle"}},
        {"the same picked in the open dialog: the later replaces the earlier",
         {{"in/A/Soft.xmp", soft}, {"in/B/Soft.lrtemplate", soft_b}}, {"in/A/Soft.xmp", "in/B/Soft.lrtemplate"},
         true, false, {},
         {"in/A/Soft.xmp: converted into out/Soft.costyle",
          "in/A/Soft.xmp: lost: replaced by the style of in/B/Soft.lrtemplate (same file name)",
          "in/B/Soft.lrtemplate: converted into out/Soft.costyle"},
         {"Soft.costyle"}},
        {"a file from before the run is written over, and says so",
         {{"in/Soft.xmp", soft}, {"out/Soft.costyle", "mine"}}, {"in/Soft.xmp"}, false, false, {},
         {"in/Soft.xmp: converted into out/Soft.costyle, written over an earlier file"},
         {"Soft.costyle"}},
        {"a zip picked with files reads like a folder",
         {{"in/Soft.xmp", soft}, {"in/Pack.zip", zip_bytes({{"Soft.xmp", preset_text("Soft.xmp", "Soft B", flagged("wb"))}, {"Looks/Warm.xmp", warm}})}},
         {"in/Soft.xmp", "in/Pack.zip"}, true, false, {},
         {"in/Soft.xmp: converted into out/Soft.costyle",
          "in/Pack.zip/Looks/Warm.xmp: converted into out/Looks/Warm.costyle",
          "in/Pack.zip/Soft.xmp: converted into out/Soft (Pack).costyle"},
         {"Looks/Warm.costyle", "Soft (Pack).costyle", "Soft.costyle"}},
        {"a zip in a folder, and a zip in a zip in it",
         {{"in/Packs/Film.zip", zip_bytes({{"Warm/a.xmp", warm}})},
          {"in/Outer.zip", zip_bytes({{"x/Inner.zip", zip_bytes({{"Look/b.xmp", soft}})}})}},
         {"in"}, false, false, {},
         {"in/Outer.zip/x/Inner.zip/Look/b.xmp: converted into out/Outer/x/Inner/Look/b.costyle",
          "in/Packs/Film.zip/Warm/a.xmp: converted into out/Packs/Film/Warm/a.costyle"},
         {"Outer/x/Inner/Look/b.costyle", "Packs/Film/Warm/a.costyle"}},
        {"a pack cancelled: no style saved, each says so",
         {{"in/Soft.xmp", soft}, {"in/Warm.xmp", warm}}, {"in"}, false, true, conversion_messages::pack_cancelled(),
         {"in/Soft.xmp: converted into the pack as Soft.costyle",
          "in/Warm.xmp: converted into the pack as Warm.costyle",
          "in/Soft.xmp: not saved: the style pack was cancelled",
          "in/Warm.xmp: not saved: the style pack was cancelled"},
         {}},
        {"a pack that could not be written",
         {{"in/Soft.xmp", soft}}, {"in"}, false, true, "Permission denied",
         {"in/Soft.xmp: converted into the pack as Soft.costyle", "in/Soft.xmp: not saved: Permission denied"},
         {}},
    };
    for (const auto& run : runs) {
        SCOPED_TRACE(run.rule);
        QTemporaryDir root;
        for (auto it = run.files.cbegin(); it != run.files.cend(); ++it)
            write_file(root.path(), it.key(), it.value());
        recording_shell shell;
        shell.root = root.path();
        shell.out = root.filePath("out");
        QDir().mkpath(shell.out);
        QStringList given;
        for (const QString& item : run.given)
            given << root.filePath(item);
        const gathered_presets gathered = run.picked ? gather_picked_presets(given) : gather_presets(given);
        conversion_options options;
        options.format = run.pack ? output_format::stylepack : output_format::separate;
        conversion_result result = run_conversion(gathered.presets, options, shell);
        QStringList written = run.pack ? result.pack_entries.keys() : QStringList();
        if (!run.not_saved.isEmpty()) {
            for (const preset_outcome& outcome : result.pack_not_saved(run.not_saved))
                shell.report_outcome(outcome);
            written.clear();
        }
        EXPECT_EQ(shell.lines, run.lines);
        for (QDirIterator it(shell.out, QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
            written << QDir(shell.out).relativeFilePath(it.next());
        written.sort();
        EXPECT_EQ(written, run.written);
        // The styles the counts call converted are the ones that exist.
        EXPECT_EQ(result.counts().converted, run.written.size());
        EXPECT_EQ(result.counts().converted + result.counts().lost + result.counts().not_saved + result.counts().skipped + result.counts().failed,
                  gathered.presets.size());
    }
}
