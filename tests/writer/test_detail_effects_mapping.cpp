#include "costyle_test_support.h"

#include <gtest/gtest.h>

using namespace writer_test;

namespace {

const QString identity_samples = QStringLiteral(
    "0.000000,0.000000;0.121569,0.121569;0.247059,0.247059;0.372549,0.372549;0.498039,0.498039;"
    "0.623529,0.623529;0.749020,0.749020;0.874510,0.874510;1.000000,1.000000");

const QVector<QPoint> straight = {QPoint(0, 0), QPoint(255, 255)};

} // namespace

TEST(detail_mapping, copies_sharpening_and_noise_unscaled)
{
    const parsed_style style = convert_to_style(preset_with({{"Sharpness", "40"},
                                                             {"SharpenRadius", "1.2"},
                                                             {"LuminanceSmoothing", "15"},
                                                             {"ColorNoiseReduction", "25"},
                                                             {"LuminanceNoiseReductionDetail", "50"}}));
    EXPECT_EQ(style.value("UsmAmount"), "40.000000");
    EXPECT_EQ(style.value("UsmRadius"), "1.200000");
    EXPECT_EQ(style.value("NrAmount"), "15.000000");
    EXPECT_EQ(style.value("CnrAmount"), "25.000000");
    EXPECT_EQ(style.value("NoiseDetailsAmount"), "50.000000");
}

TEST(vignetting_mapping, needs_amount_and_roundness)
{
    struct vignette_case {
        setting_list settings;
        const char* expected; // nullptr: no entry
    };
    const std::vector<vignette_case> cases = {
        {{{"PostCropVignetteAmount", "-30"}, {"PostCropVignetteRoundness", "0"}}, "-2.000000|1|0|1"},
        {{{"PostCropVignetteAmount", "-100"}, {"PostCropVignetteRoundness", "50"}}, "-4.000000|1|0|0"},
        {{{"PostCropVignetteAmount", "45"}, {"PostCropVignetteRoundness", "30"}}, "3.000000|1|0|0"},
        {{{"PostCropVignetteAmount", "45"}, {"PostCropVignetteRoundness", "29.9"}}, "3.000000|1|0|1"},
        {{{"PostCropVignetteAmount", "-30"}}, nullptr},
        {{{"PostCropVignetteAmount", "-30"}, {"PostCropVignetteRoundness", "round"}}, nullptr},
    };
    for (const vignette_case& c : cases) {
        const parsed_style style = convert_to_style(preset_with(c.settings));
        if (c.expected == nullptr)
            EXPECT_FALSE(style.has("Vignetting"));
        else
            EXPECT_EQ(style.value("Vignetting").toStdString(), c.expected);
    }
}

TEST(grain_mapping, picks_the_type_by_size_and_skips_type_3)
{
    const std::vector<std::pair<const char*, const char*>> size_to_type = {
        {"0", "0"},  {"10", "0"}, {"10.5", "1"}, {"22", "1"}, {"30", "2"},
        {"31", "4"}, {"45", "4"}, {"46", "5"},   {"250", "5"}, {"-5", "0"},
    };
    for (const auto& [size, type] : size_to_type) {
        SCOPED_TRACE(size);
        const parsed_style style = convert_to_style(preset_with({{"GrainAmount", "25"}, {"GrainSize", size}}));
        EXPECT_EQ(style.value("FilmGrainType").toStdString(), type);
        EXPECT_EQ(style.value("FilmGrainAmount"), "25.000000");
        EXPECT_EQ(style.value("FilmGrainDensity"), "0");
        EXPECT_EQ(style.value("FilmGrainGranularity"), "50");
    }
}

TEST(grain_mapping, writes_nothing_without_a_valid_size_and_no_amount_that_is_no_number)
{
    const parsed_style text_amount = convert_to_style(preset_with({{"GrainAmount", "lots"}, {"GrainSize", "20"}}));
    EXPECT_FALSE(text_amount.has("FilmGrainAmount"));
    EXPECT_EQ(text_amount.value("FilmGrainType"), "1");
    EXPECT_TRUE(text_amount.has("FilmGrainDensity"));

    for (const setting_list& settings : {setting_list{{"GrainAmount", "25"}}, setting_list{{"GrainSize", "20"}},
                                         setting_list{{"GrainAmount", "25"}, {"GrainSize", "fine"}}}) {
        const parsed_style style = convert_to_style(preset_with(settings));
        for (const char* key : {"FilmGrainAmount", "FilmGrainDensity", "FilmGrainGranularity", "FilmGrainType"})
            EXPECT_FALSE(style.has(key)) << key;
    }
}

TEST(point_curve_mapping, softens_the_master_curve_unless_grayscale)
{
    lightroom_importer colour = preset_with({});
    colour.tone_curve = {QPoint(0, 40), QPoint(255, 255)};
    const parsed_style colour_style = convert_to_style(colour);
    // (0, 40) is pulled halfway to the diagonal: 20/255.
    EXPECT_TRUE(colour_style.value("GradationCurve").startsWith("0.000000,0.078431;")) << qPrintable(colour_style.value("GradationCurve"));
    EXPECT_TRUE(colour_style.value("GradationCurve").endsWith(";1.000000,1.000000"));
    EXPECT_FALSE(colour_style.has("GradationCurveRed"));

    lightroom_importer grayscale = colour;
    grayscale.settings.insert("ConvertToGrayscale", "true");
    EXPECT_TRUE(convert_to_style(grayscale).value("GradationCurve").startsWith("0.000000,0.156863;"));
}

TEST(point_curve_mapping, compensates_channel_curves_in_every_colour_space)
{
    lightroom_importer preset = preset_with({{"ConvertToGrayscale", "true"}});
    preset.tone_curve_red = straight;
    preset.tone_curve_blue = straight;
    for (const char* colour_space : {"adobe", "srgb", "prophoto", "widegamut", "raw", "other"}) {
        SCOPED_TRACE(colour_space);
        const parsed_style style = convert_to_style(preset, colour_space);
        // Without a master curve the channel curve meets the straight line:
        // its nine samples minus nothing.
        EXPECT_EQ(style.value("GradationCurveRed"), identity_samples);
        EXPECT_EQ(style.value("GradationCurveBlue"), identity_samples);
        EXPECT_FALSE(style.has("GradationCurveGreen"));
        EXPECT_FALSE(style.has("GradationCurve"));
    }
}

TEST(point_curve_mapping, leaves_out_curves_the_spline_cannot_use_with_a_warning)
{
    lightroom_importer preset = preset_with({});
    preset.tone_curve = {QPoint(128, 128)};
    preset.tone_curve_green = {QPoint(255, 255), QPoint(0, 0)};
    preset.tone_curve_blue = straight;
    const message_log log;
    const parsed_style style = convert_to_style(preset);
    EXPECT_FALSE(style.has("GradationCurve"));
    EXPECT_FALSE(style.has("GradationCurveGreen"));
    EXPECT_EQ(style.value("GradationCurveBlue"), identity_samples);
    EXPECT_TRUE(log.contains("Point curve ToneCurvePV2012 is left out"));
    EXPECT_TRUE(log.contains("Point curve ToneCurvePV2012Green is left out"));
}

TEST(point_curve_mapping, keeps_the_luma_curve_of_the_tone_group_beside_the_point_curve)
{
    lightroom_importer preset = preset_with({{"Highlights2012", "50"}});
    preset.tone_curve = straight;
    const parsed_style style = convert_to_style(preset);
    EXPECT_EQ(style.value("GradationCurve"), identity_samples);
    // The tone group's luma curve has its own key and stays.
    EXPECT_TRUE(style.value("GradationCurveY").contains("0.6000,0.655000"));
}
