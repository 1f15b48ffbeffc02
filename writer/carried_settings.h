// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

class lightroom_importer;

// The settings keys a conversion of the preset looks up, learnt from a
// conversion whose style and log lines are dropped.
QSet<QString> keys_a_conversion_reads(const lightroom_importer& preset);

// The preset's settings keys that the conversion did not read (read as
// recorded by create_costyle or keys_a_conversion_reads), in key order: what
// a style made from this preset will lack. Bookkeeping keys that are not
// develop settings (title, identifiers, versions, preset-type and support
// flags, curve names) are left out; the point curves are not settings and
// never appear.
QStringList not_carried_over(const lightroom_importer& preset, const QSet<QString>& read);

// Everything a style made from the preset lacks: its unread develop settings,
// and what no settings key shows (local adjustments by kind, the Look, a
// white balance given by name).
struct style_losses {
    QStringList settings;
    QMap<QString, int> local_adjustments;
    QString look;
    QString white_balance;

    bool empty() const;
    // One line for a log: "2 gradient, 1 radial; Look "Adobe Color"; white
    // balance "Auto"; 3 settings: A, B, C".
    QString summary() const;
};

style_losses what_a_style_leaves_out(const lightroom_importer& preset, const QSet<QString>& read);

// Whether a style made from the preset holds nothing of it: no develop
// setting was read and no point curve has points. An empty file, a broken
// XMP preset or one holding only local adjustments comes to that.
bool style_carries_nothing(const lightroom_importer& preset, const QSet<QString>& read);
