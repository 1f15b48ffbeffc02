// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cli_output.h"

#include <QFileInfo>
#include <QLoggingCategory>
#include <QMutex>
#include <QMutexLocker>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {

// Below this many presets a batch is over before a progress line would help.
constexpr int progress_threshold = 36;
// Keeps the progress line within an ordinary terminal width.
constexpr int progress_name_width = 50;

verbosity current_level = verbosity::normal;
bool progress_visible = false;
QMutex output_mutex;

// Writes one whole line to standard error, clearing a progress line first.
void write_line(const QString& line)
{
    QMutexLocker lock(&output_mutex);
    if (progress_visible) {
        std::fputs("\r\033[K", stderr);
        progress_visible = false;
    }
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stderr);
    std::fflush(stderr);
}

bool shown(QtMsgType type)
{
    switch (current_level) {
    case verbosity::verbose:
        return true;
    case verbosity::normal:
        // The curve steps report their intermediate results at info level, dozens of
        // lines per preset: log detail, not news for someone running a batch.
        return type != QtDebugMsg && type != QtInfoMsg;
    case verbosity::quiet:
        // Only the one-line errors (error_line); a reader's critical
        // diagnostics are detail for -v and the log window.
        return type == QtFatalMsg;
    }
    return true;
}

QString prefix(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return QStringLiteral("Debug: ");
    case QtInfoMsg:
        return QStringLiteral("Info: ");
    case QtWarningMsg:
        return QStringLiteral("Warning: ");
    case QtCriticalMsg:
        return QStringLiteral("Critical: ");
    case QtFatalMsg:
        return QStringLiteral("Fatal: ");
    }
    return QString();
}

void handle_message(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    cli_output::log_line(type, message);
    if (type == QtFatalMsg)
        std::abort();
}

} // namespace

namespace cli_output {

void install(verbosity level)
{
    current_level = level;
    // Disabled categories skip the formatting of their messages altogether,
    // which matters for the mapping's many debug lines in large batches.
    // Set on every run, the verbose one too: a process may run more than one.
    if (level == verbosity::normal)
        QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\n*.info=false"));
    else if (level == verbosity::quiet)
        QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\n*.info=false\n*.warning=false\n*.critical=false"));
    else
        QLoggingCategory::setFilterRules(QString());
    qInstallMessageHandler(handle_message);
}

void log_line(QtMsgType type, const QString& message)
{
    if (shown(type))
        write_line(prefix(type) + message);
}

void error_line(const QString& message)
{
    write_line(QStringLiteral("Error: ") + message);
}

void raw_line(const QString& line)
{
    write_line(line);
}

void result_line(const QString& line)
{
    if (current_level != verbosity::quiet)
        write_line(line);
}

void progress(int index, int count, const QString& file)
{
    static const bool terminal = isatty(STDERR_FILENO) != 0;
    if (!terminal || current_level == verbosity::quiet || count <= progress_threshold)
        return;
    QString name = QFileInfo(file).fileName();
    if (name.size() > progress_name_width)
        name = name.left(progress_name_width - 3) + QStringLiteral("...");
    const QByteArray line = QStringLiteral("\r\033[K[%1/%2] %3").arg(index + 1).arg(count).arg(name).toUtf8();
    QMutexLocker lock(&output_mutex);
    std::fwrite(line.constData(), 1, size_t(line.size()), stderr);
    std::fflush(stderr);
    progress_visible = true;
}

void end_progress()
{
    QMutexLocker lock(&output_mutex);
    if (progress_visible) {
        std::fputs("\r\033[K", stderr);
        std::fflush(stderr);
        progress_visible = false;
    }
}

bool write_stdout(const QByteArray& bytes)
{
    const size_t written = std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    // The stream buffers: a full disk often shows only when it is flushed.
    const bool flushed = std::fflush(stdout) == 0;
    return written == size_t(bytes.size()) && flushed;
}

} // namespace cli_output
