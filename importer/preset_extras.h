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
    // What the file calls itself: an XMP preset's top-level crs:PresetType
    // ("Normal" for a develop preset, "Look" for a profile); empty when it
    // names none.
    QString preset_type;
    // The group an XMP preset files itself under (top-level crs:Group: the
    // "x-default" text, else the first non-empty one, trimmed); empty
    // without one.
    QString group;
    // Settings keys that are no develop settings: an XMP file's fields outside
    // the camera-raw settings (its EXIF, TIFF and xmp metadata).
    QSet<QString> non_develop_keys;

    // Counts the corrections of a local-adjustment list found under key;
    // keys of other lists are passed over.
    void note_local_adjustments(const QString& key, int count);
};

// Whether the preset is a Lightroom profile (its file calls itself a
// "Look"): a look table and its amount, no develop settings of its own.
bool is_lightroom_profile(const preset_extras& extras);

// The white balance a preset names instead of giving it in numbers
// ("Daylight", "Auto"); such a name yields no white-balance entry in a style.
// Empty when the preset keeps the picture's own ("As Shot"), gives its own
// numbers ("Custom") or names none. Quotes of a dotted template are dropped.
QString named_white_balance(const QMap<QString, QString>& settings);
