#pragma once

#include "color/curve_types.h"
#include "writer/costyle_entries.h"

// Clamps a numeric preset value to [in_min, in_max] and maps each half onto
// its own output range with zero fixed; writes six decimals under style_key.
void map_setting(const preset_settings& settings, costyle_entries& entries, const QString& preset_key,
                 const QString& style_key, float in_min, float in_max, float out_min, float out_max);

// Copies a numeric preset value unchanged, with six decimals.
void copy_setting(const preset_settings& settings, costyle_entries& entries, const QString& preset_key,
                  const QString& style_key);

// Reads HueAdjustment<Colour>, SaturationAdjustment<Colour>, LuminanceAdjustment<Colour>.
// Upper-cases the first character of colour in place; sets found when any is numeric.
void read_hsl_adjustments(const preset_settings& settings, bool& found, QString& colour, float& hue,
                          float& saturation, float& luminance);

// Writes a curve as style curve text ("x,y;x,y", fractions with six decimals).
void set_curve_entry(costyle_entries& entries, const QString& key, const curve_points& curve);
