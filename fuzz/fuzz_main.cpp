// SPDX-License-Identifier: GPL-3.0-or-later
// The libFuzzer entry points of one harness; STYLEWRIGHT_FUZZ_TARGET names
// the function of fuzz_targets.h it drives.
#include "fuzz_targets.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz_targets::silence_qt_messages();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz_targets::STYLEWRIGHT_FUZZ_TARGET(
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    return 0;
}
