// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

// The command-line converter as a function: arguments is the whole command
// line, the program's name first. Needs a QCoreApplication with the program's
// identity; writes to standard output and standard error and returns the exit
// status (0 nothing failed, 1 a preset failed, 2 wrong usage).
int run_cli(const QStringList& arguments);

struct editor_folders;
// The same, with where Lightroom and Capture One keep this user's files
// given (run_cli above uses this system's).
int run_cli(const QStringList& arguments, const editor_folders& folders);
