#include "costyle_test_support.h"

#include <gtest/gtest.h>

using namespace writer_test;

namespace {

const QString fixed_text = QStringLiteral(
    "1,1,2,2.36563158035278,-15.9744558334351,0,174,139,97,0,25,-42.1264381408691,25.6254768371582,25,0,0,0,0");
const QString vibrance_entry_start = QStringLiteral("1,1,1,0,0,0,127,63,119,-28.822566986084,");

QStringList editor_entries(const parsed_style& style)
{
    return style.value(QStringLiteral("ColorCorrections")).split(QLatin1Char(';'));
}

QString colour_balance(const parsed_style& style, const char* range)
{
    return style.value(QStringLiteral("ColorBalance") + QLatin1String(range));
}

} // namespace

TEST(colour_corrections_mapping, every_style_carries_the_fixed_entry)
{
    for (const setting_list& settings : {setting_list{}, setting_list{{"HueAdjustmentRed", "strong"}},
                                         setting_list{{"Saturation", "20"}}}) {
        EXPECT_EQ(convert_to_style(preset_with(settings)).value("ColorCorrections"), fixed_text);
    }
}

TEST(colour_corrections_mapping, vibrance_zero_alone_gives_the_eight_hue_entries)
{
    const QStringList entries = editor_entries(convert_to_style(preset_with({{"Vibrance", "0"}})));
    ASSERT_EQ(entries.size(), 9);
    EXPECT_EQ(entries[0], "1,1,0,0.000000,0.000000,0.000000,237,45.3288917541504,66.479118347168,-9.59939575195312,"
                          "9.18455505371094,-80.8738861083984,19.1261138916016,25.9748382568359,0,0,0,0");
    for (int i = 0; i < 8; ++i)
        EXPECT_TRUE(entries[i].startsWith("1,1,0,0.000000,0.000000,0.000000,")) << i;
    EXPECT_TRUE(entries[6].startsWith("1,1,0,0.000000,0.000000,0.000000,104,0,148,")); // purple
    EXPECT_EQ(entries[8], fixed_text);
}

TEST(colour_corrections_mapping, maps_vibrance_into_the_base_entries)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"50", "40.000000"}, {"-50", "-40.000000"}, {"-100", "-80.000000"}, {"250", "80.000000"}};
    for (const auto& [vibrance, amount] : cases) {
        SCOPED_TRACE(vibrance);
        const QStringList entries = editor_entries(convert_to_style(preset_with({{"Vibrance", vibrance}})));
        ASSERT_EQ(entries.size(), 7 + 8 + 1);
        EXPECT_TRUE(entries[0].startsWith(vibrance_entry_start));
        EXPECT_EQ(entries[6], QStringLiteral("0,1,1,0,%1,0,0,0,0,0,0,0,0,0,0,0,0,0").arg(amount));
    }
    // A vibrance that is no number still counts as a colour setting.
    EXPECT_EQ(editor_entries(convert_to_style(preset_with({{"Vibrance", "vivid"}}))).size(), 9);
}

TEST(colour_corrections_mapping, maps_each_hue_into_its_own_ranges)
{
    const QStringList entries = editor_entries(convert_to_style(preset_with({{"HueAdjustmentRed", "100"},
                                                                            {"SaturationAdjustmentRed", "-100"},
                                                                            {"LuminanceAdjustmentOrange", "50"},
                                                                            {"SaturationAdjustmentPurple", "70"},
                                                                            {"LuminanceAdjustmentPurple", "-50"},
                                                                            {"HueAdjustmentMagenta", "-150"}})));
    ASSERT_EQ(entries.size(), 9);
    EXPECT_TRUE(entries[0].startsWith("1,1,0,30.000000,-60.000000,0.000000,237,"));
    EXPECT_TRUE(entries[1].startsWith("1,1,0,0.000000,0.000000,2.000000,255,130,12,"));
    EXPECT_TRUE(entries[6].startsWith("1,1,0,0.000000,70.000000,-3.500000,104,0,148,"));
    EXPECT_TRUE(entries[7].startsWith("1,1,0,-30.000000,0.000000,0.000000,235,"));
}

// The identity table of the ProPhoto output leaves the toning hues as they
// are: hue 0 becomes the full red (255, 0, 0), hue 120 the full green.
TEST(split_toning_mapping, turns_the_toning_colours_into_colour_balance_factors)
{
    struct toning_case {
        const char* name;
        setting_list settings;
        const char* shadow;
        const char* midtone;
        const char* highlight;
    };
    const std::vector<toning_case> cases = {
        // Balance 0 maps to -25: the highlight takes a quarter of the shadow tone.
        {"red shadows", {{"SplitToningShadowHue", "0"}, {"SplitToningShadowSaturation", "50"}},
         "1.000000;0.700000;0.700000", "1.000000;0.925000;0.925000", "1.000000;1.000000;1.000000"},
        {"balance towards the highlights",
         {{"SplitToningShadowSaturation", "80"}, {"SplitToningBalance", "100"}},
         "1.000000;0.925000;0.925000", "1.000000;1.000000;1.000000", "1.000000;1.000000;1.000000"},
        {"balance without blending", {{"SplitToningShadowSaturation", "50"}, {"SplitToningBalance", "40"}},
         "1.000000;0.700000;0.700000", "1.000000;1.000000;1.000000", "1.000000;1.000000;1.000000"},
        {"green highlights at a third in the highlight range",
         {{"SplitToningHighlightHue", "120"}, {"SplitToningHighlightSaturation", "50"}, {"SplitToningBalance", "40"}},
         "1.000000;1.000000;1.000000", "0.700000;1.000000;0.700000", "0.900000;1.000000;0.900000"},
        {"parametric darkening",
         {{"SplitToningBalance", "40"}, {"ParametricShadows", "-80"}, {"ParametricDarks", "-40"},
          {"ParametricLights", "100"}, {"ParametricHighlights", "-40"}},
         "0.750000;0.750000;0.750000", "1.333333;1.333333;1.333333", "0.900000;0.900000;0.900000"},
        {"lifted shadows have no reciprocal",
         {{"SplitToningBalance", "40"}, {"ParametricShadows", "50"}, {"ParametricDarks", "40"}},
         "1.000000;1.000000;1.000000", "1.111111;1.111111;1.111111", "1.000000;1.000000;1.000000"},
    };
    for (const toning_case& c : cases) {
        SCOPED_TRACE(c.name);
        const parsed_style style = convert_to_style(preset_with(c.settings), "prophoto");
        EXPECT_EQ(colour_balance(style, "Shadow").toStdString(), c.shadow);
        EXPECT_EQ(colour_balance(style, "Midtone").toStdString(), c.midtone);
        EXPECT_EQ(colour_balance(style, "Highlight").toStdString(), c.highlight);
        EXPECT_FALSE(style.has("BwDarkHue"));
    }
}

TEST(split_toning_mapping, tones_a_grayscale_style_with_the_converted_hues)
{
    const parsed_style style = convert_to_style(preset_with({{"ConvertToGrayscale", "true"},
                                                            {"SplitToningShadowHue", "120"},
                                                            {"SplitToningShadowSaturation", "70"},
                                                            {"SplitToningHighlightHue", "0"},
                                                            {"SplitToningHighlightSaturation", "30"},
                                                            {"ParametricHighlights", "40"}}),
                                                "prophoto");
    EXPECT_EQ(style.value("BwDarkHue"), "120.000000");
    EXPECT_EQ(style.value("BwDarkSaturation"), "70.000000"); // as read, unclamped
    EXPECT_EQ(style.value("BwLightHue"), "360.000000");     // red keeps 360000 in the 8-bit model
    EXPECT_EQ(style.value("BwLightSaturation"), "12.000000");
    EXPECT_EQ(colour_balance(style, "Shadow"), "1.000000;1.000000;1.000000");
    EXPECT_EQ(colour_balance(style, "Midtone"), "1.000000;1.000000;1.000000");
    EXPECT_EQ(colour_balance(style, "Highlight"), "1.111111;1.111111;1.111111");
}

TEST(split_toning_mapping, runs_only_when_a_split_toning_key_is_present)
{
    const parsed_style style = convert_to_style(preset_with({{"ParametricShadows", "-50"}}));
    for (const char* range : {"Shadow", "Midtone", "Highlight"})
        EXPECT_FALSE(style.has(QStringLiteral("ColorBalance") + QLatin1String(range))) << range;

    const parsed_style text_hue = convert_to_style(preset_with({{"SplitToningShadowHue", "teal"}}));
    EXPECT_TRUE(text_hue.has("ColorBalanceShadow"));
}

TEST(split_toning_mapping, moves_the_hues_through_the_chosen_colour_table)
{
    const lightroom_importer preset = preset_with(
        {{"SplitToningShadowHue", "200"}, {"SplitToningShadowSaturation", "50"}, {"ConvertToGrayscale", "true"}});
    EXPECT_EQ(convert_to_style(preset, "other").value("BwDarkHue"), convert_to_style(preset, "prophoto").value("BwDarkHue"));
    EXPECT_EQ(convert_to_style(preset, "raw").value("BwDarkHue"), convert_to_style(preset, "widegamut").value("BwDarkHue"));
    EXPECT_NE(convert_to_style(preset, "srgb").value("BwDarkHue"), convert_to_style(preset, "prophoto").value("BwDarkHue"));
}
