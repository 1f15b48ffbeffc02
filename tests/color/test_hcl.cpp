#include "color/hcl.h"
#include "color/pixel_hsv.h"

#include <array>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

using triple = std::array<int, 3>;

TEST(hcl, rgb_to_hcl_covers_every_branch_in_8_and_16_bits)
{
    const struct {
        const char* name;
        bool wide; // 16-bit input
        int r, g, b, h, c, l;
    } cases[] = {
        {"red: 360000, not 0", false, 255, 0, 0, 360000, 100000, 50000},
        {"red max, green below blue", false, 255, 0, 51, 348000, 100000, 50000},
        {"negative part truncates toward zero", false, 255, 0, 1, 359765, 100000, 50000},
        {"yellow", false, 255, 255, 0, 60000, 100000, 50000},
        {"red max, green above blue", false, 255, 128, 0, 30117, 100000, 50000},
        {"green max over red", false, 100, 200, 50, 100000, 58823, 49019},
        {"blue", false, 0, 0, 255, 240000, 100000, 50000},
        {"blue max, green lowest", false, 100, 50, 200, 260000, 58823, 49019},
        {"blue max, red lowest", false, 50, 100, 200, 220000, 58823, 49019},
        {"green max over blue over red", false, 50, 200, 100, 140000, 58823, 49019},
        {"grey", false, 128, 128, 128, 0, 0, 50196},
        {"black", false, 0, 0, 0, 0, 0, 0},
        {"white", false, 255, 255, 255, 0, 0, 100000},
        {"16-bit red wraps to 0", true, 65535, 0, 0, 0, 100000, 50000},
        {"16-bit yellow: 60000 * 65535 overflows 32 bits", true, 65535, 65535, 0, 60000, 100000, 50000},
        {"16-bit blue", true, 0, 0, 65535, 240000, 100000, 50000},
        {"16-bit grey", true, 32768, 32768, 32768, 0, 0, 50000},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        int h = -1, ch = -1, l = -1;
        if (c.wide)
            vel::rgb_to_hcl(static_cast<unsigned short>(c.r), static_cast<unsigned short>(c.g),
                            static_cast<unsigned short>(c.b), h, ch, l);
        else
            vel::rgb_to_hcl(static_cast<unsigned char>(c.r), static_cast<unsigned char>(c.g),
                            static_cast<unsigned char>(c.b), h, ch, l);
        EXPECT_EQ((triple{h, ch, l}), (triple{c.h, c.c, c.l}));
    }
}

enum conversion { to_8, to_16, to_16_adapted };

TEST(hcl, hcl_to_rgb_assigns_by_hue_caps_and_reduces_chroma)
{
    const struct {
        const char* name;
        conversion kind;
        int h, c, l, r, g, b;
    } cases[] = {
        {"grey", to_8, 0, 0, 50000, 128, 128, 128},
        {"red through the 255 cap", to_8, 0, 100000, 50000, 255, 0, 0},
        {"sector 0", to_8, 30000, 100000, 50000, 255, 128, 0},
        {"yellow", to_8, 60000, 100000, 50000, 255, 255, 0},
        {"sector 1", to_8, 90000, 100000, 50000, 128, 255, 0},
        {"sector 2", to_8, 150000, 100000, 50000, 0, 255, 128},
        {"sector 3", to_8, 210000, 100000, 50000, 0, 128, 255},
        {"sector 4", to_8, 270000, 100000, 50000, 128, 0, 255},
        {"magenta", to_8, 300000, 100000, 50000, 255, 0, 255},
        {"sector 5", to_8, 330000, 100000, 50000, 255, 0, 128},
        {"negative hue", to_8, -60000, 100000, 50000, 255, 0, 255},
        {"negative full turn", to_8, -360000, 100000, 50000, 255, 0, 0},
        {"two turns", to_8, 720000, 100000, 50000, 255, 0, 0},
        {"chroma reduced to 20000 by lightness", to_8, 0, 100000, 90000, 255, 204, 204},
        {"lightness clamped high", to_8, 0, 0, 150000, 255, 255, 255},
        {"lightness clamped low", to_8, 0, 50000, -5, 0, 0, 0},
        {"chroma clamped", to_8, 0, 250000, 50000, 255, 0, 0},
        {"16-bit grey", to_16, 0, 0, 50000, 32768, 32768, 32768},
        {"16-bit red through the cap", to_16, 0, 100000, 50000, 65535, 0, 0},
        {"16-bit chroma gives way to lightness", to_16, 0, 100000, 90000, 65535, 52428, 52428},
        {"adapted bright: lightness gives way to chroma", to_16_adapted, 0, 100000, 90000, 65535, 0, 0},
        {"adapted dark: lightness raised to c/2", to_16_adapted, 0, 60000, 10000, 39321, 0, 0},
        {"adapted in range: unchanged", to_16_adapted, 0, 20000, 50000, 39321, 26214, 26214},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        int r = -1, g = -1, b = -1;
        unsigned short r16 = 0, g16 = 0, b16 = 0;
        if (c.kind == to_8) {
            vel::hcl_to_rgb_8(c.h, c.c, c.l, r, g, b);
            unsigned char r8 = 0, g8 = 0, b8 = 0;
            vel::hcl_to_rgb_8(c.h, c.c, c.l, r8, g8, b8);
            EXPECT_EQ((triple{r8, g8, b8}), (triple{c.r, c.g, c.b}));
        } else if (c.kind == to_16) {
            vel::hcl_to_rgb_16(c.h, c.c, c.l, r16, g16, b16);
            r = r16, g = g16, b = b16;
        } else {
            vel::hcl_to_rgb_16_adapt_luminance(c.h, c.c, c.l, r16, g16, b16);
            r = r16, g = g16, b = b16;
        }
        EXPECT_EQ((triple{r, g, b}), (triple{c.r, c.g, c.b}));
    }
}

TEST(hcl, hcl_and_hsv_round_trips_stay_within_one_level)
{
    for (int r = 0; r < 256; r += 17)
        for (int g = 0; g < 256; g += 17)
            for (int b = 0; b < 256; b += 17) {
                SCOPED_TRACE(testing::Message() << r << "," << g << "," << b);
                const auto u8 = [](int v) { return static_cast<unsigned char>(v); };
                int h = 0, c = 0, l = 0, r2 = 0, g2 = 0, b2 = 0;
                vel::rgb_to_hcl(u8(r), u8(g), u8(b), h, c, l);
                vel::hcl_to_rgb_8(h, c, l, r2, g2, b2);
                EXPECT_LE(std::max({std::abs(r2 - r), std::abs(g2 - g), std::abs(b2 - b)}), 1);
                vel::rgb_to_hsv(u8(r), u8(g), u8(b), h, c, l);
                const auto p = vel::pixel_hsv<std::array<unsigned char, 3>>(h, c, l);
                EXPECT_LE(std::max({std::abs(p[0] - r), std::abs(p[1] - g), std::abs(p[2] - b)}), 1);
            }
}

TEST(hsv, rgb_to_hsv_and_pixel_hsv)
{
    const struct {
        int r, g, b, h, s, v;
    } cases[] = {
        {255, 0, 0, 0, 100000, 100000}, {0, 0, 255, 240000, 100000, 100000}, {255, 0, 1, 359765, 100000, 100000}};
    for (const auto& c : cases) {
        int h = -1, s = -1, v = -1;
        vel::rgb_to_hsv(static_cast<unsigned char>(c.r), static_cast<unsigned char>(c.g),
                        static_cast<unsigned char>(c.b), h, s, v);
        EXPECT_EQ((triple{h, s, v}), (triple{c.h, c.s, c.v})) << c.h;
    }
    const auto rgba = vel::pixel_hsv<std::array<unsigned char, 4>>(120000, 100000, 100000);
    EXPECT_EQ(rgba, (std::array<unsigned char, 4>{0, 255, 0, 255}));
}

} // namespace
