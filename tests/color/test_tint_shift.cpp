#include "color/tint_shift.h"

#include "color/log_capture.h"

#include <gtest/gtest.h>

namespace {

float tint(const QString& space, float kelvin)
{
    static const QString srgb = "srgb", prophoto = "prophoto", widegamut = "widegamut", raw = "raw";
    return get_tint_shift(colour_space_names{space, srgb, prophoto, widegamut, raw}, kelvin);
}

TEST(get_tint_shift, follows_the_table_of_each_space_and_clamps_the_temperature)
{
    const struct {
        const char* space;
        float kelvin;
        float expected;
    } cases[] = {
        {"srgb", 5500, -6},         {"srgb", 20000, -32},       {"srgb", 800, -22},         {"srgb", 500, -22},
        {"srgb", 10500, -32},       {"prophoto", 12500, -40},   {"prophoto", 800, 0},       {"prophoto", 6500, -15.5f},
        {"prophoto", 10500, -38.5f}, {"widegamut", 800, -7.6f}, {"widegamut", 2900, -3.8f}, {"widegamut", 8500, -27.5f},
        {"widegamut", 14000, -32},  {"raw", 6500, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.space << " " << c.kelvin);
        const test_support::log_capture log;
        EXPECT_FLOAT_EQ(tint(c.space, c.kelvin), c.expected);
        EXPECT_TRUE(log.empty());
    }
    // Adobe RGB gets no correction, like an unknown space.
    for (const char* space : {"adobe", "cmyk"}) {
        const test_support::log_capture log;
        EXPECT_EQ(tint(space, 6500), 0.0f);
        EXPECT_EQ(log.warnings(),
                  QStringList{QStringLiteral("get_tint_shift: Unknown color space: %1. Not ofsetting.").arg(space)});
    }
}

} // namespace
