// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>

// Runs the built stylewright-cli (or another program) as a separate process
// and keeps what it said.
struct process_result {
    bool finished = false; // false: did not start, crashed or timed out
    int exit_code = -1;
    QByteArray out;
    QByteArray err;

    QStringList error_lines() const
    {
        return QString::fromUtf8(err).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
};

// Ways to run the converter besides the plain one.
enum class run_mode {
    plain,
    // As the unprivileged user "nobody", so that file permissions bind even
    // when the tests run as root (as they do in CI).
    other_user,
};

inline QString cli_path()
{
    return QStringLiteral(STYLEWRIGHT_CLI_PATH);
}

// Generous for a batch under the sanitizers on a busy machine; a hang fails
// the test instead of blocking the suite.
constexpr int cli_timeout_ms = 300000;

inline process_result run_program(const QString& program, const QStringList& arguments, const QString& folder,
                                  run_mode mode = run_mode::plain)
{
    QString executable = program;
    QStringList full_arguments = arguments;
    switch (mode) {
    case run_mode::plain:
        break;
    case run_mode::other_user:
        executable = QStandardPaths::findExecutable(QStringLiteral("setpriv"));
        full_arguments = QStringList{QStringLiteral("--reuid=nobody"), QStringLiteral("--regid=nogroup"),
                                     QStringLiteral("--clear-groups"), program} + arguments;
        break;
    }
    QProcess process;
    process.setWorkingDirectory(folder);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // A home and configuration folder of its own: the converter must not read
    // or write stored settings, and the tests must not touch the user's.
    environment.insert(QStringLiteral("HOME"), folder);
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder + QStringLiteral("/.config"));
    process.setProcessEnvironment(environment);
    process.start(executable, full_arguments);
    process_result result;
    if (!process.waitForFinished(cli_timeout_ms)) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.finished = process.exitStatus() == QProcess::NormalExit;
    result.exit_code = process.exitCode();
    result.out = process.readAllStandardOutput();
    result.err = process.readAllStandardError();
    return result;
}

inline process_result run_cli(const QStringList& arguments, const QString& folder, run_mode mode = run_mode::plain)
{
    return run_program(cli_path(), arguments, folder, mode);
}
