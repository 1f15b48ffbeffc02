#include "application/preset_reading.h"
#include "conversion/preset_fixtures.h"
#include "importer/lightroom_importer.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace preset_fixtures;

TEST(preset_reading, format_comes_from_the_last_suffix_in_any_case)
{
    const struct {
        const char* path;
        preset_format format;
    } cases[] = {{"/x/a.lrtemplate", preset_format::lrtemplate}, {"/x/a.LRTemplate", preset_format::lrtemplate},
                 {"Preset.XMP", preset_format::xmp},               {"My.Look.xmp", preset_format::xmp},
                 {"a.lrtemplate.bak", preset_format::unsupported}, {"a.agtemplate", preset_format::unsupported},
                 {"xmp", preset_format::unsupported},              {"/x.xmp/a", preset_format::unsupported}};
    for (const auto& c : cases)
        EXPECT_EQ(preset_format_of(c.path), c.format) << c.path;
}

TEST(preset_reading, reader_is_chosen_by_suffix_and_other_files_are_not_read)
{
    QTemporaryDir dir;
    const settings_map settings = {{"Exposure2012", "+0.50"}};
    // The XMP text under other suffixes shows which reader ran.
    const struct {
        const char* file;
        QByteArray text;
        bool read;
        const char* name;
    } cases[] = {{"a.Xmp", xmp_text("X", settings), true, "X"},
                 {"b.lrTemplate", lrtemplate_text("T", settings), true, "T"},
                 {"c.txt", xmp_text("X", settings), false, "kept"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        lightroom_importer record;
        record.name = "kept";
        EXPECT_EQ(read_preset(write_file(dir.path(), c.file, c.text), record), c.read);
        EXPECT_EQ(record.name, c.name);
        EXPECT_EQ(record.settings.value("Exposure2012"), c.read ? "+0.50" : "");
    }
}
