// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/pack_entry_names.h"

#include <QFileInfo>

bool pack_entry_names::free_for(const QString& name, const QString& subfolder) const
{
    const auto taken = subfolder_of_.constFind(name);
    return taken == subfolder_of_.cend() || taken.value() == subfolder;
}

QString pack_entry_names::entry_for(const QString& style_name, const QString& subfolder, bool& renamed)
{
    renamed = !free_for(style_name, subfolder);
    QString name = style_name;
    if (renamed) {
        const QFileInfo info(style_name);
        const auto with_label = [&](const QString& label) {
            name = info.completeBaseName() + QStringLiteral(" (") + label + QStringLiteral(").") + info.suffix();
            return free_for(name, subfolder);
        };
        // The folder's own name reads best; the whole path, then a number,
        // settle what it leaves equal. The top folder has no name of its own.
        const QString whole_path = QString(subfolder).replace(QLatin1Char('/'), QLatin1Char(' '));
        const bool named = !subfolder.isEmpty() &&
                           (with_label(subfolder.section(QLatin1Char('/'), -1)) || with_label(whole_path));
        const QString prefix = subfolder.isEmpty() ? QString() : whole_path + QLatin1Char(' ');
        for (int n = 2; !named && !with_label(prefix + QString::number(n)); ++n) {
        }
    }
    subfolder_of_.insert(name, subfolder);
    return name;
}
