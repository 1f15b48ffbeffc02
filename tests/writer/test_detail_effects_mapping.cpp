#include "costyle_test_support.h"

using namespace writer_test;

namespace {

TEST(detail_effects_mapping, copies_detail_and_maps_vignetting_and_grain)
{
    check_mapping({
        {"detail copied unscaled", "adobe",
         {{"Sharpness", "40"}, {"SharpenRadius", "1.2"}, {"LuminanceSmoothing", "15"}, {"ColorNoiseReduction", "25"},
          {"LuminanceNoiseReductionDetail", "50"}},
         {{"UsmAmount", "40.000000"}, {"UsmRadius", "1.200000"}, {"NrAmount", "15.000000"}, {"CnrAmount", "25.000000"},
          {"NoiseDetailsAmount", "50.000000"}}},
        {"elliptic vignette", "adobe", {{"PostCropVignetteAmount", "-30"}, {"PostCropVignetteRoundness", "0"}},
         {{"Vignetting", "-2.000000|1|0|1"}}},
        {"amount clamped", "adobe", {{"PostCropVignetteAmount", "-100"}, {"PostCropVignetteRoundness", "50"}},
         {{"Vignetting", "-4.000000|1|0|0"}}},
        {"roundness 30 is round", "adobe", {{"PostCropVignetteAmount", "45"}, {"PostCropVignetteRoundness", "30"}},
         {{"Vignetting", "3.000000|1|0|0"}}},
        {"roundness 29.9 is elliptic", "adobe",
         {{"PostCropVignetteAmount", "45"}, {"PostCropVignetteRoundness", "29.9"}}, {{"Vignetting", "3.000000|1|0|1"}}},
        {"vignette without roundness", "adobe", {{"PostCropVignetteAmount", "-30"}}, {{"Vignetting", nullptr}}},
        {"roundness that is no number", "adobe",
         {{"PostCropVignetteAmount", "-30"}, {"PostCropVignetteRoundness", "round"}}, {{"Vignetting", nullptr}}},
        {"grain", "adobe", {{"GrainAmount", "25"}, {"GrainSize", "20"}},
         {{"FilmGrainAmount", "25.000000"}, {"FilmGrainDensity", "0"}, {"FilmGrainGranularity", "50"},
          {"FilmGrainType", "1"}}},
        {"grain amount that is no number", "adobe", {{"GrainAmount", "lots"}, {"GrainSize", "20"}},
         {{"FilmGrainAmount", nullptr}, {"FilmGrainDensity", "0"}, {"FilmGrainType", "1"}}},
        {"grain without size", "adobe", {{"GrainAmount", "25"}},
         {{"FilmGrainAmount", nullptr}, {"FilmGrainDensity", nullptr}, {"FilmGrainType", nullptr}}},
        {"grain without amount", "adobe", {{"GrainSize", "20"}},
         {{"FilmGrainDensity", nullptr}, {"FilmGrainGranularity", nullptr}, {"FilmGrainType", nullptr}}},
        {"grain size that is no number", "adobe", {{"GrainAmount", "25"}, {"GrainSize", "fine"}},
         {{"FilmGrainAmount", nullptr}, {"FilmGrainType", nullptr}}},
    });
    // Grain type by size; type 3 is never chosen.
    const std::pair<const char*, const char*> size_to_type[] = {
        {"0", "0"}, {"10", "0"}, {"10.5", "1"}, {"22", "1"}, {"30", "2"},
        {"31", "4"}, {"45", "4"}, {"46", "5"}, {"250", "5"}, {"-5", "0"}};
    for (const auto& [size, type] : size_to_type)
        EXPECT_EQ(convert_to_style(preset_with({{"GrainAmount", "25"}, {"GrainSize", size}})).value("FilmGrainType"), type)
            << size;
}

const QString identity_samples = "0.000000,0.000000;0.121569,0.121569;0.247059,0.247059;0.372549,0.372549;"
                                 "0.498039,0.498039;0.623529,0.623529;0.749020,0.749020;0.874510,0.874510;"
                                 "1.000000,1.000000";
const QVector<QPoint> straight = {{0, 0}, {255, 255}};

TEST(point_curve_mapping, softens_the_master_curve_unless_grayscale)
{
    lightroom_importer colour;
    colour.tone_curve = {{0, 40}, {255, 255}};
    colour.settings.insert("Highlights2012", "50");
    const parsed_style style = convert_to_style(colour);
    // (0, 40) is pulled halfway to the diagonal: 20/255.
    EXPECT_TRUE(style.value("GradationCurve").startsWith("0.000000,0.078431;0.121569,"));
    EXPECT_TRUE(style.value("GradationCurve").endsWith(";1.000000,1.000000"));
    EXPECT_FALSE(style.has("GradationCurveRed"));
    // The tone group's luma curve has its own key and stays.
    EXPECT_TRUE(style.value("GradationCurveY").contains("0.6000,0.655000"));

    lightroom_importer grayscale = colour;
    grayscale.settings.insert("ConvertToGrayscale", "true");
    EXPECT_TRUE(convert_to_style(grayscale).value("GradationCurve").startsWith("0.000000,0.156863;"));
}

TEST(point_curve_mapping, compensates_channel_curves_and_leaves_out_unusable_ones)
{
    lightroom_importer preset = preset_with({{"ConvertToGrayscale", "true"}});
    preset.tone_curve_red = straight;
    preset.tone_curve_blue = straight;
    for (const char* colour_space : {"adobe", "srgb", "prophoto", "widegamut", "raw", "other"}) {
        SCOPED_TRACE(colour_space);
        // Without a master curve the channel curves meet the straight line.
        const parsed_style style = convert_to_style(preset, colour_space);
        EXPECT_EQ(style.value("GradationCurveRed"), identity_samples);
        EXPECT_EQ(style.value("GradationCurveBlue"), identity_samples);
        EXPECT_FALSE(style.has("GradationCurveGreen") || style.has("GradationCurve"));
    }
    preset.tone_curve = {{128, 128}};
    preset.tone_curve_green = {{255, 255}, {0, 0}};
    const log_capture log;
    const parsed_style style = convert_to_style(preset);
    EXPECT_FALSE(style.has("GradationCurve") || style.has("GradationCurveGreen"));
    EXPECT_EQ(style.value("GradationCurveBlue"), identity_samples);
    for (const char* curve : {"ToneCurvePV2012", "ToneCurvePV2012Green"})
        EXPECT_TRUE(log.warnings().contains(QStringLiteral("Point curve %1 is left out: it needs at least two points "
                                                           "with x ascending at least 1 apart.").arg(curve)));
}

} // namespace
