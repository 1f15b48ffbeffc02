// SPDX-License-Identifier: GPL-3.0-or-later
// Reading speed of the preset readers over the shared corpus of real presets:
// every template through read_lrpreset, every XMP file through read_xmp.
// Counters: "per_file" and "per_KB" are the average time to read one file
// and one kilobyte of file (lower is better).

#include "importer/lightroom_importer.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>
#include <benchmark/benchmark.h>
#include <stdexcept>

namespace {

struct corpus_set {
    QStringList paths;
    QVector<QByteArray> contents;
    double kilobytes = 0;
};

corpus_set load(const QString& folder)
{
    corpus_set set;
    const QDir dir(QDir(QStringLiteral(STYLEWRIGHT_CORPUS_DIR)).filePath(folder));
    for (const QFileInfo& info : dir.entryInfoList(QDir::Files, QDir::Name)) {
        QFile file(info.absoluteFilePath());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        set.paths << info.absoluteFilePath();
        set.contents << file.readAll();
        set.kilobytes += double(set.contents.last().size()) / 1024.0;
    }
    return set;
}

const corpus_set& templates()
{
    static const corpus_set set = load(QStringLiteral("lrtemplate"));
    return set;
}

const corpus_set& xmp_files()
{
    static const corpus_set set = load(QStringLiteral("xmp"));
    return set;
}

void set_counters(benchmark::State& state, const corpus_set& set)
{
    using benchmark::Counter;
    state.counters["files"] = double(set.paths.size());
    state.counters["per_file"] = Counter(double(set.paths.size()), Counter::kIsIterationInvariantRate | Counter::kInvert);
    state.counters["per_KB"] = Counter(set.kilobytes, Counter::kIsIterationInvariantRate | Counter::kInvert);
}

// The readers log every setting at debug level; the benchmark measures the
// reading, not the terminal.
void discard_messages(QtMsgType, const QMessageLogContext&, const QString&) {}

void read_templates(benchmark::State& state)
{
    const corpus_set& set = templates();
    if (set.paths.isEmpty()) {
        state.SkipWithError("corpus folder absent");
        return;
    }
    for (auto _ : state) {
        for (const QString& path : set.paths) {
            lightroom_importer record;
            try {
                record.read_lrpreset(path);
            } catch (const std::runtime_error&) {
                // Files that are not well-formed templates are part of the corpus.
            }
            benchmark::DoNotOptimize(record.settings);
        }
    }
    set_counters(state, set);
}
BENCHMARK(read_templates)->Unit(benchmark::kMillisecond);

void read_xmp(benchmark::State& state)
{
    const corpus_set& set = xmp_files();
    if (set.paths.isEmpty()) {
        state.SkipWithError("corpus folder absent");
        return;
    }
    for (auto _ : state) {
        for (const QString& path : set.paths) {
            lightroom_importer record;
            record.read_xmp(path);
            benchmark::DoNotOptimize(record.settings);
        }
    }
    set_counters(state, set);
}
BENCHMARK(read_xmp)->Unit(benchmark::kMillisecond);

// The same without opening files: decoding and parsing only.
void parse_templates_in_memory(benchmark::State& state)
{
    const corpus_set& set = templates();
    if (set.paths.isEmpty()) {
        state.SkipWithError("corpus folder absent");
        return;
    }
    QStringList texts;
    for (const QByteArray& bytes : set.contents)
        texts << QString::fromUtf8(bytes);
    for (auto _ : state) {
        for (const QString& text : texts) {
            lightroom_importer record;
            try {
                record.read_regular_lrpreset(text);
            } catch (const std::runtime_error&) {
            }
            benchmark::DoNotOptimize(record.settings);
        }
    }
    set_counters(state, set);
}
BENCHMARK(parse_templates_in_memory)->Unit(benchmark::kMillisecond);

void parse_xmp_in_memory(benchmark::State& state)
{
    const corpus_set& set = xmp_files();
    if (set.paths.isEmpty()) {
        state.SkipWithError("corpus folder absent");
        return;
    }
    for (auto _ : state) {
        for (const QByteArray& bytes : set.contents) {
            lightroom_importer record;
            record.read_xmp_data(bytes);
            benchmark::DoNotOptimize(record.settings);
        }
    }
    set_counters(state, set);
}
BENCHMARK(parse_xmp_in_memory)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    qInstallMessageHandler(discard_messages);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
