// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

// A program run as a separate process in a folder that is also its home (so
// no stored setting of the user is seen), and what it said.
struct process_result {
    bool finished = false; // false: did not start, crashed or timed out
    int exit_code = -1;
    QByteArray out;
    QByteArray err;

    QStringList error_lines() const { return QString::fromUtf8(err).split(QLatin1Char('\n'), Qt::SkipEmptyParts); }
};

// As the unprivileged user nobody, so that file permissions bind even for root.
enum class run_mode { plain, other_user };

inline process_result run_program(const QString& program, const QStringList& arguments, const QString& folder,
                                  run_mode mode = run_mode::plain)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), folder);
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder + QStringLiteral("/.config"));
    process.setProcessEnvironment(environment);
    if (mode == run_mode::other_user)
        process.start(QStandardPaths::findExecutable(QStringLiteral("setpriv")),
                      QStringList{QStringLiteral("--reuid=nobody"), QStringLiteral("--regid=nogroup"),
                                  QStringLiteral("--clear-groups"), program} + arguments);
    else
        process.start(program, arguments);
    process_result result;
    // Generous for a batch under the sanitizers; a hang fails instead of blocking.
    if (!process.waitForFinished(300000)) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    return {process.exitStatus() == QProcess::NormalExit, process.exitCode(), process.readAllStandardOutput(),
            process.readAllStandardError()};
}

inline process_result run_cli(const QStringList& arguments, const QString& folder, run_mode mode = run_mode::plain)
{
    return run_program(QStringLiteral(STYLEWRIGHT_CLI_PATH), arguments, folder, mode);
}
