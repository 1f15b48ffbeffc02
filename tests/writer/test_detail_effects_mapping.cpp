// SPDX-License-Identifier: GPL-3.0-or-later
#include "costyle_test_support.h"

TEST(detail_effects_mapping, copies_detail_and_maps_vignetting_and_grain)
{
    check_mapping({
        {"detail copied unscaled", "adobe",
         {{"Sharpness", "40"}, {"SharpenRadius", "1.2"}, {"LuminanceSmoothing", "15"}, {"ColorNoiseReduction", "25"},
          {"LuminanceNoiseReductionDetail", "50"}},
         {{"UsmAmount", "40.000000"}, {"UsmRadius", "1.200000"}, {"NrAmount", "15.000000"}, {"CnrAmount", "25.000000"},
          {"NoiseDetailsAmount", "50.000000"}}},
        {"grain", "adobe", {{"GrainAmount", "25"}, {"GrainSize", "20"}},
         {{"FilmGrainAmount", "25.000000"}, {"FilmGrainDensity", "0"}, {"FilmGrainGranularity", "50"}}},
        {"grain amount that is no number", "adobe", {{"GrainAmount", "lots"}, {"GrainSize", "20"}},
         {{"FilmGrainAmount", nullptr}, {"FilmGrainDensity", "0"}, {"FilmGrainType", "1"}}},
        {"no size", "adobe", {{"GrainAmount", "25"}}, {{"FilmGrainAmount", nullptr}, {"FilmGrainType", nullptr}}},
        {"no amount", "adobe", {{"GrainSize", "20"}}, {{"FilmGrainDensity", nullptr}, {"FilmGrainType", nullptr}}},
        {"grain size that is no number", "adobe", {{"GrainAmount", "25"}, {"GrainSize", "fine"}},
         {{"FilmGrainAmount", nullptr}, {"FilmGrainGranularity", nullptr}}},
    });
    // Grain type by size; type 3 is never chosen.
    const std::pair<const char*, const char*> size_to_type[] = {{"0", "0"},  {"10", "0"}, {"10.5", "1"}, {"22", "1"},
                                                                {"30", "2"}, {"31", "4"}, {"45", "4"},   {"46", "5"},
                                                                {"250", "5"}, {"-5", "0"}};
    for (const auto& [size, type] : size_to_type) {
        const parsed_style style = convert_to_style(preset_with({{"GrainAmount", "25"}, {"GrainSize", size}}));
        EXPECT_EQ(style.value("FilmGrainType"), type) << size;
    }
    // Vignetting needs both keys as numbers: amount in EV (clamped), elliptic below roundness 30.
    const std::tuple<const char*, const char*, const char*> vignettes[] = {
        {"-30", "0", "-2.000000|1|0|1"}, {"-100", "50", "-4.000000|1|0|0"}, {"45", "30", "3.000000|1|0|0"},
        {"45", "29.9", "3.000000|1|0|1"}, {"-30", nullptr, nullptr},       {"-30", "round", nullptr}};
    for (const auto& [amount, roundness, expected] : vignettes) {
        lightroom_importer preset = preset_with({{"PostCropVignetteAmount", amount}});
        if (roundness)
            preset.settings.insert("PostCropVignetteRoundness", roundness);
        const parsed_style style = convert_to_style(preset);
        EXPECT_EQ(style.has("Vignetting") ? style.value("Vignetting") : "absent", expected ? expected : "absent");
    }
}

TEST(point_curve_mapping, softens_the_master_curve_unless_grayscale_and_compensates_channel_curves)
{
    lightroom_importer preset = preset_with({{"Highlights2012", "50"}});
    preset.tone_curve = {{0, 40}, {255, 255}};
    // (0, 40) is pulled halfway to the diagonal: 20/255; the tone group's luma curve has its own key and stays.
    parsed_style style = convert_to_style(preset);
    EXPECT_TRUE(style.value("GradationCurve").startsWith("0.000000,0.078431;0.121569,"));
    EXPECT_TRUE(style.value("GradationCurve").endsWith(";1.000000,1.000000"));
    EXPECT_TRUE(style.value("GradationCurveY").contains("0.6000,0.655000"));
    EXPECT_FALSE(style.has("GradationCurveRed"));
    preset.settings.insert("ConvertToGrayscale", "true");
    EXPECT_TRUE(convert_to_style(preset).value("GradationCurve").startsWith("0.000000,0.156863;"));

    // Without a master curve the channel curves meet the straight line, in every colour space.
    const QString identity_samples = "0.000000,0.000000;0.121569,0.121569;0.247059,0.247059;0.372549,0.372549;"
                                     "0.498039,0.498039;0.623529,0.623529;0.749020,0.749020;0.874510,0.874510;"
                                     "1.000000,1.000000";
    preset.tone_curve.clear();
    preset.tone_curve_red = preset.tone_curve_blue = {{0, 0}, {255, 255}};
    for (const char* colour_space : {"adobe", "srgb", "prophoto", "widegamut", "raw", "other"}) {
        style = convert_to_style(preset, colour_space);
        EXPECT_EQ(style.value("GradationCurveRed"), identity_samples) << colour_space;
        EXPECT_EQ(style.value("GradationCurveBlue"), identity_samples) << colour_space;
        EXPECT_FALSE(style.has("GradationCurveGreen") || style.has("GradationCurve")) << colour_space;
    }
    // Curves the spline cannot use are left out with a warning.
    preset.tone_curve = {{128, 128}};
    preset.tone_curve_green = {{255, 255}, {0, 0}};
    const log_capture log;
    style = convert_to_style(preset);
    EXPECT_FALSE(style.has("GradationCurve") || style.has("GradationCurveGreen"));
    EXPECT_EQ(style.value("GradationCurveBlue"), identity_samples);
    for (const char* curve : {"ToneCurvePV2012", "ToneCurvePV2012Green"})
        EXPECT_TRUE(log.warnings().contains(QStringLiteral("Point curve %1 is left out: it needs at least two points "
                                                           "with x ascending at least 1 apart.").arg(curve)));
}
