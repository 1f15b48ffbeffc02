// SPDX-License-Identifier: GPL-3.0-or-later
// Time of one style conversion (the writer already built), for a preset that
// reaches every mapping group and for an empty one.

#include "writer/colour_space.h"
#include "importer/lightroom_importer.h"
#include "writer/costyle_writer.h"

#include <QCoreApplication>
#include <QtGlobal>

#include <benchmark/benchmark.h>

namespace {

lightroom_importer full_preset()
{
    lightroom_importer preset;
    const char* const settings[][2] = {
        {"Temperature", "6500"}, {"Tint", "12"}, {"Exposure2012", "0.35"}, {"Contrast2012", "20"},
        {"Highlights2012", "-40"}, {"Shadows2012", "30"}, {"Whites2012", "15"}, {"Blacks2012", "-10"},
        {"Clarity2012", "25"}, {"Saturation", "-5"}, {"Vibrance", "20"}, {"HueAdjustmentRed", "10"},
        {"SaturationAdjustmentOrange", "-20"}, {"LuminanceAdjustmentBlue", "15"}, {"HueAdjustmentAqua", "-35"},
        {"SplitToningShadowHue", "220"}, {"SplitToningShadowSaturation", "25"}, {"SplitToningHighlightHue", "45"},
        {"SplitToningHighlightSaturation", "30"}, {"SplitToningBalance", "20"}, {"ParametricShadows", "-10"},
        {"Sharpness", "40"}, {"PostCropVignetteAmount", "-20"}, {"PostCropVignetteRoundness", "10"},
        {"GrainAmount", "25"}, {"GrainSize", "30"},
    };
    for (const auto& setting : settings)
        preset.settings.insert(QString::fromLatin1(setting[0]), QString::fromLatin1(setting[1]));
    preset.name = QStringLiteral("Benchmark");
    preset.tone_curve = {QPoint(0, 0), QPoint(64, 58), QPoint(128, 140), QPoint(192, 200), QPoint(255, 255)};
    preset.tone_curve_red = {QPoint(0, 10), QPoint(128, 135), QPoint(255, 250)};
    preset.tone_curve_green = {QPoint(0, 0), QPoint(255, 255)};
    preset.tone_curve_blue = {QPoint(0, 0), QPoint(128, 120), QPoint(255, 245)};
    return preset;
}

void silent(QtMsgType, const QMessageLogContext&, const QString&) {}

void convert(benchmark::State& state, const lightroom_importer& preset)
{
    qInstallMessageHandler(silent); // the curve steps log every point
    const costyle_writer writer;
    const QString space = colour_space_name(colour_space::srgb);
    for (auto _ : state) {
        QString out;
        writer.create_costyle(preset, out, space);
        benchmark::DoNotOptimize(out);
    }
    qInstallMessageHandler(nullptr);
}

void bm_create_costyle_full_preset(benchmark::State& state)
{
    convert(state, full_preset());
}
BENCHMARK(bm_create_costyle_full_preset);

void bm_create_costyle_empty_preset(benchmark::State& state)
{
    convert(state, lightroom_importer());
}
BENCHMARK(bm_create_costyle_empty_preset);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
