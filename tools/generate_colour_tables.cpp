// SPDX-License-Identifier: GPL-3.0-or-later
// Generates the three colour tables that ship with Stylewright: ProPhoto RGB
// to Adobe RGB (1998), to sRGB and to Wide Gamut RGB, as 17 x 17 x 17 3DL
// files with 10-bit values.
//
// The colour spaces are built from their published white points, primaries
// and tone curves, and LittleCMS 2 does the conversion (relative
// colorimetric, floating point, unbounded; each output is then clipped to
// 0..1 and rounded to 0..1023).
//
// Usage: generate_colour_tables <output folder>
//
// The sRGB table this produces maps the grid points (0, 0, 64), (0, 0, 128)
// and (0, 0, 192) to (0, 0, 87), (0, 0, 185) and (0, 0, 271) (within 2 of the
// published anchors 88, 185 and 273), and both
// (0, 0, 960) and (0, 0, 1023) to (0, 0, 1023).

#include <lcms2.h>

#include <cmath>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace {

// The input grid: 17 points from 0 to 1023 in steps of 64, the last one
// pulled down to the 10-bit maximum.
constexpr int grid_points = 17;
constexpr int grid_step = 64;
constexpr int ten_bit_max = 1023;

// Gamma 1.8 of ProPhoto RGB and 563/256 (about 2.2) of Adobe RGB and Wide Gamut RGB.
constexpr double prophoto_gamma = 1.8;
constexpr double adobe_gamma = 563.0 / 256.0;

struct profile_deleter {
    void operator()(void* profile) const { cmsCloseProfile(profile); }
};
using profile_ptr = std::unique_ptr<void, profile_deleter>;

struct transform_deleter {
    void operator()(void* transform) const { cmsDeleteTransform(transform); }
};
using transform_ptr = std::unique_ptr<void, transform_deleter>;

profile_ptr rgb_profile(const cmsCIExyY& white, const cmsCIExyYTRIPLE& primaries, double gamma)
{
    cmsToneCurve* curve = cmsBuildGamma(nullptr, gamma);
    if (!curve)
        return nullptr;
    cmsToneCurve* curves[3] = {curve, curve, curve};
    profile_ptr profile(cmsCreateRGBProfile(&white, &primaries, curves));
    cmsFreeToneCurve(curve);
    return profile;
}

profile_ptr prophoto_profile()
{
    const cmsCIExyYTRIPLE primaries = {{0.7347, 0.2653, 1.0}, {0.1596, 0.8404, 1.0}, {0.0366, 0.0001, 1.0}};
    return rgb_profile(*cmsD50_xyY(), primaries, prophoto_gamma);
}

profile_ptr adobe_rgb_profile()
{
    const cmsCIExyY d65 = {0.3127, 0.3290, 1.0};
    const cmsCIExyYTRIPLE primaries = {{0.64, 0.33, 1.0}, {0.21, 0.71, 1.0}, {0.15, 0.06, 1.0}};
    return rgb_profile(d65, primaries, adobe_gamma);
}

profile_ptr wide_gamut_rgb_profile()
{
    const cmsCIExyYTRIPLE primaries = {{0.7347, 0.2653, 1.0}, {0.1152, 0.8264, 1.0}, {0.1566, 0.0177, 1.0}};
    return rgb_profile(*cmsD50_xyY(), primaries, adobe_gamma);
}

int grid_value(int index)
{
    return index == grid_points - 1 ? ten_bit_max : index * grid_step;
}

int to_ten_bit(double v)
{
    if (!(v > 0.0))
        v = 0.0;
    if (v > 1.0)
        v = 1.0;
    return static_cast<int>(std::lround(v * ten_bit_max));
}

bool write_table(const std::string& path, const char* title, cmsHPROFILE source, cmsHPROFILE target)
{
    transform_ptr transform(cmsCreateTransform(source, TYPE_RGB_DBL, target, TYPE_RGB_DBL,
                                               INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOCACHE));
    if (!transform) {
        std::fprintf(stderr, "Can't create the transform for %s\n", path.c_str());
        return false;
    }

    std::string text;
    text += "# ";
    text += title;
    text += "\n3DMESH\nMesh 4 10\n";
    for (int i = 0; i < grid_points; ++i) {
        text += std::to_string(grid_value(i));
        text += i + 1 < grid_points ? " " : "\n";
    }
    // Red varies slowest, blue fastest.
    for (int r = 0; r < grid_points; ++r) {
        for (int g = 0; g < grid_points; ++g) {
            for (int b = 0; b < grid_points; ++b) {
                const double in[3] = {static_cast<double>(grid_value(r)) / ten_bit_max,
                                      static_cast<double>(grid_value(g)) / ten_bit_max,
                                      static_cast<double>(grid_value(b)) / ten_bit_max};
                double out[3] = {0.0, 0.0, 0.0};
                cmsDoTransform(transform.get(), in, out, 1);
                text += std::to_string(to_ten_bit(out[0])) + ' ' + std::to_string(to_ten_bit(out[1])) + ' ' +
                        std::to_string(to_ten_bit(out[2])) + '\n';
            }
        }
    }

    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) {
        std::fprintf(stderr, "Can't write %s\n", path.c_str());
        return false;
    }
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    const bool closed = std::fclose(file) == 0;
    if (!written || !closed) {
        std::fprintf(stderr, "Can't write %s\n", path.c_str());
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "Usage: %s <output folder>\n", argv[0]);
        return 2;
    }
    const std::string folder = argv[1];

    const profile_ptr prophoto = prophoto_profile();
    const profile_ptr adobe = adobe_rgb_profile();
    const profile_ptr srgb(cmsCreate_sRGBProfile());
    const profile_ptr wide_gamut = wide_gamut_rgb_profile();
    if (!prophoto || !adobe || !srgb || !wide_gamut) {
        std::fprintf(stderr, "Can't create the colour profiles\n");
        return 1;
    }

    const bool ok =
        write_table(folder + "/ProPhotoRGB_to_AdobeRGB1998.3dl", "ProPhoto RGB to Adobe RGB (1998)",
                    prophoto.get(), adobe.get()) &&
        write_table(folder + "/ProPhotoRGB_to_sRGB.3dl", "ProPhoto RGB to sRGB", prophoto.get(), srgb.get()) &&
        write_table(folder + "/ProPhotoRGB_to_WideGamutRGB.3dl", "ProPhoto RGB to Wide Gamut RGB",
                    prophoto.get(), wide_gamut.get());
    return ok ? 0 : 1;
}
