// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Internal to writer/: the state one create_costyle call shares between its
// mapping groups, and the small numeric helpers the groups have in common.

#include "writer/colour_space.h"
#include "writer/costyle_entries.h"
#include "writer/setting_values.h"

#include <QSet>
#include <QString>

#include <optional>

class colour_table;
class lightroom_importer;

// What the frame decides from the settings before any group runs.
struct mapping_flags {
    bool grayscale = false;
    bool process_2010 = false;
};

mapping_flags read_mapping_flags(const settings_view& settings);

// Shared by the groups of one call; nothing of it outlives the call.
struct mapping_context {
    const lightroom_importer& preset;
    const settings_view& settings;
    costyle_entries& entries;
    const colour_table& table;
    // The colour space as named by the caller, and what it names (no value for
    // a name the program does not know).
    const QString& colour_space;
    std::optional<::colour_space> space;
    mapping_flags flags;

    // White balance: the tint that compensates the table's cast at the
    // preset's temperature; only a tint written from the preset gets it.
    float tint_offset = 0.0f;

    // Heights of the luma gradation curve at x = 0.2, 0.4, 0.6, 0.8.
    float y20 = 0.2f;
    float y40 = 0.4f;
    float y60 = 0.6f;
    float y80 = 0.8f;
    bool luma_curve_marked = false;

    bool is_raw() const { return space == ::colour_space::raw; }
};

// The mapping groups, in the order create_costyle runs them.
void map_white_balance(mapping_context& context);
void map_process_2010_tone(mapping_context& context);
void map_process_2012_tone(mapping_context& context);
void map_clarity(mapping_context& context);
void map_saturation(mapping_context& context);
void map_point_curves(mapping_context& context);
void map_black_and_white(mapping_context& context);
void map_split_toning(mapping_context& context);
void map_colour_corrections(mapping_context& context);
void map_detail_and_effects(mapping_context& context);
