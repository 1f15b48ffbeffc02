#include "color/log_capture.h"
#include "color/tint_shift.h"

#include <gtest/gtest.h>

namespace {

TEST(get_tint_shift, follows_the_table_of_each_space_and_clamps_the_temperature)
{
    const QString srgb = "srgb", prophoto = "prophoto", widegamut = "widegamut", raw = "raw";
    const std::tuple<const char*, float, float> cases[] = {
        {"srgb", 5500, -6},           {"srgb", 20000, -32},         {"srgb", 800, -22},           {"srgb", 500, -22},
        {"srgb", 10500, -32},         {"prophoto", 12500, -40},     {"prophoto", 800, 0},         {"prophoto", 6500, -15.5f},
        {"prophoto", 10500, -38.5f},  {"widegamut", 800, -7.6f},    {"widegamut", 2900, -3.8f},   {"widegamut", 8500, -27.5f},
        {"widegamut", 14000, -32},    {"raw", 6500, 0},             {"adobe", 6500, 0},           {"cmyk", 6500, 0}};
    for (const auto& [space, kelvin, expected] : cases) {
        const test_support::log_capture log;
        const QString current = space;
        EXPECT_FLOAT_EQ(get_tint_shift({current, srgb, prophoto, widegamut, raw}, kelvin), expected) << space << kelvin;
        // Adobe RGB gets no correction, like an unknown space.
        const bool known = current != "adobe" && current != "cmyk";
        EXPECT_EQ(log.warnings(), known ? QStringList() : QStringList{"get_tint_shift: Unknown color space: " + current
                                                                      + ". Not ofsetting."}) << space;
    }
}

} // namespace
