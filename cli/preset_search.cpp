#include "cli/preset_search.h"

#include "application/preset_reading.h"

#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>

namespace {

QStringList presets_in_folder(const QString& folder)
{
    QStringList found;
    QDirIterator it(folder, QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (preset_format_of(path) != preset_format::unsupported)
            found.append(path);
    }
    std::sort(found.begin(), found.end());
    return found;
}

} // namespace

QVector<input_file> find_presets(const QStringList& arguments, QStringList& empty_folders)
{
    QVector<input_file> files;
    for (const QString& argument : arguments) {
        const QFileInfo info(argument);
        if (info.isDir()) {
            const QStringList found = presets_in_folder(argument);
            if (found.isEmpty())
                empty_folders.append(argument);
            for (const QString& path : found)
                files.append({path, true});
        } else {
            files.append({argument, info.exists()});
        }
    }
    return files;
}
