// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/output_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>

QString prepare_output_folder(const QString& folder)
{
    const QFileInfo info(folder);
    if (info.exists() && !info.isDir())
        return QCoreApplication::translate("MainWindow", "It is a file, not a folder.");
    if (!QDir().mkpath(folder))
        return QCoreApplication::translate("MainWindow", "The folder can't be created.");
    QTemporaryFile probe(QDir(folder).filePath(QStringLiteral(".stylewright-XXXXXX")));
    if (!probe.open())
        return probe.errorString();
    return QString();
}

QString nearest_existing_folder(const QString& folder)
{
    QFileInfo candidate(QDir::cleanPath(QDir(folder).absolutePath()));
    while (!candidate.isDir() && !candidate.isRoot())
        candidate.setFile(candidate.absolutePath());
    return candidate.absoluteFilePath();
}
