// libFuzzer harness: the 3DL reader over arbitrary bytes, then lookups in
// whatever table it accepted. stk::exception is its answer to a broken file;
// anything else, and every sanitizer report, is a finding.
#include "color/colour_table.h"
#include "color/stk_exception.h"
#include "fuzz_support.h"

namespace {

// Corners, the middle and odd values: every cell-index edge case of the
// interpolation.
constexpr int probes[][3] = {{0, 0, 0}, {255, 255, 255}, {128, 64, 32}, {1, 254, 127}, {255, 0, 255}};

} // namespace

// Global, so the lookups written into it cannot be optimised away.
volatile float fuzz_3dl_sink = 0.0f;

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz_support::silence_qt_messages();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    colour_table table;
    try {
        load_3dl_from_data(table, QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    } catch (const stk::exception&) {
        return 0;
    }
    for (const auto& p : probes) {
        const colour_entry e = table.lookup(p[0], p[1], p[2]);
        fuzz_3dl_sink = e.r + e.g + e.b + e.a;
    }
    return 0;
}
