// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/qt_message_handler.h"

#include <atomic>
#include <iostream>
#include <string>

namespace vel {
namespace {

std::atomic<bool> context_on_every_line{false};

const char* type_prefix(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return "Debug: ";
    case QtInfoMsg:
        return "Info: ";
    case QtWarningMsg:
        return "Warning: ";
    case QtCriticalMsg:
        return "Critical: ";
    case QtFatalMsg:
        return "Fatal: ";
    }
    return "Debug: ";
}

bool goes_to_standard_error(QtMsgType type)
{
    return type == QtCriticalMsg || type == QtFatalMsg;
}

void write_message(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    const std::string line = format_log_line(type, context, message, context_on_every_line).toStdString();
    std::ostream& stream = goes_to_standard_error(type) ? std::cerr : std::cout;
    // One write per line under the lock: lines of two threads never interleave.
    const std::lock_guard<std::mutex> lock(log_write_mutex());
    stream << line << std::endl;
}

} // namespace

std::mutex& log_write_mutex()
{
    static std::mutex mutex;
    return mutex;
}

QString format_log_line(QtMsgType type, const QMessageLogContext& context, const QString& message,
                        bool with_context)
{
    QString line = QLatin1String(type_prefix(type)) + message;
    if (with_context) {
        // Release builds carry no context; the empty fields still show where it would be.
        line += QStringLiteral(" (%1:%2, %3)")
                    .arg(QString::fromUtf8(context.file ? context.file : ""))
                    .arg(context.line)
                    .arg(QString::fromUtf8(context.function ? context.function : ""));
    }
    return line;
}

void install_qt_message_handler(bool install, bool with_context)
{
    context_on_every_line = with_context;
    qInstallMessageHandler(install ? write_message : nullptr);
}

} // namespace vel
