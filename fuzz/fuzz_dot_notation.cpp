// libFuzzer harness: the dotted-template reader over arbitrary text. It has
// no failure path at all, so any exception or sanitizer report is a finding.
#include "fuzz_support.h"
#include "importer/lightroom_importer.h"

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz_support::silence_qt_messages();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString text = fuzz_support::template_text(data, size);
    lightroom_importer record;
    record.read_dot_notation_lrpreset(text);
    return 0;
}
