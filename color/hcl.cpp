// SPDX-License-Identifier: GPL-3.0-or-later
#include "color/hcl.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace vel {

namespace {

// Hue in thousandths of a degree: one sector of the colour wheel and a full turn.
constexpr std::int64_t hue_sector = 60000;
constexpr std::int64_t full_turn = 360000;
// Chroma and lightness run from 0 to this value.
constexpr std::int64_t hcl_full = 100000;
constexpr std::int64_t hcl_half = 50000;

// Shared by the 8- and 16-bit forms. Products such as 60000 * 65535 do not
// fit in 32 bits, so everything is computed in 64 bits. Returns the raw
// channel range (max - min) and sum (max + min) still in channel units.
void hue_chroma_sum(std::int64_t r, std::int64_t g, std::int64_t b, std::int64_t& h, std::int64_t& c,
                    std::int64_t& l)
{
    if (b <= r && r >= g && g <= b) {
        c = r - g;
        l = r + g;
        h = c == 0 ? 0 : hue_sector * (g - b) / c + full_turn;
    } else if (b <= r && r >= g) {
        c = r - b;
        l = r + b;
        h = c == 0 ? 0 : hue_sector * (g - b) / c;
    } else if (b <= r) {
        c = g - b;
        l = g + b;
        h = c == 0 ? 0 : hue_sector * (b - r) / c + 2 * hue_sector;
    } else if (b >= g) {
        const std::int64_t lowest = r >= g ? g : r;
        c = b - lowest;
        l = b + lowest;
        h = c == 0 ? 0 : hue_sector * (r - g) / c + 4 * hue_sector;
    } else {
        c = g - r;
        l = g + r;
        h = c == 0 ? 0 : hue_sector * (b - r) / c + 2 * hue_sector;
    }
}

// Max, min and the interpolated middle channel on the 0..100000 scale, and
// the hue normalised to 0..359999.
void hcl_channels(int h_in, int c_in, int l_in, std::int64_t& h, std::int64_t& max, std::int64_t& mid,
                  std::int64_t& min)
{
    const std::int64_t l = std::clamp<std::int64_t>(l_in, 0, hcl_full);
    std::int64_t c = std::clamp<std::int64_t>(c_in, 0, hcl_full);
    const std::int64_t e = 2 * std::llabs(l - hcl_half);
    if (c + e > hcl_full)
        c = hcl_full - e; // the chroma that the lightness allows

    const std::int64_t half = c / 2;
    max = l + half;
    min = l - half;

    h = h_in;
    if (h < 0)
        h = h % full_turn + full_turn;
    h %= full_turn;

    const std::int64_t sector = h / hue_sector;
    const std::int64_t f = h - sector * hue_sector;
    if (sector % 2 == 0)
        mid = f * max + (hue_sector - f) * min;
    else
        mid = f * min + (hue_sector - f) * max;
    mid /= hue_sector;
}

template <typename T> void assign_by_hue(std::int64_t h, T max, T mid, T min, T& r, T& g, T& b)
{
    if (h <= hue_sector) {
        r = max, g = mid, b = min;
    } else if (h <= 2 * hue_sector) {
        r = mid, g = max, b = min;
    } else if (h <= 3 * hue_sector) {
        r = min, g = max, b = mid;
    } else if (h <= 4 * hue_sector) {
        r = min, g = mid, b = max;
    } else if (h <= 5 * hue_sector) {
        r = mid, g = min, b = max;
    } else {
        r = max, g = min, b = mid;
    }
}

std::int64_t to_8_bit(std::int64_t v)
{
    return v * 256 >= 256 * hcl_full ? 255 : v * 256 / hcl_full;
}

std::int64_t to_16_bit(std::int64_t v)
{
    return v * 65536 >= 65536 * hcl_full ? 65535 : v * 65536 / hcl_full;
}

} // namespace

void rgb_to_hcl(unsigned char r, unsigned char g, unsigned char b, int& h, int& c, int& l)
{
    std::int64_t hh = 0, cc = 0, ll = 0;
    hue_chroma_sum(r, g, b, hh, cc, ll);
    // No wrap of the hue here: red with green equal to blue stays at 360000.
    h = static_cast<int>(hh);
    c = static_cast<int>(cc * hcl_full / 255);
    l = static_cast<int>(ll * hcl_full / 510);
}

void rgb_to_hcl(unsigned short r, unsigned short g, unsigned short b, int& h, int& c, int& l)
{
    std::int64_t hh = 0, cc = 0, ll = 0;
    hue_chroma_sum(r, g, b, hh, cc, ll);
    h = hh >= full_turn ? 0 : static_cast<int>(hh);
    c = static_cast<int>(cc * hcl_full / 65535);
    l = static_cast<int>(ll * hcl_full / 131070);
}

template <typename T> void hcl_to_rgb_8(int h, int c, int l, T& r, T& g, T& b)
{
    std::int64_t hue = 0, max = 0, mid = 0, min = 0;
    hcl_channels(h, c, l, hue, max, mid, min);
    assign_by_hue(hue, static_cast<T>(to_8_bit(max)), static_cast<T>(to_8_bit(mid)),
                  static_cast<T>(to_8_bit(min)), r, g, b);
}

template <typename T> void hcl_to_rgb_16(int h, int c, int l, T& r, T& g, T& b)
{
    std::int64_t hue = 0, max = 0, mid = 0, min = 0;
    hcl_channels(h, c, l, hue, max, mid, min);
    assign_by_hue(hue, static_cast<T>(to_16_bit(max)), static_cast<T>(to_16_bit(mid)),
                  static_cast<T>(to_16_bit(min)), r, g, b);
}

template <typename T> void hcl_to_rgb_16_adapt_luminance(int h, int c, int l, T& r, T& g, T& b)
{
    c = std::clamp(c, 0, static_cast<int>(hcl_full));
    l = std::clamp(l, 0, static_cast<int>(hcl_full));
    if (c + 2 * std::abs(l - static_cast<int>(hcl_half)) > hcl_full) {
        // Lightness gives way to chroma: the colour keeps its saturation.
        l = l <= hcl_half ? c / 2 : static_cast<int>(hcl_full) - c / 2;
    }
    hcl_to_rgb_16(h, c, l, r, g, b);
}

void rgb_to_hsv(unsigned char r, unsigned char g, unsigned char b, int& h, int& s, int& v)
{
    const int max = std::max({r, g, b});
    const int min = std::min({r, g, b});
    const std::int64_t range = max - min;
    v = static_cast<int>(max * hcl_full / 255);
    s = max == 0 ? 0 : static_cast<int>(range * hcl_full / max);
    if (range == 0) {
        h = 0;
        return;
    }
    std::int64_t hue = 0;
    if (max == r)
        hue = hue_sector * (g - b) / range;
    else if (max == g)
        hue = hue_sector * (b - r) / range + 2 * hue_sector;
    else
        hue = hue_sector * (r - g) / range + 4 * hue_sector;
    if (hue < 0)
        hue += full_turn;
    h = static_cast<int>(hue);
}

template void hcl_to_rgb_8<int>(int, int, int, int&, int&, int&);
template void hcl_to_rgb_8<unsigned char>(int, int, int, unsigned char&, unsigned char&, unsigned char&);
template void hcl_to_rgb_8<unsigned short>(int, int, int, unsigned short&, unsigned short&, unsigned short&);
template void hcl_to_rgb_16<int>(int, int, int, int&, int&, int&);
template void hcl_to_rgb_16<unsigned short>(int, int, int, unsigned short&, unsigned short&, unsigned short&);
template void hcl_to_rgb_16_adapt_luminance<int>(int, int, int, int&, int&, int&);
template void hcl_to_rgb_16_adapt_luminance<unsigned short>(int, int, int, unsigned short&, unsigned short&,
                                                            unsigned short&);

} // namespace vel
