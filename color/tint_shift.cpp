// SPDX-License-Identifier: GPL-3.0-or-later
#include "color/tint_shift.h"

#include "color/curve_types.h"
#include "color/tone_curve.h"


namespace {

// The tables' tint cast was measured between these temperatures; beyond them
// the end values hold.
constexpr float coldest_kelvin = 800.0f;
constexpr float warmest_kelvin = 14000.0f;

// Tint offset per temperature for each output space.
const point_table& srgb_tints()
{
    static const point_table table = {{800, -22},  {5000, 0},    {6000, -12},  {7000, -16}, {8000, -23},
                                      {9000, -30}, {10000, -32}, {14000, -32}};
    return table;
}

const point_table& prophoto_tints()
{
    static const point_table table = {{800, 0},    {5000, 0},    {6000, -12},  {7000, -19},  {8000, -32},
                                      {9000, -36}, {10000, -37}, {11000, -40}, {14000, -40}};
    return table;
}

const point_table& widegamut_tints()
{
    // The value at 800 K was a single-precision constant; it keeps that exact value.
    static const point_table table = {{800, static_cast<double>(-7.6f)}, {5000, 0},   {6000, -12},
                                      {7000, -18},   {8000, -27},  {9000, -28},
                                      {10000, -32},  {14000, -32}};
    return table;
}

} // namespace

float get_tint_shift(tint_curve curve, float temperature)
{
    if (temperature > warmest_kelvin)
        temperature = warmest_kelvin;
    else if (temperature <= coldest_kelvin)
        temperature = coldest_kelvin;

    switch (curve) {
    case tint_curve::srgb:
        return map_to_points(srgb_tints(), temperature);
    case tint_curve::prophoto:
        return map_to_points(prophoto_tints(), temperature);
    case tint_curve::widegamut:
        return map_to_points(widegamut_tints(), temperature);
    }
    return 0.0f;
}
