// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>

// Names of the styles one run makes, so that nothing of a folder tree is lost.
// Within one folder a later preset of the same file name replaces the earlier
// one, as in a folder on disk; a preset from another folder with a name
// already taken gets its folder's name added, "Portra (Film 2).costyle".
class style_names {
public:
    // The pack entry for style_name ("Portra.costyle") of a preset from
    // subfolder. renamed tells whether the name had to change.
    QString entry_for(const QString& style_name, const QString& subfolder, bool& renamed);
    // The same for a preset whose style is kept apart from other owners' (its
    // folder; empty for files picked one by one), labelled by label_path
    // ('/'-separated) when it must be renamed.
    QString entry_for(const QString& style_name, const QString& owner, const QString& label_path, bool& renamed);

    // The name of a separate style_name written into scope (a folder below the
    // output folder, '/'-separated, empty for the output folder itself) for a
    // preset whose own folder is preset_folder (an absolute path; an
    // archive's entry counts the archive as a folder). renamed as above.
    QString separate_name_for(const QString& scope, const QString& style_name, const QString& preset_folder,
                              bool& renamed);

    // The names the two calls above would give now, without taking them.
    QString entry_would_be(const QString& style_name, const QString& owner, const QString& label_path) const;
    QString separate_name_would_be(const QString& scope, const QString& style_name,
                                   const QString& preset_folder) const;

private:
    QString name_for(const QString& scope, const QString& style_name, const QString& owner, const QString& label_path,
                     bool& renamed);
    QString choose(const QString& scope, const QString& style_name, const QString& owner, const QString& label_path,
                   bool& renamed) const;
    bool free_for(const QString& key, const QString& owner) const;

    QHash<QString, QString> owner_of_; // scope + '/' + name -> folder that gave it
};
