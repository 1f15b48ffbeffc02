// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

struct style_losses;

// What a style leaves out, grouped by the tools a photographer knows from
// Lightroom's develop panels. Each group has a stable English id (for JSON
// and scripts); its words are the shell's, translated.
enum class loss_group {
    white_balance,
    camera_calibration,
    lens_corrections,
    transform,
    crop,
    texture,
    dehaze,
    profile_and_look,
    local_adjustments,
    tone_curve_details,
    hsl_and_colour_grading,
    detail,
    effects,
    other // every key no other group claims, still listed
};

// All groups, in the order they are named.
const QVector<loss_group>& loss_group_order();

// "white_balance", "profile_and_look", ...
QString loss_group_id(loss_group group);

// The group a settings key belongs to; other for a key the table does not know.
loss_group loss_group_of(const QString& key);

// One group of what a style leaves out and the keys it holds, in key order.
// A group may hold no key and still be lost: local adjustments counted
// beside the settings, a Look named only inside its own element.
struct lost_group {
    loss_group group;
    QStringList keys;
};

// The groups of losses, in loss_group_order(), each non-empty.
QVector<lost_group> lost_groups(const style_losses& losses);
