// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>

// Names of a style pack's entries. Within one folder a later preset of the same
// file name replaces the earlier one, as in a folder on disk; a preset from
// another subfolder with a name already taken gets its subfolder's name added,
// "Portra (Film 2).costyle", so that nothing of a folder tree is lost.
class pack_entry_names {
public:
    // The entry for style_name ("Portra.costyle") of a preset from subfolder.
    // renamed tells whether the name had to change.
    QString entry_for(const QString& style_name, const QString& subfolder, bool& renamed);

private:
    bool free_for(const QString& name, const QString& subfolder) const;

    QHash<QString, QString> subfolder_of_; // entry name -> subfolder that gave it
};
