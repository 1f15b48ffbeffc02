// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/other_files.h"

#include <QByteArray>
#include <QString>
#include <QVector>

// Presets handed around as a .zip archive, read like a folder: the presets at
// any depth, named by their paths inside the archive, in path order. Archives
// come from strangers, so everything about them is bounded and every name is
// checked before it can become part of an output path.

// Archives inside archives are read up to this depth, the outermost counted:
// a pack zipped again for sending, inside a folder zipped for backup.
constexpr int max_archive_depth = 3;

// Bounds against hostile archives. The defaults are far above any real preset
// collection (the largest seen hold a few thousand templates of a few KB each).
struct archive_limits {
    // More entries than this and the archive is not read at all.
    qint64 max_entries = 10000;
    // A preset larger than this is refused; real ones are below 1 MB.
    qint64 max_entry_size = 64 * 1024 * 1024;
    // All presets of one archive together, as kept: a DNG preset counts
    // with its XMP packet only.
    qint64 max_total_size = 512 * 1024 * 1024;
    // A DNG preset is a photo: it is read whole, its packet taken and the
    // rest dropped at once, so only one is held at a time. Lightroom's own
    // are a few MB; a raw photo taken for one stays well below this.
    qint64 max_dng_entry_size = 256 * 1024 * 1024;
    // Everything unpacked from one archive, DNG photos included: bounds the
    // time a bomb of many large entries can take.
    qint64 max_unpacked_size = qint64(4) * 1024 * 1024 * 1024;
};

// One preset of the archive: its path inside the archive ('/'-separated,
// relative, never leaving the archive's root) and its bytes.
struct archive_preset {
    QString entry;
    // A DNG preset's XMP packet, taken from its file while the archive is
    // read; any other preset's whole file.
    QByteArray data;
    // Why a DNG preset's packet could not be taken (libtiff's reason); the
    // run reports it as that preset's failure.
    QString error;
};

// Why an entry, or the whole archive, was not read.
enum class archive_problem {
    none,
    unreadable,     // not an archive, damaged or missing; detail: libzip's text
    too_many_entries,
    unsafe_name,    // absolute, with "..", a drive letter or a backslash
    nested_archive, // a .zip inside archives nested too deep
    too_large,      // over the size limit of one preset
    total_too_large,
    damaged_entry   // its data could not be read; detail: libzip's text
};

struct archive_refusal {
    QString entry;
    archive_problem problem;
    QString detail;
};

struct archive_contents {
    // Set when the archive as a whole could not be read; then presets and
    // refusals are empty.
    archive_problem problem = archive_problem::none;
    QString detail;
    QVector<archive_preset> presets;
    // The .zip archives inside it, their bytes held to be read in turn.
    QVector<archive_preset> archives;
    QVector<archive_refusal> refusals;
    // Entries of known kinds that are no presets, by suffix.
    other_files others;
    // What reading it used of the limits: entries, bytes unpacked, bytes kept.
    qint64 entries = 0;
    qint64 unpacked = 0;
    qint64 kept = 0;
};

// The limits left for an archive inside the one read into contents: the
// limits of a whole nest hold for all its archives together.
archive_limits limits_left(const archive_limits& limits, const archive_contents& contents);

// True for a path whose last suffix is ".zip" in any letter case.
bool is_preset_archive(const QString& path);

// Reads every preset entry (.lrtemplate, .xmp, .dng in any letter case) of the
// archive at path. Hidden entries (a part starting with '.', such as macOS's
// "._" companions) and folders are passed over like in a folder search; other
// files are ignored. Archives inside the archive are handed back as they are
// (archives), within the size limits, to be read in turn; entries with unsafe
// names (absolute, "..", drive letters, backslashes) and entries over the
// size limits are refused one by one. Never throws.
archive_contents read_preset_archive(const QString& path, const archive_limits& limits = {});

// The same over an archive already in memory.
archive_contents read_preset_archive_data(const QByteArray& data, const archive_limits& limits = {});

// The reason in plain words, one sentence without the archive's or entry's name.
QString archive_problem_text(archive_problem problem, const QString& detail, const archive_limits& limits = {});
