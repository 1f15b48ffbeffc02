// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/dropped_presets.h"

#include <QFileInfo>

gathered_presets dropped_presets(const QList<QUrl>& urls)
{
    QStringList items;
    for (const QUrl& url : urls) {
        if (!url.isLocalFile())
            continue;
        const QFileInfo info(url.toLocalFile());
        if (info.isDir() || info.isFile())
            items.append(info.absoluteFilePath());
    }
    return gather_presets(items);
}
