#include "writer/setting_mapping.h"

#include "color/message_capture.h"

#include <gtest/gtest.h>

namespace {

using test_support::message_capture;

struct mapping_case {
    const char* value;
    const char* expected; // nullptr: nothing written
};

TEST(map_setting, maps_each_half_with_its_own_scale)
{
    const mapping_case cases[] = {
        {"100", "25.000000"},
        {"-100", "-50.000000"},
        {"40", "10.000000"},
        {"150", "25.000000"},     // clamped first
        {"-150", "-50.000000"},
        {"-40", "-19.999998"},    // single precision, step by step
        {"0", "0.000000"},
        {"+20", "5.000000"},
        {"abc", nullptr},
        {"", nullptr},
        {"nan", nullptr},
    };
    for (const mapping_case& c : cases) {
        const preset_settings settings{{"Contrast", QString::fromLatin1(c.value)}};
        costyle_entries entries;
        map_setting(settings, entries, "Contrast", "Contrast", -100, 100, -50, 25);
        if (c.expected)
            EXPECT_EQ(entries.value("Contrast"), QLatin1String(c.expected)) << c.value;
        else
            EXPECT_TRUE(entries.isEmpty()) << c.value;
    }
}

TEST(map_setting, absent_key_writes_nothing_and_later_writes_replace)
{
    costyle_entries entries{{"Exposure", "1.000000"}};
    map_setting({}, entries, "Exposure2012", "Exposure", -5, 5, -4, 4);
    EXPECT_EQ(entries.value("Exposure"), "1.000000");
    map_setting({{"Exposure2012", "2.5"}}, entries, "Exposure2012", "Exposure", -5, 5, -4, 4);
    EXPECT_EQ(entries.value("Exposure"), "2.000000");
}

TEST(copy_setting, copies_numbers_with_six_decimals)
{
    const preset_settings settings{{"Vibrance", "+12"}, {"Clarity", "0.35"}, {"Name", "Warm"}};
    costyle_entries entries;
    copy_setting(settings, entries, "Vibrance", "Vibrance");
    copy_setting(settings, entries, "Clarity", "Clarity");
    copy_setting(settings, entries, "Name", "Name");
    copy_setting(settings, entries, "Absent", "Absent");
    const costyle_entries expected{{"Vibrance", "12.000000"}, {"Clarity", "0.350000"}};
    EXPECT_EQ(entries, expected);
}

TEST(read_hsl_adjustments, reads_three_keys_for_the_capitalised_colour)
{
    const preset_settings settings{{"HueAdjustmentRed", "10"},
                                   {"SaturationAdjustmentRed", "-20.5"},
                                   {"LuminanceAdjustmentRed", "x"},
                                   {"HueAdjustmentBlue", "7"}};
    bool found = false;
    QString colour = "red";
    float hue = -1, saturation = -1, luminance = -1;
    read_hsl_adjustments(settings, found, colour, hue, saturation, luminance);
    EXPECT_EQ(colour, "Red");
    EXPECT_TRUE(found);
    EXPECT_EQ(hue, 10.0f);
    EXPECT_EQ(saturation, -20.5f);
    EXPECT_EQ(luminance, 0.0f); // present but not a number

    // Nothing for green: every output goes to 0, the flag is not reset.
    colour = "green";
    read_hsl_adjustments(settings, found, colour, hue, saturation, luminance);
    EXPECT_EQ(colour, "Green");
    EXPECT_TRUE(found);
    EXPECT_EQ(hue, 0.0f);
    EXPECT_EQ(saturation, 0.0f);

    found = false;
    colour = "Orange";
    read_hsl_adjustments(settings, found, colour, hue, saturation, luminance);
    EXPECT_FALSE(found);

    // A non-numeric value alone does not count as found.
    read_hsl_adjustments({{"LuminanceAdjustmentAqua", "bright"}}, found, colour = "aqua", hue, saturation,
                         luminance);
    EXPECT_FALSE(found);
}

TEST(read_hsl_adjustments, empty_colour_becomes_a_null_character)
{
    bool found = false;
    QString colour;
    float hue = 1, saturation = 1, luminance = 1;
    read_hsl_adjustments({{"HueAdjustment", "5"}}, found, colour, hue, saturation, luminance);
    EXPECT_EQ(colour, QString(QChar(0)));
    EXPECT_FALSE(found);
    EXPECT_EQ(hue, 0.0f);
}

TEST(set_curve_entry, writes_fractions_with_six_decimals)
{
    costyle_entries entries{{"GradationCurve", "old"}};
    set_curve_entry(entries, "GradationCurve", {{0, 0}, {255, 255}});
    EXPECT_EQ(entries.value("GradationCurve"), "0.000000,0.000000;1.000000,1.000000");
    set_curve_entry(entries, "GradationCurve", {{0, 0}, {128, 153}, {255, 255}});
    EXPECT_EQ(entries.value("GradationCurve"), "0.000000,0.000000;0.501961,0.600000;1.000000,1.000000");
}

TEST(set_curve_entry, clamps_out_of_range_points_with_a_warning)
{
    message_capture log;
    costyle_entries entries;
    set_curve_entry(entries, "GradationCurveRed", {{300, -5}, {-1, 255}});
    EXPECT_EQ(entries.value("GradationCurveRed"), "1.000000,0.000000;0.000000,1.000000");
    EXPECT_EQ(log.warnings(), (QStringList{"point QPoint(300,-5) is out of range and will be clamped!",
                                           "point QPoint(-1,255) is out of range and will be clamped!"}));
}

TEST(set_curve_entry, empty_curve_writes_nothing)
{
    costyle_entries entries;
    set_curve_entry(entries, "GradationCurve", {});
    EXPECT_FALSE(entries.contains("GradationCurve"));
}

} // namespace
