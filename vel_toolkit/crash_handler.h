// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace vel {

// On a fatal signal (segmentation fault, bus error, illegal instruction,
// arithmetic error, abort) prints the signal's name and a stack trace to
// standard error, then lets the signal end the process as it would have.
// Does nothing where the platform offers no stack trace.
void install_crash_handler();

} // namespace vel
