#include "color/tint_shift.h"

#include "color/message_capture.h"

#include <gtest/gtest.h>

namespace {

using test_support::message_capture;

float tint(const QString& space, float kelvin)
{
    static const QString srgb = QStringLiteral("srgb");
    static const QString prophoto = QStringLiteral("prophoto");
    static const QString widegamut = QStringLiteral("widegamut");
    static const QString raw = QStringLiteral("raw");
    return get_tint_shift(colour_space_names{space, srgb, prophoto, widegamut, raw}, kelvin);
}

struct tint_case {
    const char* space;
    float kelvin;
    float expected;
};

TEST(get_tint_shift, follows_the_table_of_each_space_and_clamps_the_temperature)
{
    const tint_case cases[] = {
        {"srgb", 5500, -6},          {"srgb", 20000, -32},        {"srgb", 800, -22},
        {"srgb", 500, -22},          {"srgb", 10500, -32},        {"prophoto", 12500, -40},
        {"prophoto", 800, 0},        {"prophoto", 6500, -15.5f},  {"prophoto", 10500, -38.5f},
        {"widegamut", 800, -7.6f},   {"widegamut", 2900, -3.8f},  {"widegamut", 8500, -27.5f},
        {"widegamut", 14000, -32},   {"raw", 6500, 0},
    };
    for (const tint_case& c : cases) {
        message_capture log;
        EXPECT_FLOAT_EQ(tint(QString::fromLatin1(c.space), c.kelvin), c.expected) << c.space << " " << c.kelvin;
        EXPECT_TRUE(log.empty()) << c.space << " " << c.kelvin;
    }
}

TEST(get_tint_shift, adobe_and_unknown_spaces_warn_and_give_no_offset)
{
    for (const char* space : {"adobe", "cmyk"}) {
        message_capture log;
        EXPECT_EQ(tint(QString::fromLatin1(space), 6500), 0.0f);
        EXPECT_EQ(log.warnings(),
                  QStringList{QStringLiteral("get_tint_shift: Unknown color space: %1. Not ofsetting.").arg(space)});
    }
}

} // namespace
