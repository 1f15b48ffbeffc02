// SPDX-License-Identifier: GPL-3.0-or-later
#include "writer/setting_values.h"

#include "support/log_capture.h"

#include <gtest/gtest.h>

TEST(setting_values, map_setting_clamps_and_scales_each_half_and_copy_setting_copies)
{
    const std::pair<const char*, const char*> cases[] = {
        {"100", "25.000000"},  {"-100", "-50.000000"}, {"40", "10.000000"},
        {"150", "25.000000"},  {"-150", "-50.000000"}, // clamped first
        {"-40", "-19.999998"},                         // single precision, step by step
        {"0", "0.000000"},     {"+20", "5.000000"},    {"abc", nullptr}, {"", nullptr}, {"nan", nullptr}};
    for (const auto& [value, expected] : cases) {
        costyle_entries entries{{"Contrast", "old"}};
        const preset_settings settings{{"Contrast", value}};
        map_setting(settings_view(settings), entries, "Contrast", "Contrast", -100, 100, -50, 25);
        EXPECT_EQ(entries.value("Contrast"), expected ? expected : "old") << value;
    }
    costyle_entries entries;
    map_setting(settings_view(preset_settings()), entries, "Exposure2012", "Exposure", -5, 5, -4, 4);
    EXPECT_TRUE(entries.isEmpty());

    const preset_settings settings{{"Vibrance", "+12"}, {"Clarity", "0.35"}, {"Name", "Warm"}};
    for (const char* key : {"Vibrance", "Clarity", "Name", "Absent"})
        copy_setting(settings_view(settings), entries, key, key);
    EXPECT_EQ(entries, (costyle_entries{{"Vibrance", "12.000000"}, {"Clarity", "0.350000"}}));
}

TEST(setting_values, read_hsl_adjustments_reads_three_keys_of_the_capitalised_colour)
{
    const preset_settings settings{{"HueAdjustmentRed", "10"}, {"SaturationAdjustmentRed", "-20.5"},
                                   {"LuminanceAdjustmentRed", "x"}, {"HueAdjustmentBlue", "7"},
                                   {"LuminanceAdjustmentAqua", "bright"}, {"HueAdjustment", "5"}};
    // A value that is no number reads as 0.
    const struct { const char* colour; bool found_before; QString capitalised; bool found;
                   float hue, saturation, luminance; } cases[] = {
        {"red", false, "Red", true, 10, -20.5f, 0},
        {"green", true, "Green", true, 0, 0, 0}, // nothing found: the flag is not reset
        {"Orange", false, "Orange", false, 0, 0, 0},
        {"aqua", false, "Aqua", false, 0, 0, 0}, // no number alone does not count
        {"", false, QString(QChar(0)), false, 0, 0, 0},
    };
    for (const auto& c : cases) {
        bool found = c.found_before;
        QString colour = c.colour;
        float hue = -1, saturation = -1, luminance = -1;
        read_hsl_adjustments(settings_view(settings), found, colour, hue, saturation, luminance);
        EXPECT_EQ(std::make_tuple(colour, found, hue, saturation, luminance),
                  std::make_tuple(c.capitalised, c.found, c.hue, c.saturation, c.luminance)) << c.colour;
    }
}

TEST(setting_values, set_curve_entry_writes_clamped_fractions_with_six_decimals)
{
    const struct { curve_points curve; const char* expected; QStringList warnings; } cases[] = {
        {{{0, 0}, {255, 255}}, "0.000000,0.000000;1.000000,1.000000", {}},
        {{{0, 0}, {128, 153}, {255, 255}}, "0.000000,0.000000;0.501961,0.600000;1.000000,1.000000", {}},
        {{{300, -5}, {-1, 255}}, "1.000000,0.000000;0.000000,1.000000",
         {"point QPoint(300,-5) is out of range and will be clamped!",
          "point QPoint(-1,255) is out of range and will be clamped!"}},
        {{}, "old", {}}, // an empty curve writes nothing
    };
    for (const auto& c : cases) {
        const test_support::log_capture log;
        costyle_entries entries{{"GradationCurve", "old"}};
        set_curve_entry(entries, "GradationCurve", c.curve);
        EXPECT_EQ(entries.value("GradationCurve"), c.expected);
        EXPECT_EQ(log.warnings(), c.warnings);
    }
}
