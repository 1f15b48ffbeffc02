// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "color/curve_types.h"

// Piecewise-linear lookup through a point table (single precision).
// Logs "map_to_points failed." and returns 0 outside the table or on a
// segment that touches the origin.
float map_to_points(const point_table& table, float x);

// True when a natural cubic spline can be built through the curve's points
// (at least two points, x ascending, neighbours at least 1 apart).
bool curve_is_usable(const curve_points& curve);

// Value of the spline through the curve's points at x, unclamped.
// The curve must be usable.
double curve_value(const curve_points& curve, double x);

// Nine samples of the curve at x = 0, 31, 63, ..., 255; empty in, empty out.
curve_points resample_curve(const curve_points& curve);

// Pulls the shadow part (x < 85) of a curve towards the diagonal.
curve_points soften_shadow_points(const curve_points& curve);

// Rasters the master curve at every level 0..255 into its inverse map.
rgb_inverse_map build_rgb_inverse_map(const curve_points& master);

// Rewrites a channel curve so that, applied after the master curve, it gives
// the channel response the preset meant.
curve_points compensate_with_rgb_curve(const curve_points& channel, const curve_points& master,
                                       const rgb_inverse_map& inverse_map);
