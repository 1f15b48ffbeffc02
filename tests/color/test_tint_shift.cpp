#include "color/log_capture.h"
#include "color/tint_shift.h"

#include <gtest/gtest.h>

TEST(get_tint_shift, follows_the_table_of_each_space_and_clamps_the_temperature)
{
    const QString srgb = "srgb", prophoto = "prophoto", widegamut = "widegamut", raw = "raw";
    // Adobe RGB gets no correction, like an unknown space, and a warning.
    const std::tuple<const char*, float, float, bool> cases[] = {
        {"srgb", 5500, -6, false},       {"srgb", 20000, -32, false},       {"srgb", 800, -22, false},
        {"srgb", 500, -22, false},       {"srgb", 10500, -32, false},       {"prophoto", 12500, -40, false},
        {"prophoto", 800, 0, false},     {"prophoto", 6500, -15.5f, false}, {"prophoto", 10500, -38.5f, false},
        {"widegamut", 800, -7.6f, false}, {"widegamut", 2900, -3.8f, false}, {"widegamut", 8500, -27.5f, false},
        {"widegamut", 14000, -32, false}, {"raw", 6500, 0, false},          {"adobe", 6500, 0, true},
        {"cmyk", 6500, 0, true}};
    for (const auto& [space, kelvin, expected, warns] : cases) {
        const test_support::log_capture log;
        const QString current = space;
        EXPECT_FLOAT_EQ(get_tint_shift({current, srgb, prophoto, widegamut, raw}, kelvin), expected) << space << kelvin;
        EXPECT_EQ(log.warnings(), warns ? QStringList{"get_tint_shift: Unknown color space: " + current
                                                      + ". Not ofsetting."} : QStringList()) << space;
    }
}
