// SPDX-License-Identifier: GPL-3.0-or-later
#include "color/hcl.h"
#include "color/pixel_hsv.h"

#include <gtest/gtest.h>

using triple = std::array<int, 3>;
using u8 = unsigned char;
using u16 = unsigned short;

TEST(hcl, rgb_to_hcl_covers_every_branch_in_8_and_16_bits)
{
    const struct {
        bool wide; // 16-bit input
        triple rgb, hcl;
    } cases[] = {
        {false, {255, 0, 0}, {360000, 100000, 50000}}, // red stays at 360000 in 8 bits
        {false, {255, 0, 51}, {348000, 100000, 50000}},  {false, {255, 0, 1}, {359765, 100000, 50000}},
        {false, {255, 255, 0}, {60000, 100000, 50000}},  {false, {255, 128, 0}, {30117, 100000, 50000}},
        {false, {100, 200, 50}, {100000, 58823, 49019}}, {false, {0, 0, 255}, {240000, 100000, 50000}},
        {false, {100, 50, 200}, {260000, 58823, 49019}}, {false, {50, 100, 200}, {220000, 58823, 49019}},
        {false, {50, 200, 100}, {140000, 58823, 49019}}, {false, {128, 128, 128}, {0, 0, 50196}},
        {false, {0, 0, 0}, {0, 0, 0}},                   {false, {255, 255, 255}, {0, 0, 100000}},
        {true, {65535, 0, 0}, {0, 100000, 50000}}, // wraps to 0 in 16 bits
        {true, {65535, 65535, 0}, {60000, 100000, 50000}}, // 60000 * 65535 needs 64 bits
        {true, {0, 0, 65535}, {240000, 100000, 50000}},  {true, {32768, 32768, 32768}, {0, 0, 50000}},
    };
    for (const auto& c : cases) {
        triple hcl = {-1, -1, -1};
        if (c.wide)
            vel::rgb_to_hcl(u16(c.rgb[0]), u16(c.rgb[1]), u16(c.rgb[2]), hcl[0], hcl[1], hcl[2]);
        else
            vel::rgb_to_hcl(u8(c.rgb[0]), u8(c.rgb[1]), u8(c.rgb[2]), hcl[0], hcl[1], hcl[2]);
        EXPECT_EQ(hcl, c.hcl) << c.rgb[0] << "," << c.rgb[1] << "," << c.rgb[2];
    }
}

TEST(hcl, hcl_to_rgb_assigns_by_hue_caps_and_reduces_chroma)
{
    enum { to_8, to_16, adapted };
    const struct { int kind; triple hcl, rgb; } cases[] = {
        {to_8, {0, 0, 50000}, {128, 128, 128}},          {to_8, {0, 100000, 50000}, {255, 0, 0}}, // 255 cap
        {to_8, {30000, 100000, 50000}, {255, 128, 0}},   {to_8, {60000, 100000, 50000}, {255, 255, 0}},
        {to_8, {90000, 100000, 50000}, {128, 255, 0}},   {to_8, {150000, 100000, 50000}, {0, 255, 128}},
        {to_8, {210000, 100000, 50000}, {0, 128, 255}},  {to_8, {270000, 100000, 50000}, {128, 0, 255}},
        {to_8, {300000, 100000, 50000}, {255, 0, 255}},  {to_8, {330000, 100000, 50000}, {255, 0, 128}},
        {to_8, {-60000, 100000, 50000}, {255, 0, 255}},  {to_8, {-360000, 100000, 50000}, {255, 0, 0}},
        {to_8, {720000, 100000, 50000}, {255, 0, 0}},    {to_8, {0, 100000, 90000}, {255, 204, 204}}, // c = 20000
        {to_8, {0, 0, 150000}, {255, 255, 255}},         {to_8, {0, 50000, -5}, {0, 0, 0}},
        {to_8, {0, 250000, 50000}, {255, 0, 0}},         {to_16, {0, 0, 50000}, {32768, 32768, 32768}},
        {to_16, {0, 100000, 50000}, {65535, 0, 0}},      {to_16, {0, 100000, 90000}, {65535, 52428, 52428}},
        {adapted, {0, 100000, 90000}, {65535, 0, 0}},    // bright: lightness gives way to chroma
        {adapted, {0, 60000, 10000}, {39321, 0, 0}},     // dark: lightness raised to c/2
        {adapted, {0, 20000, 50000}, {39321, 26214, 26214}},
    };
    for (const auto& c : cases) {
        triple rgb = {-1, -1, -1};
        u16 r16 = 0, g16 = 0, b16 = 0;
        if (c.kind == to_8) {
            vel::hcl_to_rgb_8(c.hcl[0], c.hcl[1], c.hcl[2], rgb[0], rgb[1], rgb[2]);
            u8 r8 = 0, g8 = 0, b8 = 0;
            vel::hcl_to_rgb_8(c.hcl[0], c.hcl[1], c.hcl[2], r8, g8, b8);
            EXPECT_EQ((triple{r8, g8, b8}), c.rgb) << c.hcl[0] << "," << c.hcl[1] << "," << c.hcl[2];
        } else {
            (c.kind == to_16 ? vel::hcl_to_rgb_16<u16> : vel::hcl_to_rgb_16_adapt_luminance<u16>)(
                c.hcl[0], c.hcl[1], c.hcl[2], r16, g16, b16);
            rgb = {r16, g16, b16};
        }
        EXPECT_EQ(rgb, c.rgb) << c.hcl[0] << "," << c.hcl[1] << "," << c.hcl[2];
    }
}

TEST(hcl, hsv_conversions_and_round_trips_within_one_level)
{
    const std::pair<triple, triple> hsv[] = {{{255, 0, 0}, {0, 100000, 100000}},
                                             {{0, 0, 255}, {240000, 100000, 100000}},
                                             {{255, 0, 1}, {359765, 100000, 100000}}};
    for (const auto& [rgb, expected] : hsv) {
        triple out = {-1, -1, -1};
        vel::rgb_to_hsv(u8(rgb[0]), u8(rgb[1]), u8(rgb[2]), out[0], out[1], out[2]);
        EXPECT_EQ(out, expected);
    }
    EXPECT_EQ((vel::pixel_hsv<std::array<u8, 4>>(120000, 100000, 100000)), (std::array<u8, 4>{0, 255, 0, 255}));

    for (int r = 0; r < 256; r += 17)
        for (int g = 0; g < 256; g += 17)
            for (int b = 0; b < 256; b += 17) {
                const auto off = [&](int r2, int g2, int b2) {
                    return std::max({std::abs(r2 - r), std::abs(g2 - g), std::abs(b2 - b)});
                };
                int h = 0, c = 0, l = 0, r2 = 0, g2 = 0, b2 = 0;
                vel::rgb_to_hcl(u8(r), u8(g), u8(b), h, c, l);
                vel::hcl_to_rgb_8(h, c, l, r2, g2, b2);
                EXPECT_LE(off(r2, g2, b2), 1) << r << "," << g << "," << b;
                vel::rgb_to_hsv(u8(r), u8(g), u8(b), h, c, l);
                const auto p = vel::pixel_hsv<std::array<u8, 3>>(h, c, l);
                EXPECT_LE(off(p[0], p[1], p[2]), 1) << r << "," << g << "," << b;
            }
}
