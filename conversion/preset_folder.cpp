// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/preset_folder.h"

#include "conversion/preset_archive.h"
#include "conversion/preset_reading.h"

#include <QDirIterator>

#include <algorithm>

QStringList presets_in_folder(const QString& folder, other_files* others, QStringList* archives)
{
    QStringList found;
    // Without QDir::Hidden the walk leaves out hidden files and folders, such as
    // the "._" companions macOS puts beside every preset of an archive: they
    // carry a preset's suffix but hold no preset.
    QDirIterator it(folder, QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (preset_format_of(path) != preset_format::unsupported)
            found.append(path);
        else if (archives != nullptr && is_preset_archive(path))
            archives->append(path);
        else if (const QString other = other_kind_of(path); others != nullptr && !other.isEmpty())
            ++(*others)[other];
    }
    std::sort(found.begin(), found.end());
    if (archives != nullptr)
        std::sort(archives->begin(), archives->end());
    return found;
}
