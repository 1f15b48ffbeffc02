// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Integer hue/chroma/lightness model: hue in thousandths of a degree
// (0..360000), chroma and lightness 0..100000. All divisions truncate.
namespace vel {

void rgb_to_hcl(unsigned char r, unsigned char g, unsigned char b, int& h, int& c, int& l);
void rgb_to_hcl(unsigned short r, unsigned short g, unsigned short b, int& h, int& c, int& l);

template <typename T> void hcl_to_rgb_8(int h, int c, int l, T& r, T& g, T& b);
template <typename T> void hcl_to_rgb_16(int h, int c, int l, T& r, T& g, T& b);
template <typename T> void hcl_to_rgb_16_adapt_luminance(int h, int c, int l, T& r, T& g, T& b);

void rgb_to_hsv(unsigned char r, unsigned char g, unsigned char b, int& h, int& s, int& v);

} // namespace vel
