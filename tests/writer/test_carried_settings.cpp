// SPDX-License-Identifier: GPL-3.0-or-later
#include "costyle_test_support.h"
#include "support/test_support.h"
#include "writer/carried_settings.h"

TEST(not_carried_over, lists_unread_develop_settings_in_key_order)
{
    const struct { const char* name; setting_list settings; QStringList expected; } cases[] = {
        {"develop settings",
         {{"Texture", "20"}, {"Dehaze", "10"}, {"Exposure2012", "0.5"}, {"ColorGradeMidtoneHue", "30"},
                              {"CameraProfile", "Adobe Standard"}, {"Vibrance", "10"}, {"HueAdjustmentMagenta", "5"},
                              {"GrainFrequency", "50"}, {"GrainSize", "20"}},
         // Grain needs its amount: a size alone is not carried over.
         {"CameraProfile", "ColorGradeMidtoneHue", "Dehaze", "GrainFrequency", "GrainSize", "Texture"}},
        {"bookkeeping keys", {{"title", "Warm"}, {"uuid", "1234"}, {"id", "5678"}, {"internalName", "Warm"},
                              {"type", "Develop"}, {"version", "0"}, {"about", ""}, {"Name", "Warm"},
                              {"ProcessVersion", "11.0"}, {"PresetType", "Normal"}, {"SupportsMonochrome", "True"},
                              {"ToneCurveName2012", "Linear"}, {"", ""}},
         {}},
        {"gray mixer of a colour preset", {{"GrayMixerRed", "10"}}, {"GrayMixerRed"}},
        {"gray mixer of a grayscale preset", {{"GrayMixerRed", "10"}, {"ConvertToGrayscale", "true"}}, {}},
        {"2012 clarity of a 2010 preset", {{"Clarity2012", "10"}, {"Exposure", "0"}}, {"Clarity2012"}},
        {"fill light without a 2010 key", {{"FillLight", "10"}}, {"FillLight"}},
        {"incremental temperature behind a temperature", {{"Temperature", "5000"}, {"IncrementalTemperature", "5"}},
         {"IncrementalTemperature"}},
        {"incremental tint behind a valid tint", {{"Tint", "5"}, {"IncrementalTint", "5"}}, {"IncrementalTint"}},
        {"incremental tint behind a tint that is no number", {{"Tint", "x"}, {"IncrementalTint", "5"}}, {}},
        {"parametric tone without split toning", {{"ParametricDarks", "10"}}, {"ParametricDarks"}},
        {"parametric tone with split toning", {{"ParametricDarks", "10"}, {"SplitToningBalance", "0"}}, {}},
    };
    for (const auto& c : cases) {
        const lightroom_importer preset = preset_with(c.settings);
        EXPECT_EQ(not_carried_over(preset, keys_a_conversion_reads(preset)), c.expected) << c.name;
    }

    const QString corpus = test_support::corpus_dir();
    if (corpus.isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    lightroom_importer preset;
    preset.read_lrpreset(corpus + "/lrtemplate/d5-cooling-mode-hi-dehaze.lrtemplate");
    const QStringList missing = not_carried_over(preset, keys_a_conversion_reads(preset));
    EXPECT_TRUE(missing.contains("Dehaze") && missing.contains("CameraProfile"));
    for (const char* carried : {"Exposure2012", "Temperature", "Sharpness", "title", "ProcessVersion"}) {
        EXPECT_TRUE(preset.settings.contains(carried)) << carried;
        EXPECT_FALSE(missing.contains(carried)) << carried;
    }
}
