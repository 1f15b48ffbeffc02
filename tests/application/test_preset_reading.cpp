// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/preset_reading.h"
#include "support/conversion_fixtures.h"

#include <gtest/gtest.h>

TEST(preset_reading, format_comes_from_the_last_suffix_in_any_case)
{
    const std::pair<const char*, preset_format> cases[] = {
        {"/x/a.lrtemplate", preset_format::lrtemplate}, {"/x/a.LRTemplate", preset_format::lrtemplate},
        {"Preset.XMP", preset_format::xmp},               {"My.Look.xmp", preset_format::xmp},
        {"a.lrtemplate.bak", preset_format::unsupported}, {"a.agtemplate", preset_format::unsupported},
        {"xmp", preset_format::unsupported},              {"/x.xmp/a", preset_format::unsupported}};
    for (const auto& [path, format] : cases)
        EXPECT_EQ(preset_format_of(path), format) << path;
}
