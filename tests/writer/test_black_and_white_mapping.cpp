// SPDX-License-Identifier: GPL-3.0-or-later
#include "costyle_test_support.h"

TEST(black_and_white_mapping, blends_orange_and_purple_into_their_neighbours)
{
    // Expected: red, yellow, green, cyan, blue, magenta.
    const struct { const char* name; setting_list mixer; const char* expected; } cases[] = {
        {"no mixer keys", {}, "0.000000 0.000000 0.000000 0.000000 0.000000 0.000000"},
        {"orange halves into red and yellow", {{"GrayMixerOrange", "40"}},
         "20.000000 20.000000 0.000000 0.000000 0.000000 0.000000"},
        // 60 / 100 * 100 is 60.0000038 in single precision; half of it shows in yellow.
        {"clamped after blending", {{"GrayMixerRed", "90"}, {"GrayMixerOrange", "60"}},
         "100.000000 30.000002 0.000000 0.000000 0.000000 0.000000"},
        {"green and aqua unclamped", {{"GrayMixerGreen", "150"}, {"GrayMixerAqua", "-130"}, {"GrayMixerBlue", "150"}},
         "0.000000 0.000000 150.000000 -130.000000 100.000000 0.000000"},
        {"purple clamped before blending", {{"GrayMixerPurple", "-200"}},
         "0.000000 0.000000 0.000000 0.000000 -50.000000 -50.000000"},
        {"text that is no number counts as 0", {{"GrayMixerRed", "deep"}, {"GrayMixerMagenta", "-25"}},
         "0.000000 0.000000 0.000000 0.000000 0.000000 -25.000000"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        setting_list settings = c.mixer;
        settings.emplace_back("ConvertToGrayscale", "True");
        const parsed_style style = convert_to_style(preset_with(settings));
        EXPECT_EQ(style.value("BwEnabled"), "1");
        QStringList mixer;
        for (const char* key : {"BwRed", "BwYellow", "BwGreen", "BwCyan", "BwBlue", "BwMagenta"})
            mixer << style.value(key);
        EXPECT_EQ(mixer.join(' '), c.expected);
    }
}

TEST(black_and_white_mapping, runs_only_for_a_grayscale_preset)
{
    const std::pair<const char*, bool> flags[] = {{"true", true},  {"TRUE", true},   {"True", true},
                                                  {"1", false},    {"false", false}, {"yes", false}};
    for (const auto& [flag, grayscale] : flags) {
        const parsed_style style =
            convert_to_style(preset_with({{"ConvertToGrayscale", flag}, {"GrayMixerRed", "40"}}));
        EXPECT_EQ(style.has("BwEnabled"), grayscale) << flag;
        EXPECT_EQ(style.has("BwRed"), grayscale) << flag;
    }
}
