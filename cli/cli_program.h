// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

// The command-line converter as a function: arguments is the whole command
// line, the program's name first. Needs a QCoreApplication with the program's
// identity; writes to standard output and standard error and returns the exit
// status (0 nothing failed, 1 a preset failed, 2 wrong usage).
int run_cli(const QStringList& arguments);
