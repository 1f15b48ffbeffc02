// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/cli_program.h"
#include "conversion/editor_folders.h"
#include "support/conversion_fixtures.h"

#include <QDir>
#include <QTemporaryFile>

#include <cstdio>
#include <unistd.h>

// What the converter said and how it ended.
struct said {
    int exit_code = -1;
    QByteArray out;
    QByteArray err;
};

// run_cli in this process, in folder, its standard output and error caught
// in files; with the editors' folders given, or this system's.
inline said run_in_process(const QStringList& arguments, const QString& folder,
                           const editor_folders& folders = this_system_editor_folders())
{
    QTemporaryFile out;
    QTemporaryFile err;
    if (!out.open() || !err.open())
        return {};
    const QString previous = QDir::currentPath();
    QDir::setCurrent(folder);
    std::fflush(stdout);
    std::fflush(stderr);
    const int saved[] = {dup(STDOUT_FILENO), dup(STDERR_FILENO)};
    dup2(out.handle(), STDOUT_FILENO);
    dup2(err.handle(), STDERR_FILENO);
    said result;
    result.exit_code = run_cli(QStringList{QStringLiteral("stylewright-cli")} + arguments, folders);
    std::fflush(stdout);
    std::fflush(stderr);
    dup2(saved[0], STDOUT_FILENO);
    dup2(saved[1], STDERR_FILENO);
    close(saved[0]);
    close(saved[1]);
    QDir::setCurrent(previous);
    result.out = fixtures::read_file(out.fileName());
    result.err = fixtures::read_file(err.fileName());
    return result;
}
