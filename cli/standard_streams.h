// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Standard output and error carry exactly the bytes written: a style sent to
// --stdout keeps its LF line ends and every message line reads the same on
// every system. Windows' C runtime would otherwise turn each LF into CR LF.
void keep_standard_streams_byte_exact();
