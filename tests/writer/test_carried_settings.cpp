#include "costyle_test_support.h"

#include "writer/carried_settings.h"

#include "test_support.h"

#include <gtest/gtest.h>

using namespace writer_test;

TEST(not_carried_over, lists_unread_develop_settings_in_key_order)
{
    const lightroom_importer preset = preset_with({{"Texture", "20"},
                                                   {"Dehaze", "10"},
                                                   {"Exposure2012", "0.5"},
                                                   {"ColorGradeMidtoneHue", "30"},
                                                   {"CameraProfile", "Adobe Standard"},
                                                   {"Vibrance", "10"},
                                                   {"HueAdjustmentMagenta", "5"},
                                                   {"GrainFrequency", "50"},
                                                   {"GrainSize", "20"}});
    EXPECT_EQ(not_carried_over(preset),
              (QStringList{"CameraProfile", "ColorGradeMidtoneHue", "Dehaze", "GrainFrequency", "Texture"}));
}

TEST(not_carried_over, leaves_out_bookkeeping_keys)
{
    const lightroom_importer preset = preset_with({{"title", "Warm"},
                                                   {"uuid", "1234"},
                                                   {"id", "5678"},
                                                   {"internalName", "Warm"},
                                                   {"type", "Develop"},
                                                   {"version", "0"},
                                                   {"about", ""},
                                                   {"Name", "Warm"},
                                                   {"ProcessVersion", "11.0"},
                                                   {"PresetType", "Normal"},
                                                   {"SupportsMonochrome", "True"},
                                                   {"ToneCurveName2012", "Linear"},
                                                   {"", ""}});
    EXPECT_TRUE(not_carried_over(preset).isEmpty()) << not_carried_over(preset).join(' ').toStdString();
}

TEST(not_carried_over, follows_the_conditions_under_which_groups_read)
{
    struct condition_case {
        const char* name;
        setting_list settings;
        QStringList expected;
    };
    const std::vector<condition_case> cases = {
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
    for (const condition_case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(not_carried_over(preset_with(c.settings)), c.expected);
    }
}

TEST(not_carried_over, names_what_a_real_preset_loses)
{
    const QString corpus = test_support::corpus_dir();
    if (corpus.isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    lightroom_importer preset;
    preset.read_lrpreset(corpus + QStringLiteral("/lrtemplate/d5-cooling-mode-hi-dehaze.lrtemplate"));
    ASSERT_TRUE(preset.settings.contains(QStringLiteral("Exposure2012")));
    const QStringList missing = not_carried_over(preset);
    EXPECT_TRUE(missing.contains(QStringLiteral("Dehaze")));
    EXPECT_TRUE(missing.contains(QStringLiteral("CameraProfile")));
    for (const char* carried : {"Exposure2012", "Temperature", "Sharpness", "title", "ProcessVersion"})
        EXPECT_FALSE(missing.contains(QLatin1String(carried))) << carried;
    QStringList sorted = missing;
    sorted.sort();
    EXPECT_EQ(missing, sorted);
}
