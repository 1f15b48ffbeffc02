// SPDX-License-Identifier: GPL-3.0-or-later
// Cost of constructing one style writer: three colour tables inflated from the
// compiled-in resources and parsed, plus the identity table. Every conversion
// of a preset pays it once.

#include "color/colour_table.h"
#include "writer/costyle_writer.h"

#include <QFile>
#include <benchmark/benchmark.h>

namespace {

void writer_construction(benchmark::State& state)
{
    for (auto _ : state) {
        costyle_writer writer;
        benchmark::DoNotOptimize(writer.table(costyle_writer::srgb).entries.data());
    }
}
BENCHMARK(writer_construction)->Unit(benchmark::kMicrosecond);

// The parts of it: inflating one table, and parsing it from memory.
void inflate_one_table(benchmark::State& state)
{
    costyle_writer registers_resources;
    for (auto _ : state) {
        QFile file(QStringLiteral(":/data/ProPhotoRGB_to_sRGB.3dl"));
        file.open(QIODevice::ReadOnly);
        benchmark::DoNotOptimize(file.readAll().size());
    }
}
BENCHMARK(inflate_one_table)->Unit(benchmark::kMicrosecond);

void parse_one_table(benchmark::State& state)
{
    costyle_writer registers_resources;
    QFile file(QStringLiteral(":/data/ProPhotoRGB_to_sRGB.3dl"));
    file.open(QIODevice::ReadOnly);
    const QByteArray data = file.readAll();
    colour_table table;
    for (auto _ : state) {
        load_3dl_from_data(table, data);
        benchmark::DoNotOptimize(table.entries.data());
    }
}
BENCHMARK(parse_one_table)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
