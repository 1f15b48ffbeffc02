// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/pack_entry_names.h"
#include "application/preset_source.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(pack_entry_names, same_folder_replaces_other_folders_get_their_name_added)
{
    pack_entry_names names;
    const struct {
        const char* style;
        const char* subfolder;
        const char* entry;
        bool renamed;
    } rows[] = {
        {"Portra.costyle", "Film", "Portra.costyle", false},
        {"Portra.costyle", "Film", "Portra.costyle", false}, // same folder: replaces
        {"Portra.costyle", "Packs/Film 2", "Portra (Film 2).costyle", true},
        {"Portra.costyle", "Other/Film 2", "Portra (Other Film 2).costyle", true},
        {"Portra.costyle", "Packs/Film 2", "Portra (Film 2).costyle", true}, // found again: the same entry
        {"Portra.costyle", "", "Portra (2).costyle", true},
        {"Portra.costyle", "Third/Other/Film 2", "Portra (Third Other Film 2).costyle", true},
        {"Mono.Look.costyle", "", "Mono.Look.costyle", false},
    };
    for (const auto& row : rows) {
        bool renamed = false;
        EXPECT_EQ(names.entry_for(row.style, row.subfolder, renamed), row.entry) << row.subfolder;
        EXPECT_EQ(renamed, row.renamed) << row.subfolder;
    }
}

TEST(preset_source, folders_and_archives_give_their_presets_with_the_folders_they_came_from)
{
    QTemporaryDir dir;
    const QDir root(dir.path());
    for (const char* file : {"tree/a.xmp", "tree/Film/Portra.xmp", "tree/Film/Warm/b.lrtemplate", "tree/notes.txt",
                             "empty/notes.txt", "single.lrtemplate"}) {
        root.mkpath(QFileInfo(root.filePath(file)).path());
        QFile out(root.filePath(file));
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    }
    const gathered_presets gathered = gather_presets(
        {root.filePath("tree"), root.filePath("single.lrtemplate"), root.filePath("empty"), root.filePath("gone.xmp")});
    QStringList seen;
    for (const preset_source& preset : gathered.presets)
        seen << root.relativeFilePath(preset.path) + " -> " + preset.subfolder;
    EXPECT_EQ(seen, QStringList({"tree/Film/Portra.xmp -> Film", "tree/Film/Warm/b.lrtemplate -> Film/Warm",
                                 "tree/a.xmp -> ", "single.lrtemplate -> ", "gone.xmp -> "}));
    EXPECT_EQ(gathered.empty_folders, QStringList({root.filePath("empty")}));
}
