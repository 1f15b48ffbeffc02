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

QString joined(const QString& folder, const QString& name)
{
    if (folder.isEmpty())
        return name;
    return name.isEmpty() ? folder : folder + QLatin1Char('/') + name;
}

// An archive read like a folder named after it: "Packs/Film.zip" gives "Packs/Film".
QString as_folder(const QString& relative_archive)
{
    return joined(folder_of(relative_archive), QFileInfo(relative_archive).completeBaseName());
}

void add_contents(const QString& archive, const QString& subfolder, int depth, archive_contents contents,
                  const archive_limits& limits, gathered_presets& gathered);

// An archive on disk, or held in memory when data is given, whose presets go
// below subfolder.
void add_archive(const QString& archive, const QByteArray* data, const QString& subfolder, int depth,
                 const archive_limits& limits, gathered_presets& gathered)
{
    archive_contents contents =
        data == nullptr ? read_preset_archive(archive, limits) : read_preset_archive_data(*data, limits);
    if (contents.problem != archive_problem::none) {
        gathered.archive_failures.append(
            {archive, QString(), archive_problem_text(contents.problem, contents.detail, limits)});
        return;
    }
    add_contents(archive, subfolder, depth, std::move(contents), limits, gathered);
}

void add_contents(const QString& archive, const QString& subfolder, int depth, archive_contents contents,
                  const archive_limits& limits, gathered_presets& gathered)
{
    for (const archive_refusal& refusal : contents.refusals)
        gathered.archive_failures.append(
            {archive, refusal.entry, archive_problem_text(refusal.problem, refusal.detail, limits)});
    if (contents.presets.isEmpty() && contents.refusals.isEmpty() && contents.archives.isEmpty())
        gathered.empty_folders.append({archive, contents.others});
    for (archive_preset& preset : contents.presets) {
        preset_source source{archive + QLatin1Char('/') + preset.entry, joined(subfolder, folder_of(preset.entry)),
                             std::move(preset.data), true, preset.error};
        gathered.presets.append(std::move(source));
    }
    // Whatever this archive used of the limits, its inner ones cannot.
    const archive_limits left = limits_left(limits, contents);
    for (const archive_preset& inner : contents.archives) {
        if (depth >= max_archive_depth) {
            gathered.archive_failures.append(
                {archive, inner.entry, archive_problem_text(archive_problem::nested_archive, QString(), limits)});
            continue;
        }
        add_archive(archive + QLatin1Char('/') + inner.entry, &inner.data, joined(subfolder, as_folder(inner.entry)),
                    depth + 1, left, gathered);
    }
}

void add_folder(const QString& folder, gathered_presets& gathered)
{
    other_files others;
    QStringList archives;
    const QStringList found = presets_in_folder(folder, &others, &archives);
    if (found.isEmpty() && archives.isEmpty())
        gathered.empty_folders.append({folder, others});
    const QDir root(QFileInfo(folder).absoluteFilePath());
    for (const QString& path : found) {
        const QString relative = root.relativeFilePath(QFileInfo(path).absoluteFilePath());
        gathered.presets.append({path, folder_of(relative), QByteArray(), false, QString()});
    }
    for (const QString& archive : archives) {
        const QString relative = root.relativeFilePath(QFileInfo(archive).absoluteFilePath());
        add_archive(archive, nullptr, as_folder(relative), 1, archive_limits(), gathered);
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
            add_archive(item, nullptr, QString(), 1, archive_limits(), gathered);
        else
            gathered.presets.append({item, QString(), QByteArray(), false, QString()});
    }
    return gathered;
}

gathered_presets gather_picked_presets(const QStringList& items)
{
    gathered_presets gathered;
    for (const QString& item : items) {
        const QFileInfo info(item);
        if (info.isFile() && is_preset_archive(item)) {
            add_archive(item, nullptr, QString(), 1, archive_limits(), gathered);
        } else {
            preset_source picked{item, QString(), QByteArray(), false, QString()};
            picked.named_by_folder = false;
            gathered.presets.append(picked);
        }
    }
    return gathered;
}

QVector<preset_source> presets_of_files(const QStringList& files)
{
    QVector<preset_source> presets;
    presets.reserve(files.size());
    for (const QString& file : files) {
        preset_source picked{file, QString(), QByteArray(), false, QString()};
        picked.named_by_folder = false;
        presets.append(picked);
    }
    return presets;
}
