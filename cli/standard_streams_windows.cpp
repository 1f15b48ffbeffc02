// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/standard_streams.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>

void keep_standard_streams_byte_exact()
{
    std::fflush(stdout);
    std::fflush(stderr);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}
