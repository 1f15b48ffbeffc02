// SPDX-License-Identifier: GPL-3.0-or-later
// Conversion speed over the shared corpus of real presets, the way a conversion
// run does it: read the preset, build a new writer (which loads its colour
// tables), check it and create the style. The templates the reader rejects are
// left out. Counter "per_preset" is the average time for one preset (lower is
// better; the aim is under 1.5 ms in a Release build). The parts are measured
// on their own as well, to show where the time goes.

#include "writer/colour_space.h"
#include "conversion/preset_reading.h"
#include "importer/lightroom_importer.h"
#include "writer/costyle_writer.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QLoggingCategory>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <exception>

namespace {

// The presets of the corpus that read without an error, in path order.
const QStringList& readable_presets()
{
    static const QStringList presets = [] {
        QStringList found;
        QDirIterator it(QStringLiteral(STYLEWRIGHT_CORPUS_DIR), QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = it.next();
            if (preset_format_of(path) == preset_format::unsupported)
                continue;
            try {
                lightroom_importer record;
                read_preset(path, record);
                found.append(path);
            } catch (const std::exception&) {
            }
        }
        std::sort(found.begin(), found.end());
        return found;
    }();
    return presets;
}

void set_per_preset(benchmark::State& state, int presets)
{
    state.counters["per_preset"] = benchmark::Counter(double(presets), benchmark::Counter::kIsIterationInvariantRate |
                                                                           benchmark::Counter::kInvert);
    state.SetItemsProcessed(state.iterations() * presets);
}

void convert_every_preset(benchmark::State& state)
{
    const QStringList& presets = readable_presets();
    if (presets.isEmpty()) {
        state.SkipWithError("corpus folder absent");
        return;
    }
    const QString space = colour_space_name(colour_space::raw);
    for (auto _ : state) {
        for (const QString& path : presets) {
            lightroom_importer record;
            read_preset(path, record);
            const costyle_writer writer;
            bool white_balance = false;
            bool dehaze = false;
            bool lut = false;
            bool camera_calibration = false;
            writer.check_costyle(white_balance, dehaze, lut, camera_calibration, record);
            QString style;
            writer.create_costyle(record, style, space);
            benchmark::DoNotOptimize(style.constData());
        }
    }
    set_per_preset(state, presets.size());
}
BENCHMARK(convert_every_preset)->Unit(benchmark::kMillisecond);

void read_every_preset(benchmark::State& state)
{
    const QStringList& presets = readable_presets();
    for (auto _ : state) {
        for (const QString& path : presets) {
            lightroom_importer record;
            read_preset(path, record);
            benchmark::DoNotOptimize(record.settings.size());
        }
    }
    set_per_preset(state, presets.size());
}
BENCHMARK(read_every_preset)->Unit(benchmark::kMillisecond);

void construct_writer(benchmark::State& state)
{
    for (auto _ : state) {
        const costyle_writer writer;
        benchmark::DoNotOptimize(&writer);
    }
}
BENCHMARK(construct_writer)->Unit(benchmark::kMicrosecond);

void create_every_style(benchmark::State& state)
{
    QVector<lightroom_importer> records;
    for (const QString& path : readable_presets()) {
        records.append(lightroom_importer());
        read_preset(path, records.last());
    }
    const costyle_writer writer;
    const QString space = colour_space_name(colour_space::srgb);
    for (auto _ : state) {
        for (const lightroom_importer& record : records) {
            QString style;
            writer.create_costyle(record, style, space);
            benchmark::DoNotOptimize(style.constData());
        }
    }
    set_per_preset(state, records.size());
}
BENCHMARK(create_every_style)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    // The mapping logs its decisions; a batch tool does not show them and neither
    // should the measurement pay for them.
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\n*.info=false"));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
