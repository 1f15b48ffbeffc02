// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/standard_streams.h"

// POSIX streams never translate line ends.
void keep_standard_streams_byte_exact() {}
