// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/conversion_fixtures.h"
#include "cli/cli_runner.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace fixtures;

namespace {

// A collection as presets are handed around: packs in folders, the same file
// names in every pack, and the same tree zipped.
class folder_trees : public ::testing::Test {
protected:
    void SetUp() override
    {
        for (const char* file : {"Presets/Pack A/Preset 01.xmp", "Presets/Pack A/Preset 02.lrtemplate",
                                 "Presets/Pack B/Preset 01.xmp", "Presets/Pack B/Film/Preset 01.lrtemplate",
                                 "Presets/Preset 01.xmp"})
            write_file(work.path(), file, preset_text(file, QFileInfo(file).path(), flagged("colourful")));
        // zip stores the tree with relative names, as archives found in the wild do.
        const process_result zipped =
            run_program("sh", {"-c", "cd Presets && zip -qr ../Presets.zip ."}, work.path());
        ASSERT_EQ(zipped.exit_code, 0) << zipped.err.constData();
    }

    // Every file below folder with its content (UUIDs masked), by relative path.
    QMap<QString, QString> files_below(const QString& folder) const
    {
        QMap<QString, QString> files;
        for (QDirIterator it(work.filePath(folder), QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
            const QString path = it.next();
            files.insert(QDir(work.filePath(folder)).relativeFilePath(path), masked(read_file(path)));
        }
        return files;
    }
    static QString masked(const QByteArray& style)
    {
        return QString::fromUtf8(style).replace(QRegularExpression("<E K=\"UUID\" V=\"[^\"]*\"/>"), "UUID");
    }
    process_result convert(const QStringList& arguments) const
    {
        return run_program(cli_path(), arguments, work.path());
    }

    QTemporaryDir work;
};

TEST_F(folder_trees, separate_styles_mirror_the_tree_whether_folder_or_archive)
{
    for (const char* input : {"Presets", "Presets.zip"}) {
        const QString out = QStringLiteral("out-") + input;
        const process_result result = convert({"-o", out, input});
        EXPECT_EQ(result.exit_code, 0) << result.err.constData();
        EXPECT_TRUE(result.error_lines().last() == "5 converted, 0 skipped, 0 failed") << result.err.constData();
        EXPECT_EQ(files_below(out).keys(), QStringList({"Pack A/Preset 01.costyle", "Pack A/Preset 02.costyle",
                                                        "Pack B/Film/Preset 01.costyle", "Pack B/Preset 01.costyle",
                                                        "Preset 01.costyle"}))
            << input;
    }
    EXPECT_EQ(files_below("out-Presets"), files_below("out-Presets.zip"));
}

TEST_F(folder_trees, a_pack_keeps_every_same_named_preset_and_says_so)
{
    const QStringList names = {"Preset 01 (2).costyle", "Preset 01 (Film).costyle", "Preset 01 (Pack B).costyle",
                               "Preset 01.costyle", "Preset 02.costyle"};
    for (const bool category : {false, true}) {
        QStringList entries[2];
        for (const int i : {0, 1}) {
            const QString input = i == 0 ? "Presets" : "Presets.zip";
            const QString pack = QStringLiteral("%1/Looks.costylepack").arg(i);
            QDir(work.path()).mkpath(QString::number(i));
            const process_result result = convert((category ? QStringList{"--category"} : QStringList())
                                                  + QStringList{"-p", pack, input});
            EXPECT_EQ(result.exit_code, 0) << result.err.constData();
            EXPECT_EQ(result.error_lines().filter("another folder holds a preset of the same name").size(), 3)
                << result.err.constData();
            entries[i] = zip_entries(work.filePath(pack), true)
                             .replaceInStrings(QRegularExpression("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}"), "UUID");
        }
        QStringList expected = names;
        if (category)
            expected.replaceInStrings(QRegularExpression("^"), "Looks/");
        EXPECT_EQ(zip_entries(work.filePath("0/Looks.costylepack")), expected);
        EXPECT_EQ(entries[0], entries[1]);
    }
}

} // namespace
