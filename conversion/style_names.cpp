// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/style_names.h"

#include <QFileInfo>

namespace {

QString key_of(const QString& scope, const QString& name)
{
    return scope + QLatin1Char('/') + name;
}

} // namespace

bool style_names::free_for(const QString& key, const QString& owner) const
{
    const auto taken = owner_of_.constFind(key);
    return taken == owner_of_.cend() || taken.value() == owner;
}

QString style_names::name_for(const QString& scope, const QString& style_name, const QString& owner,
                              const QString& label_path, bool& renamed)
{
    const QString name = choose(scope, style_name, owner, label_path, renamed);
    owner_of_.insert(key_of(scope, name), owner);
    return name;
}

QString style_names::choose(const QString& scope, const QString& style_name, const QString& owner,
                            const QString& label_path, bool& renamed) const
{
    renamed = !free_for(key_of(scope, style_name), owner);
    QString name = style_name;
    if (renamed) {
        const QFileInfo info(style_name);
        const auto with_label = [&](const QString& label) {
            name = info.completeBaseName() + QStringLiteral(" (") + label + QStringLiteral(").") + info.suffix();
            return free_for(key_of(scope, name), owner);
        };
        // The folder's own name reads best; the whole path, then a number,
        // settle what it leaves equal. The top folder has no name of its own.
        const QString whole_path = QString(label_path).replace(QLatin1Char('/'), QLatin1Char(' ')).trimmed();
        const bool named = !whole_path.isEmpty() &&
                           (with_label(label_path.section(QLatin1Char('/'), -1, -1, QString::SectionSkipEmpty)) ||
                            with_label(whole_path));
        const QString prefix = whole_path.isEmpty() ? QString() : whole_path + QLatin1Char(' ');
        for (int n = 2; !named && !with_label(prefix + QString::number(n)); ++n) {
        }
    }
    return name;
}

QString style_names::entry_for(const QString& style_name, const QString& subfolder, bool& renamed)
{
    return name_for(QString(), style_name, subfolder, subfolder, renamed);
}

namespace {

// A drive letter's colon has no place in a file name; an archive read like
// a folder is named without its suffix.
QString label_path_of(const QString& preset_folder)
{
    QString label = QString(preset_folder).remove(QLatin1Char(':'));
    if (label.endsWith(QLatin1String(".zip"), Qt::CaseInsensitive))
        label.chop(4);
    return label;
}

} // namespace

QString style_names::separate_name_for(const QString& scope, const QString& style_name, const QString& preset_folder,
                                       bool& renamed)
{
    return name_for(scope, style_name, preset_folder, label_path_of(preset_folder), renamed);
}

QString style_names::entry_for(const QString& style_name, const QString& owner, const QString& label_path,
                              bool& renamed)
{
    return name_for(QString(), style_name, owner, label_path, renamed);
}

QString style_names::entry_would_be(const QString& style_name, const QString& owner, const QString& label_path) const
{
    bool renamed = false;
    return choose(QString(), style_name, owner, label_path, renamed);
}

QString style_names::separate_name_would_be(const QString& scope, const QString& style_name,
                                            const QString& preset_folder) const
{
    bool renamed = false;
    return choose(scope, style_name, preset_folder, label_path_of(preset_folder), renamed);
}
