// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QtGlobal>

#include <mutex>

namespace vel {

// Installs (install = true) or removes (install = false, Qt's default handler
// again) the program's message handler. It writes one line per message:
// "Debug: ", "Info: ", "Warning: " to std::cout, "Critical: ", "Fatal: " to
// std::cerr, each line flushed. with_context adds " (file:line, function)"
// and applies to every later message.
void install_qt_message_handler(bool install, bool with_context);

// The line the handler writes for one message, without the line end.
QString format_log_line(QtMsgType type, const QMessageLogContext& context, const QString& message,
                        bool with_context);

// Held while a whole line is written to the standard streams; whoever drains
// a redirected stream takes it too so it never reads half a line.
std::mutex& log_write_mutex();

} // namespace vel
