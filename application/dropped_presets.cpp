#include "application/dropped_presets.h"

#include "application/preset_folder.h"

#include <QFileInfo>

QStringList dropped_presets(const QList<QUrl>& urls)
{
    QStringList files;
    for (const QUrl& url : urls) {
        if (!url.isLocalFile())
            continue;
        const QFileInfo info(url.toLocalFile());
        if (info.isDir())
            files += presets_in_folder(info.absoluteFilePath());
        else if (info.isFile())
            files.append(info.absoluteFilePath());
    }
    return files;
}
