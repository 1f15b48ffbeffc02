// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace vel {

// On a fatal signal (segmentation fault, bus error, illegal instruction,
// arithmetic error, abort), or on Windows an unhandled exception (access
// violation, stack overflow, ...), prints its name and a stack trace to
// standard error (on Windows also to the debugger's channel, as a window
// program has no console), then lets the process end as it would have.
// Does nothing where the platform offers no stack trace.
void install_crash_handler();

} // namespace vel
