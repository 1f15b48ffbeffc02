// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/preset_source.h"

#include "conversion/preset_folder.h"

#include <QDir>
#include <QFileInfo>

namespace {

QString folder_of(const QString& relative_path)
{
    const int slash = relative_path.lastIndexOf(QLatin1Char('/'));
    return slash < 0 ? QString() : relative_path.left(slash);
}

void add_folder(const QString& folder, gathered_presets& gathered)
{
    other_files others;
    const QStringList found = presets_in_folder(folder, &others);
    if (found.isEmpty())
        gathered.empty_folders.append({folder, others});
    const QDir root(QFileInfo(folder).absoluteFilePath());
    for (const QString& path : found) {
        const QString relative = root.relativeFilePath(QFileInfo(path).absoluteFilePath());
        gathered.presets.append({path, folder_of(relative), QByteArray(), false, QString()});
    }
}

void add_archive(const QString& archive, gathered_presets& gathered)
{
    const archive_limits limits;
    archive_contents contents = read_preset_archive(archive, limits);
    if (contents.problem != archive_problem::none) {
        gathered.archive_failures.append(
            {archive, QString(), archive_problem_text(contents.problem, contents.detail, limits)});
        return;
    }
    for (const archive_refusal& refusal : contents.refusals)
        gathered.archive_failures.append(
            {archive, refusal.entry, archive_problem_text(refusal.problem, refusal.detail, limits)});
    if (contents.presets.isEmpty() && contents.refusals.isEmpty())
        gathered.empty_folders.append({archive, contents.others});
    for (archive_preset& preset : contents.presets) {
        gathered.presets.append({archive + QLatin1Char('/') + preset.entry, folder_of(preset.entry),
                                 std::move(preset.data), true, preset.error});
    }
}

} // namespace

gathered_presets gather_presets(const QStringList& items)
{
    gathered_presets gathered;
    for (const QString& item : items) {
        const QFileInfo info(item);
        if (info.isDir())
            add_folder(item, gathered);
        else if (info.isFile() && is_preset_archive(item))
            add_archive(item, gathered);
        else
            gathered.presets.append({item, QString(), QByteArray(), false, QString()});
    }
    return gathered;
}

QVector<preset_source> presets_of_files(const QStringList& files)
{
    QVector<preset_source> presets;
    presets.reserve(files.size());
    for (const QString& file : files)
        presets.append({file, QString(), QByteArray(), false, QString()});
    return presets;
}
