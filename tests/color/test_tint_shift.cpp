// SPDX-License-Identifier: GPL-3.0-or-later
#include "color/tint_shift.h"

#include <gtest/gtest.h>

TEST(get_tint_shift, follows_the_table_of_each_space_and_clamps_the_temperature)
{
    const std::tuple<tint_curve, float, float> cases[] = {
        {tint_curve::srgb, 5500, -6},          {tint_curve::srgb, 20000, -32},        {tint_curve::srgb, 800, -22},
        {tint_curve::srgb, 500, -22},          {tint_curve::srgb, 10500, -32},        {tint_curve::prophoto, 12500, -40},
        {tint_curve::prophoto, 800, 0},        {tint_curve::prophoto, 6500, -15.5f},  {tint_curve::prophoto, 10500, -38.5f},
        {tint_curve::widegamut, 800, -7.6f},   {tint_curve::widegamut, 2900, -3.8f},  {tint_curve::widegamut, 8500, -27.5f},
        {tint_curve::widegamut, 14000, -32}};
    for (const auto& [curve, kelvin, expected] : cases)
        EXPECT_FLOAT_EQ(get_tint_shift(curve, kelvin), expected) << int(curve) << " " << kelvin;
}
