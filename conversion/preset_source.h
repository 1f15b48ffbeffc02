// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/preset_archive.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

// One preset as a conversion run takes it: a file on disk, or an entry of a
// .zip archive held in memory.
struct preset_source {
    // Shown in every message: the file's path, or the archive's path followed
    // by "/" and the entry's path inside it.
    QString path;
    // Where the style goes below the output folder ('/'-separated, empty for
    // the folder itself): the preset's folder relative to the folder or
    // archive it was found in. Files named one by one are written flat.
    QString subfolder;
    // An archive entry's bytes; files are read from path.
    QByteArray data;
    bool in_archive = false;
    // An archive's DNG preset whose packet could not be taken: why.
    QString error;
    // Whether its style is kept apart by name from styles of presets from
    // other folders (false for files picked one by one, where the later of
    // two of the same name replaces the earlier).
    bool named_by_folder = true;
};

// An archive, or one of its entries, that gave no preset.
struct archive_failure {
    QString archive;
    QString entry; // empty when the archive as a whole was not read
    QString reason;
};

// A folder or archive in which no preset was found, and the files of known
// kinds that are no presets it held instead.
struct empty_place {
    QString path;
    other_files others;
};

struct gathered_presets {
    QVector<preset_source> presets;
    QVector<archive_failure> archive_failures;
    QVector<empty_place> empty_folders;
};

// The presets of what the user named, in order: a file is taken as it is
// (whatever its suffix; the run reports formats it can't read), a folder gives
// its presets from all its subfolders sorted by path, a .zip archive gives its
// presets like a folder. A name that exists nowhere is taken as a file too.
gathered_presets gather_presets(const QStringList& items);

// Only files, each written flat: what the open dialog returns. A later file
// whose style takes an earlier one's name replaces it.
QVector<preset_source> presets_of_files(const QStringList& files);
// What the open dialog returns: files as presets_of_files takes them,
// archives like gather_presets.
gathered_presets gather_picked_presets(const QStringList& items);
