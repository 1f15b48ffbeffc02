// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/cli_options.h"

#include <QString>
#include <QtGlobal>

// Everything the converter tells a person goes to standard error, one whole line
// at a time, so that standard output carries only a style (--stdout) or the
// --inspect document and can be piped.
namespace cli_output {

// Sets what is shown and installs the Qt message handler that prints log lines
// as "Debug: ", "Info: ", "Warning: ", "Critical: " or "Fatal: " + message:
// debug and info lines only when verbose, nothing but critical and fatal ones
// when quiet.
void install(verbosity level);

// A log line through the same filter and format as the message handler's.
void log_line(QtMsgType type, const QString& message);
// A failure: "Error: " + message, shown whatever the verbosity.
void error_line(const QString& message);
// A line as it stands, shown whatever the verbosity (usage errors).
void raw_line(const QString& line);
// A result line (the summary), not shown when quiet.
void result_line(const QString& line);

// A progress line that rewrites itself, shown only on a terminal and only for
// batches large enough to leave the user waiting. Other lines clear it first.
void progress(int index, int count, const QString& file);
void end_progress();

// Raw bytes for standard output (a style document, the --inspect document).
// False when they did not all arrive (a full disk, a closed pipe); the reason
// is then in errno.
bool write_stdout(const QByteArray& bytes);

} // namespace cli_output
