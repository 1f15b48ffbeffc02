// libFuzzer harness: the nested-template reader over arbitrary text. A syntax
// error is the reader's answer to bad input (std::runtime_error); anything
// else that escapes, and every sanitizer report, is a finding.
#include "fuzz_support.h"
#include "importer/lightroom_importer.h"

#include <stdexcept>

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz_support::silence_qt_messages();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString text = fuzz_support::template_text(data, size);
    lightroom_importer record;
    try {
        record.read_regular_lrpreset(text);
    } catch (const std::runtime_error&) {
        // Entries stored before the error stay; they must still be whole.
    }
    for (auto it = record.settings.cbegin(); it != record.settings.cend(); ++it)
        (void)it.value().size();
    return 0;
}
