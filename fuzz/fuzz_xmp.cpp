// libFuzzer harness: the XMP reader over arbitrary bytes. It logs and goes on
// instead of failing, so any exception or sanitizer report is a finding.
#include "fuzz_support.h"
#include "importer/lightroom_importer.h"

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz_support::silence_qt_messages();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    lightroom_importer record;
    record.read_xmp_data(QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    return 0;
}
