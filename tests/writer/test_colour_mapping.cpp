// SPDX-License-Identifier: GPL-3.0-or-later
#include "costyle_test_support.h"

const QString fixed_entry =
    "1,1,2,2.36563158035278,-15.9744558334351,0,174,139,97,0,25,-42.1264381408691,25.6254768371582,25,0,0,0,0";

static QStringList corrections(const setting_list& settings)
{
    return convert_to_style(preset_with(settings)).value("ColorCorrections").split(';');
}

TEST(colour_corrections_mapping, vibrance_and_hue_adjustments_fill_the_colour_editor)
{
    // Without colour settings only the fixed entry; a hue value that is no number does not count.
    for (const setting_list& settings : {setting_list{}, {{"HueAdjustmentRed", "strong"}}, {{"Saturation", "20"}}})
        EXPECT_EQ(corrections(settings), QStringList{fixed_entry});

    // Vibrance 0 (or no number) counts as a colour setting: eight hue entries, then the fixed one.
    for (const char* vibrance : {"0", "vivid"}) {
        const QStringList entries = corrections({{"Vibrance", vibrance}});
        ASSERT_EQ(entries.size(), 9);
        EXPECT_EQ(entries[0], "1,1,0,0.000000,0.000000,0.000000,237,45.3288917541504,66.479118347168,"
                              "-9.59939575195312,9.18455505371094,-80.8738861083984,19.1261138916016,"
                              "25.9748382568359,0,0,0,0");
        EXPECT_TRUE(entries[6].startsWith("1,1,0,0.000000,0.000000,0.000000,104,0,148,")); // purple
        EXPECT_EQ(entries[8], fixed_entry);
    }

    // Other vibrance: seven base entries, the last carrying the amount, before the hue entries.
    const std::pair<const char*, const char*> vibrance[] = {
        {"50", "40.000000"}, {"-50", "-40.000000"}, {"-100", "-80.000000"}, {"250", "80.000000"}};
    for (const auto& [value, amount] : vibrance) {
        const QStringList entries = corrections({{"Vibrance", value}});
        ASSERT_EQ(entries.size(), 7 + 8 + 1) << value;
        EXPECT_TRUE(entries[0].startsWith("1,1,1,0,0,0,127,63,119,-28.822566986084,")) << value;
        EXPECT_EQ(entries[6], QStringLiteral("0,1,1,0,%1,0,0,0,0,0,0,0,0,0,0,0,0,0").arg(amount)) << value;
    }

    // Each hue has its own output ranges.
    const QStringList entries = corrections({{"HueAdjustmentRed", "100"}, {"SaturationAdjustmentRed", "-100"},
                                             {"LuminanceAdjustmentOrange", "50"}, {"SaturationAdjustmentPurple", "70"},
                                             {"LuminanceAdjustmentPurple", "-50"}, {"HueAdjustmentMagenta", "-150"}});
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
    const char* const neutral = "1.000000;1.000000;1.000000";
    const std::tuple<const char*, setting_list, QString> cases[] = {
        // Balance 0 maps to -25: the midtones take a quarter of the shadow tone.
        {"red shadows", {{"SplitToningShadowHue", "0"}, {"SplitToningShadowSaturation", "50"}},
         "1.000000;0.700000;0.700000 1.000000;0.925000;0.925000 1.000000;1.000000;1.000000"},
        {"balance towards the highlights", {{"SplitToningShadowSaturation", "80"}, {"SplitToningBalance", "100"}},
         "1.000000;0.925000;0.925000 1.000000;1.000000;1.000000 1.000000;1.000000;1.000000"},
        {"balance without blending", {{"SplitToningShadowSaturation", "50"}, {"SplitToningBalance", "40"}},
         "1.000000;0.700000;0.700000 1.000000;1.000000;1.000000 1.000000;1.000000;1.000000"},
        {"green highlights at a third in the highlight range",
         {{"SplitToningHighlightHue", "120"}, {"SplitToningHighlightSaturation", "50"}, {"SplitToningBalance", "40"}},
         "1.000000;1.000000;1.000000 0.700000;1.000000;0.700000 0.900000;1.000000;0.900000"},
        {"parametric darkening",
         {{"SplitToningBalance", "40"}, {"ParametricShadows", "-80"}, {"ParametricDarks", "-40"},
                                  {"ParametricLights", "100"}, {"ParametricHighlights", "-40"}},
         "0.750000;0.750000;0.750000 1.333333;1.333333;1.333333 0.900000;0.900000;0.900000"},
        {"lifted shadows have no reciprocal",
         {{"SplitToningBalance", "40"}, {"ParametricShadows", "50"}, {"ParametricDarks", "40"}},
         "1.000000;1.000000;1.000000 1.111111;1.111111;1.111111 1.000000;1.000000;1.000000"},
        {"a hue that is no number still counts", {{"SplitToningShadowHue", "teal"}},
         "1.000000;1.000000;1.000000 1.000000;1.000000;1.000000 1.000000;1.000000;1.000000"},
        {"no split toning key", {{"ParametricShadows", "-50"}}, "  "},
    };
    for (const auto& [name, settings, expected] : cases) {
        const parsed_style style = convert_to_style(preset_with(settings), "prophoto");
        EXPECT_EQ(QStringList({style.value("ColorBalanceShadow"), style.value("ColorBalanceMidtone"),
                               style.value("ColorBalanceHighlight")}).join(' '), expected) << name;
        EXPECT_FALSE(style.has("BwDarkHue")) << name;
    }
    // A grayscale style is toned with the converted hues; its colour balance keeps the parametric amounts.
    check_mapping({{"grayscale toning", "prophoto",
                    {{"ConvertToGrayscale", "true"}, {"SplitToningShadowHue", "120"},
                     {"SplitToningShadowSaturation", "70"},
                     {"SplitToningHighlightHue", "0"}, {"SplitToningHighlightSaturation", "30"},
                     {"ParametricHighlights", "40"}},
                    {{"BwDarkHue", "120.000000"}, {"BwDarkSaturation", "70.000000"}, // as read, unclamped
                     {"BwLightHue", "360.000000"}, // red keeps 360000 in the 8-bit model
                     {"BwLightSaturation", "12.000000"}, {"ColorBalanceShadow", neutral},
                     {"ColorBalanceMidtone", neutral},
                     {"ColorBalanceHighlight", "1.111111;1.111111;1.111111"}}}});

    // The hues go through the chosen colour table.
    const lightroom_importer preset = preset_with(
        {{"SplitToningShadowHue", "200"}, {"SplitToningShadowSaturation", "50"}, {"ConvertToGrayscale", "true"}});
    const auto hue = [&](const char* space) { return convert_to_style(preset, space).value("BwDarkHue"); };
    EXPECT_EQ(hue("other"), hue("prophoto"));
    EXPECT_EQ(hue("raw"), hue("widegamut"));
    EXPECT_NE(hue("srgb"), hue("prophoto"));
    EXPECT_NE(hue("adobe"), hue("prophoto"));
}
