#include "color/hcl.h"
#include "color/pixel_hsv.h"

#include <array>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

struct rgb_hcl_case {
    const char* name;
    int r, g, b;
    int h, c, l;
};

TEST(hcl, rgb_to_hcl_8_bit_covers_every_branch)
{
    const rgb_hcl_case cases[] = {
        {"red: 360000, not 0", 255, 0, 0, 360000, 100000, 50000},
        {"red max, green below blue", 255, 0, 51, 348000, 100000, 50000},
        {"negative part truncates toward zero", 255, 0, 1, 359765, 100000, 50000},
        {"yellow", 255, 255, 0, 60000, 100000, 50000},
        {"red max, green above blue", 255, 128, 0, 30117, 100000, 50000},
        {"green max over red", 100, 200, 50, 100000, 58823, 49019},
        {"blue", 0, 0, 255, 240000, 100000, 50000},
        {"blue max, green lowest", 100, 50, 200, 260000, 58823, 49019},
        {"blue max, red lowest", 50, 100, 200, 220000, 58823, 49019},
        {"green max over blue over red", 50, 200, 100, 140000, 58823, 49019},
        {"grey", 128, 128, 128, 0, 0, 50196},
        {"black", 0, 0, 0, 0, 0, 0},
        {"white", 255, 255, 255, 0, 0, 100000},
    };
    for (const rgb_hcl_case& c : cases) {
        int h = -1, ch = -1, l = -1;
        vel::rgb_to_hcl(static_cast<unsigned char>(c.r), static_cast<unsigned char>(c.g),
                        static_cast<unsigned char>(c.b), h, ch, l);
        EXPECT_EQ(h, c.h) << c.name;
        EXPECT_EQ(ch, c.c) << c.name;
        EXPECT_EQ(l, c.l) << c.name;
    }
}

TEST(hcl, rgb_to_hcl_16_bit_wraps_the_hue_and_needs_64_bit_products)
{
    const rgb_hcl_case cases[] = {
        {"red wraps to 0", 65535, 0, 0, 0, 100000, 50000},
        {"yellow: 60000 * 65535 overflows 32 bits", 65535, 65535, 0, 60000, 100000, 50000},
        {"blue", 0, 0, 65535, 240000, 100000, 50000},
        {"grey", 32768, 32768, 32768, 0, 0, 50000},
    };
    for (const rgb_hcl_case& c : cases) {
        int h = -1, ch = -1, l = -1;
        vel::rgb_to_hcl(static_cast<unsigned short>(c.r), static_cast<unsigned short>(c.g),
                        static_cast<unsigned short>(c.b), h, ch, l);
        EXPECT_EQ(h, c.h) << c.name;
        EXPECT_EQ(ch, c.c) << c.name;
        EXPECT_EQ(l, c.l) << c.name;
    }
}

struct hcl_rgb_case {
    const char* name;
    int h, c, l;
    int r, g, b;
};

TEST(hcl, hcl_to_rgb_8_assigns_by_hue_caps_and_reduces_chroma)
{
    const hcl_rgb_case cases[] = {
        {"grey", 0, 0, 50000, 128, 128, 128},
        {"red through the 255 cap", 0, 100000, 50000, 255, 0, 0},
        {"sector 0", 30000, 100000, 50000, 255, 128, 0},
        {"yellow", 60000, 100000, 50000, 255, 255, 0},
        {"sector 1", 90000, 100000, 50000, 128, 255, 0},
        {"sector 2", 150000, 100000, 50000, 0, 255, 128},
        {"sector 3", 210000, 100000, 50000, 0, 128, 255},
        {"sector 4", 270000, 100000, 50000, 128, 0, 255},
        {"magenta", 300000, 100000, 50000, 255, 0, 255},
        {"sector 5", 330000, 100000, 50000, 255, 0, 128},
        {"negative hue", -60000, 100000, 50000, 255, 0, 255},
        {"negative full turn", -360000, 100000, 50000, 255, 0, 0},
        {"two turns", 720000, 100000, 50000, 255, 0, 0},
        {"chroma reduced to 20000 by lightness", 0, 100000, 90000, 255, 204, 204},
        {"lightness clamped high", 0, 0, 150000, 255, 255, 255},
        {"lightness clamped low", 0, 50000, -5, 0, 0, 0},
        {"chroma clamped", 0, 250000, 50000, 255, 0, 0},
    };
    for (const hcl_rgb_case& c : cases) {
        int r = -1, g = -1, b = -1;
        vel::hcl_to_rgb_8(c.h, c.c, c.l, r, g, b);
        EXPECT_EQ(r, c.r) << c.name;
        EXPECT_EQ(g, c.g) << c.name;
        EXPECT_EQ(b, c.b) << c.name;

        unsigned char r8 = 0, g8 = 0, b8 = 0;
        vel::hcl_to_rgb_8(c.h, c.c, c.l, r8, g8, b8);
        EXPECT_EQ(r8, c.r) << c.name;
        EXPECT_EQ(g8, c.g) << c.name;
        EXPECT_EQ(b8, c.b) << c.name;
    }
}

TEST(hcl, hcl_to_rgb_16_and_adapted_luminance)
{
    const hcl_rgb_case plain[] = {
        {"grey", 0, 0, 50000, 32768, 32768, 32768},
        {"red through the cap", 0, 100000, 50000, 65535, 0, 0},
        {"chroma gives way to lightness", 0, 100000, 90000, 65535, 52428, 52428},
    };
    for (const hcl_rgb_case& c : plain) {
        unsigned short r = 0, g = 0, b = 0;
        vel::hcl_to_rgb_16(c.h, c.c, c.l, r, g, b);
        EXPECT_EQ(r, c.r) << c.name;
        EXPECT_EQ(g, c.g) << c.name;
        EXPECT_EQ(b, c.b) << c.name;
    }

    const hcl_rgb_case adapted[] = {
        {"bright: lightness gives way to chroma", 0, 100000, 90000, 65535, 0, 0},
        {"dark: lightness raised to c/2", 0, 60000, 10000, 39321, 0, 0},
        {"in range: unchanged", 0, 20000, 50000, 39321, 26214, 26214},
    };
    for (const hcl_rgb_case& c : adapted) {
        unsigned short r = 0, g = 0, b = 0;
        vel::hcl_to_rgb_16_adapt_luminance(c.h, c.c, c.l, r, g, b);
        EXPECT_EQ(r, c.r) << c.name;
        EXPECT_EQ(g, c.g) << c.name;
        EXPECT_EQ(b, c.b) << c.name;
    }
}

TEST(hcl, hcl_round_trip_stays_within_one_level)
{
    for (int r = 0; r < 256; r += 17)
        for (int g = 0; g < 256; g += 17)
            for (int b = 0; b < 256; b += 17) {
                int h = 0, c = 0, l = 0;
                vel::rgb_to_hcl(static_cast<unsigned char>(r), static_cast<unsigned char>(g),
                                static_cast<unsigned char>(b), h, c, l);
                int r2 = 0, g2 = 0, b2 = 0;
                vel::hcl_to_rgb_8(h, c, l, r2, g2, b2);
                EXPECT_LE(std::abs(r2 - r), 1) << r << "," << g << "," << b;
                EXPECT_LE(std::abs(g2 - g), 1) << r << "," << g << "," << b;
                EXPECT_LE(std::abs(b2 - b), 1) << r << "," << g << "," << b;
            }
}

TEST(hsv, rgb_to_hsv_and_pixel_hsv_round_trip)
{
    int h = -1, s = -1, v = -1;
    vel::rgb_to_hsv(255, 0, 0, h, s, v);
    EXPECT_EQ(h, 0);
    EXPECT_EQ(s, 100000);
    EXPECT_EQ(v, 100000);
    vel::rgb_to_hsv(0, 0, 255, h, s, v);
    EXPECT_EQ(h, 240000);
    vel::rgb_to_hsv(255, 0, 1, h, s, v);
    EXPECT_EQ(h, 359765);

    const auto rgba = vel::pixel_hsv<std::array<unsigned char, 4>>(120000, 100000, 100000);
    EXPECT_EQ(rgba, (std::array<unsigned char, 4>{0, 255, 0, 255}));

    for (int r = 0; r < 256; r += 51)
        for (int g = 0; g < 256; g += 51)
            for (int b = 0; b < 256; b += 51) {
                vel::rgb_to_hsv(static_cast<unsigned char>(r), static_cast<unsigned char>(g),
                                static_cast<unsigned char>(b), h, s, v);
                const auto p = vel::pixel_hsv<std::array<unsigned char, 3>>(h, s, v);
                EXPECT_LE(std::abs(p[0] - r), 1) << r << "," << g << "," << b;
                EXPECT_LE(std::abs(p[1] - g), 1) << r << "," << g << "," << b;
                EXPECT_LE(std::abs(p[2] - b), 1) << r << "," << g << "," << b;
            }
}

} // namespace
