// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>
#include <tuple>

namespace vel {

// An 8-bit pixel of three (R, G, B) or four (R, G, B, A) channels from hue in
// thousandths of a degree and saturation and value on 0..100000, the scales
// of rgb_to_hsv. Works for any indexable pixel with a tuple size, such as
// std::array<unsigned char, 3> or std::array<unsigned char, 4>; a fourth
// channel is made opaque.
template <typename pixel> pixel pixel_hsv(int h, int s, int v)
{
    constexpr std::int64_t sector_width = 60000;
    constexpr std::int64_t full_turn = 360000;
    constexpr std::int64_t full_scale = 100000;
    constexpr std::size_t channels = std::tuple_size<pixel>::value;
    static_assert(channels == 3 || channels == 4, "pixel_hsv makes 3- or 4-channel pixels");

    std::int64_t hue = h % full_turn;
    if (hue < 0)
        hue += full_turn;
    const std::int64_t sat = std::clamp<std::int64_t>(s, 0, full_scale);
    const std::int64_t val = std::clamp<std::int64_t>(v, 0, full_scale);

    const std::int64_t sector = hue / sector_width;
    const std::int64_t f = hue - sector * sector_width;
    // Channel values on 0..255, all from the same 64-bit products.
    const auto to_8_bit = [](std::int64_t x) { return static_cast<unsigned char>(x * 255 / full_scale); };
    const unsigned char max = to_8_bit(val);
    const unsigned char min = to_8_bit(val * (full_scale - sat) / full_scale);
    const unsigned char falling = to_8_bit(val * (full_scale - sat * f / sector_width) / full_scale);
    const unsigned char rising =
        to_8_bit(val * (full_scale - sat * (sector_width - f) / sector_width) / full_scale);

    unsigned char r = max, g = rising, b = min;
    switch (sector) {
    case 0: r = max, g = rising, b = min; break;
    case 1: r = falling, g = max, b = min; break;
    case 2: r = min, g = max, b = rising; break;
    case 3: r = min, g = falling, b = max; break;
    case 4: r = rising, g = min, b = max; break;
    default: r = max, g = min, b = falling; break;
    }

    pixel p{};
    p[0] = r;
    p[1] = g;
    p[2] = b;
    if constexpr (channels == 4)
        p[3] = 255;
    return p;
}

} // namespace vel
