#include "cli/preset_search.h"

#include "application/preset_folder.h"

#include <QFileInfo>

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
