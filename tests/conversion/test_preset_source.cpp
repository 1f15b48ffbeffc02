// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/style_names.h"
#include "conversion/preset_source.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(style_names, same_folder_replaces_other_folders_get_their_name_added)
{
    style_names names;
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
