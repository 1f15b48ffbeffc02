// SPDX-License-Identifier: GPL-3.0-or-later
// The move from Lightroom to Capture One: where each system keeps the two
// programs' files, how a Lightroom group becomes a style group's folder, and
// --from-lightroom --to-capture-one over a made-up home folder, refusals
// included.
#include "conversion/group_folder.h"
#include "in_process.h"
#include "support/dng_writer.h"
#include "support/test_support.h"

#include <QDirIterator>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace fixtures;

namespace {

QByteArray grouped_xmp(const QString& name, const QString& group, const QString& extra = QString())
{
    QByteArray xmp = preset_text(QStringLiteral("x.xmp"), name, flagged(QStringLiteral("colourful")));
    if (!group.isEmpty())
        xmp.replace("</rdf:Description>", QStringLiteral("<crs:Group><rdf:Alt><rdf:li xml:lang=\"x-default\">%1"
                                                         "</rdf:li></rdf:Alt></crs:Group>\n</rdf:Description>")
                                              .arg(group.toHtmlEscaped())
                                              .toUtf8());
    if (!extra.isEmpty())
        xmp.replace("<rdf:Description ", ("<rdf:Description " + extra + QLatin1Char(' ')).toUtf8());
    return xmp;
}

QStringList files_below(const QString& folder)
{
    QStringList files;
    for (QDirIterator it(folder, QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
        files << QDir(folder).relativeFilePath(it.next());
    files.sort();
    return files;
}

QStringList lines_with(const QByteArray& said, const QString& part)
{
    QStringList found;
    for (const QString& line : QString::fromUtf8(said).split(QLatin1Char('\n'))) {
        if (line.contains(part))
            found << line;
    }
    return found;
}

} // namespace

TEST(the_move, each_system_keeps_the_programs_files_in_its_own_places)
{
    const user_folders user{QStringLiteral("/Users/jo"), QStringLiteral("C:/Users/jo/AppData/Roaming"),
                            QStringLiteral("C:/Users/jo/AppData/Local")};
    const struct {
        folder_layout layout;
        QStringList lightroom;
        QString capture_one;
    } layouts[] = {
        {folder_layout::macos,
         {"/Users/jo/Library/Application Support/Adobe/CameraRaw/Settings",
          "/Users/jo/Library/Application Support/Adobe/Lightroom/Develop Presets"},
         "/Users/jo/Library/Application Support/Capture One/Styles"},
        {folder_layout::windows,
         {"C:/Users/jo/AppData/Roaming/Adobe/CameraRaw/Settings",
          "C:/Users/jo/AppData/Roaming/Adobe/Lightroom/Develop Presets"},
         "C:/Users/jo/AppData/Local/CaptureOne/Styles50"},
        {folder_layout::none, {}, {}},
    };
    for (const auto& expected : layouts) {
        const editor_folders folders = editor_folders_for(expected.layout, user);
        EXPECT_EQ(folders.lightroom_presets, expected.lightroom);
        EXPECT_EQ(folders.capture_one_styles, expected.capture_one);
        EXPECT_TRUE(folders.existing_lightroom_presets().isEmpty());
        EXPECT_FALSE(folders.capture_one_styles_exist());
    }
}

TEST(the_move, a_group_becomes_a_folder_valid_everywhere_and_back)
{
    const struct {
        const char* group;
        const char* folder;
    } names[] = {
        {"Film Looks", "Film Looks"},
        {"Portraits – Sommer 日本", "Portraits – Sommer 日本"},
        {"B/W", "B%2FW"},
        {"a<b>c:d\"e\\f|g?h*i", "a%3Cb%3Ec%3Ad%22e%5Cf%7Cg%3Fh%2Ai"},
        {"100% Warm", "100%25 Warm"},
        {"Tab\there", "Tab%09here"},
        {"Ends in a dot.", "Ends in a dot%2E"},
        {"Ends in spaces  ", "Ends in spaces%20%20"},
        {"...", "%2E%2E%2E"},
        {".", "%2E"},
        {"CON", "%43ON"},
        {"com1", "%63om1"},
        {"Lpt9.old", "%4Cpt9.old"},
        {"CONSOLE", "CONSOLE"},
        {".hidden", ".hidden"},
    };
    QStringList folders;
    for (const auto& name : names) {
        const QString group = QString::fromUtf8(name.group);
        const QString folder = folder_of_group(group);
        EXPECT_EQ(folder, QString::fromUtf8(name.folder)) << name.group;
        EXPECT_EQ(group_of_folder(folder), group) << name.group;
        folders << folder;
    }
    // Two groups never share a folder, even where one is another's escape.
    EXPECT_NE(folder_of_group(QStringLiteral("B%2FW")), folder_of_group(QStringLiteral("B/W")));
}

TEST(the_move, refuses_what_it_cannot_find_and_writes_nothing)
{
    QTemporaryDir home;
    const editor_folders mac = editor_folders_for(folder_layout::macos, {home.path(), QString(), QString()});
    const editor_folders none = editor_folders_for(folder_layout::none, {});
    const QString support = home.path() + QStringLiteral("/Library/Application Support");
    // As the converter prints paths: with the system's separators.
    const auto shown = [&support](const char* below) { return QDir::toNativeSeparators(support + QLatin1String(below)); };
    const struct {
        const char* rule;
        QStringList arguments;
        const editor_folders* folders;
        QStringList made; // folders made below the home first
        int exit_code;
        QString line;
    } runs[] = {
        {"no Lightroom here", {"--from-lightroom"}, &none, {}, 1,
         "Error: --from-lightroom: Lightroom's and Capture One's folders are looked for only on macOS and Windows, "
         "where the two programs run."},
        {"no Capture One here", {"--to-capture-one", "in.xmp"}, &none, {}, 1,
         "Error: --to-capture-one: Lightroom's and Capture One's folders are looked for only on macOS and Windows, "
         "where the two programs run."},
        {"neither Lightroom folder", {"--from-lightroom"}, &mac, {}, 1,
         "Error: --from-lightroom: none of Lightroom's preset folders exists (looked for " +
             shown("/Adobe/CameraRaw/Settings") + " and " + shown("/Adobe/Lightroom/Develop Presets") + ")."},
        {"no styles folder", {"--from-lightroom", "--to-capture-one"}, &mac, {"Adobe/CameraRaw/Settings"}, 1,
         "Error: --to-capture-one: Capture One's styles folder " + shown("/Capture One/Styles") +
             " does not exist; start Capture One once to make it."},
        {"with a pack", {"--to-capture-one", "-p", "x.costylepack", "in.xmp"}, &mac, {}, 2,
         "stylewright-cli: --to-capture-one writes separate styles into Capture One's styles folder; it can't be "
         "used with --pack. Try 'stylewright-cli --help'."},
        {"with a folder", {"--to-capture-one", "-o", "out", "in.xmp"}, &mac, {}, 2,
         "stylewright-cli: --to-capture-one writes separate styles into Capture One's styles folder; it can't be "
         "used with --output. Try 'stylewright-cli --help'."},
        {"with a category", {"--to-capture-one", "--category", "in.xmp"}, &mac, {}, 2,
         "stylewright-cli: --to-capture-one writes separate styles into Capture One's styles folder; it can't be "
         "used with --category. Try 'stylewright-cli --help'."},
        {"to standard output", {"--to-capture-one", "--stdout", "in.xmp"}, &mac, {}, 2,
         "stylewright-cli: --to-capture-one writes separate styles into Capture One's styles folder; it can't be "
         "used with --stdout. Try 'stylewright-cli --help'."},
    };
    for (const auto& run : runs) {
        SCOPED_TRACE(run.rule);
        QTemporaryDir work;
        write_file(work.path(), QStringLiteral("in.xmp"), grouped_xmp(QStringLiteral("In"), QString()));
        for (const QString& folder : run.made)
            QDir().mkpath(support + QLatin1Char('/') + folder);
        const said result = run_in_process(run.arguments, work.path(), *run.folders);
        EXPECT_EQ(result.exit_code, run.exit_code);
        EXPECT_EQ(QString::fromUtf8(result.err).trimmed(), run.line);
        EXPECT_EQ(files_below(work.path()), QStringList{QStringLiteral("in.xmp")});
        QDir(support).removeRecursively();
    }
}

TEST(the_move, every_preset_goes_to_its_group_and_a_second_run_writes_over)
{
    QTemporaryDir home;
    const editor_folders mac = editor_folders_for(folder_layout::macos, {home.path(), QString(), QString()});
    const QString settings = mac.lightroom_presets.at(0);
    const QString templates = mac.lightroom_presets.at(1);
    const QString styles = mac.capture_one_styles;
    write_file(settings, QStringLiteral("Portra.xmp"), grouped_xmp(QStringLiteral("Portra"), QStringLiteral("Film Looks")));
    write_file(settings, QStringLiteral("Ungrouped/Deep/Plain.xmp"), grouped_xmp(QStringLiteral("Plain"), QString()));
    write_file(settings, QStringLiteral("Mobile.dng"),
               dng::make(grouped_xmp(QStringLiteral("Mobile"), QStringLiteral("B/W: Classic"))));
    write_file(settings, QStringLiteral("Profiles/Mono.xmp"),
               grouped_xmp(QStringLiteral("Mono"), QStringLiteral("Profiles"), QStringLiteral("crs:PresetType=\"Look\"")));
    write_file(templates, QStringLiteral("Old Group/Sepia.lrtemplate"),
               preset_text(QStringLiteral("Sepia.lrtemplate"), QStringLiteral("Sepia"), flagged(QStringLiteral("colourful"))));
    write_file(styles, QStringLiteral("Film Looks/Portra.costyle"), "made in Capture One");
    QTemporaryDir work;

    const said first = run_in_process({QStringLiteral("--from-lightroom"), QStringLiteral("--to-capture-one"),
                                       QStringLiteral("-v"), QStringLiteral("-j"), QStringLiteral("1")},
                                      work.path(), mac);
    EXPECT_EQ(first.exit_code, 0);
    EXPECT_EQ(files_below(styles), (QStringList{"B%2FW%3A Classic/Mobile.costyle", "Film Looks/Portra.costyle",
                                                "Old Group/Sepia.costyle", "Ungrouped/Deep/Plain.costyle"}));
    EXPECT_NE(read_file(styles + QStringLiteral("/Film Looks/Portra.costyle")), QByteArray("made in Capture One"));
    EXPECT_EQ(lines_with(first.err, QStringLiteral("written over")).size(), 1);
    EXPECT_EQ(lines_with(first.err, QStringLiteral("Mono.xmp is a Lightroom profile")).size(), 1);
    EXPECT_TRUE(first.err.endsWith("4 converted, 1 skipped, 0 failed\nRestart Capture One to see the new styles.\n"))
        << first.err.right(200).toStdString();
    EXPECT_TRUE(files_below(work.path()).isEmpty());

    const said second = run_in_process({QStringLiteral("--from-lightroom"), QStringLiteral("--to-capture-one"),
                                        QStringLiteral("-v")},
                                       work.path(), mac);
    EXPECT_EQ(second.exit_code, 0);
    EXPECT_EQ(files_below(styles).size(), 4);
    EXPECT_EQ(lines_with(second.err, QStringLiteral(", written over an earlier file")).size(), 4);
}
