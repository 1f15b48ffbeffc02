// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QSet>
#include <QString>

// What a preset holds beyond the settings a style can take, noted by the
// readers beside the record's settings (never in them): the losses a report
// names that no settings key shows.
struct preset_extras {
    // Local adjustments and masks by kind ("gradient", "radial", "brush",
    // "mask_groups") and how many the preset holds.
    QMap<QString, int> local_adjustments;
    // The profile's Look by name ("Adobe Color"); empty without one.
    QString look;
    // Settings keys that are no develop settings: an XMP file's fields outside
    // the camera-raw settings (its EXIF, TIFF and xmp metadata).
    QSet<QString> non_develop_keys;

    // Counts the corrections of a local-adjustment list found under key;
    // keys of other lists are passed over.
    void note_local_adjustments(const QString& key, int count);
};

// The white balance a preset names instead of giving it in numbers
// ("Daylight", "Auto"); such a name yields no white-balance entry in a style.
// Empty when the preset keeps the picture's own ("As Shot"), gives its own
// numbers ("Custom") or names none. Quotes of a dotted template are dropped.
QString named_white_balance(const QMap<QString, QString>& settings);
