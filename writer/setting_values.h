// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Reading the preset's settings as numbers and writing them as style values:
// the one place where a setting's text becomes a float. A text that
// QString::toFloat rejects (not a number, or beyond single precision such as
// "1e39") and "nan" are no number: a mapping that needs a number skips such a
// setting, and one that counts it as 0 gets 0.

#include "color/curve_types.h"
#include "writer/costyle_entries.h"
#include "writer/settings_view.h"

#include <QString>

// True when the key is present and its text is a number; value is set then.
bool read_number(const settings_view& settings, const QString& key, float& value);

// The value as a number; absent or not a number gives 0.
float number_or_zero(const settings_view& settings, const QString& key);

// Fixed notation with six decimals, the style's usual number form.
QString six_decimals(float value);

// Clamps with Qt's rule (a NaN ends up at the lower bound), in single precision.
float clamp_value(float value, float low, float high);

// The zero-anchored two-range mapping: [in_min, 0] onto [out_min, 0] and
// [0, in_max] onto [0, out_max], each half with its own scale. The value must
// already be clamped to [in_min, in_max]. Every step is rounded to single
// precision on its own, so the results match the values the mapping
// constants were tuned with.
float map_two_ranges(float value, float in_min, float in_max, float out_min, float out_max);

// Truncation toward zero that stays defined for every float: a NaN gives 0,
// values beyond the int range give the nearest end of it.
int truncate_to_int(float value);

// Clamps a numeric preset value to [in_min, in_max] and maps each half onto
// its own output range with zero fixed; writes six decimals under style_key.
void map_setting(const settings_view& settings, costyle_entries& entries, const QString& preset_key,
                 const QString& style_key, float in_min, float in_max, float out_min, float out_max);

// Copies a numeric preset value unchanged, with six decimals.
void copy_setting(const settings_view& settings, costyle_entries& entries, const QString& preset_key,
                  const QString& style_key);

// Reads HueAdjustment<Colour>, SaturationAdjustment<Colour>, LuminanceAdjustment<Colour>.
// Upper-cases the first character of colour in place; sets found when any is numeric.
void read_hsl_adjustments(const settings_view& settings, bool& found, QString& colour, float& hue,
                          float& saturation, float& luminance);

// Writes a curve as style curve text ("x,y;x,y", fractions with six decimals).
void set_curve_entry(costyle_entries& entries, const QString& key, const curve_points& curve);
