// SPDX-License-Identifier: GPL-3.0-or-later
// The point curves, sharpening and noise reduction, post-crop vignetting and
// film grain.

#include "writer/mapping_context.h"
#include "color/conversion_log.h"
#include "writer/setting_values.h"

#include "color/tone_curve.h"
#include "importer/lightroom_importer.h"

#include <QtDebug>

namespace {

namespace key {
const QString sharpness = QStringLiteral("Sharpness");
const QString sharpen_radius = QStringLiteral("SharpenRadius");
const QString luminance_smoothing = QStringLiteral("LuminanceSmoothing");
const QString colour_noise_reduction = QStringLiteral("ColorNoiseReduction");
const QString luminance_noise_detail = QStringLiteral("LuminanceNoiseReductionDetail");

const QString vignette_amount = QStringLiteral("PostCropVignetteAmount");
const QString vignette_roundness = QStringLiteral("PostCropVignetteRoundness");

const QString grain_amount = QStringLiteral("GrainAmount");
const QString grain_size = QStringLiteral("GrainSize");
} // namespace key

// Sharpening and noise values go over unscaled: both programs use the same scales.
struct plain_copy {
    const QString& preset_key;
    QString style_key;
};
const plain_copy detail_copies[] = {
    {key::sharpness, QStringLiteral("UsmAmount")},
    {key::sharpen_radius, QStringLiteral("UsmRadius")},
    {key::luminance_smoothing, QStringLiteral("NrAmount")},
    {key::colour_noise_reduction, QStringLiteral("CnrAmount")},
    {key::luminance_noise_detail, QStringLiteral("NoiseDetailsAmount")},
};

// Lightroom amounts beyond +-60 are clamped; +-60 is Capture One's +-4 EV.
constexpr float vignette_amount_limit = 60.0f;
constexpr float vignette_ev_limit = 4.0f;
// Below this roundness the vignette keeps Capture One's elliptic shape.
constexpr float elliptic_roundness_limit = 30.0f;
const QString vignetting_template = QStringLiteral("%1|1|0|%2");

// Upper grain sizes of Capture One's grain types 0, 1, 2 and 4; larger is
// type 5. Type 3 has no Lightroom counterpart and is never chosen.
struct grain_type_limit {
    float max_size;
    unsigned type;
};
const grain_type_limit grain_types[] = {{10.0f, 0u}, {22.0f, 1u}, {30.0f, 2u}, {45.0f, 4u}};
constexpr unsigned coarsest_grain_type = 5u;
const QString grain_density = QStringLiteral("0");
const QString grain_granularity = QStringLiteral("50");

// The compensation needs a master curve; none in the preset means no change.
const curve_points straight_curve = {QPoint(0, 0), QPoint(255, 255)};

struct channel_curve {
    const curve_points lightroom_importer::*curve;
    const char* name;
    QString style_key;
};
const channel_curve channel_curves[] = {
    {&lightroom_importer::tone_curve_red, "ToneCurvePV2012Red", QStringLiteral("GradationCurveRed")},
    {&lightroom_importer::tone_curve_green, "ToneCurvePV2012Green", QStringLiteral("GradationCurveGreen")},
    {&lightroom_importer::tone_curve_blue, "ToneCurvePV2012Blue", QStringLiteral("GradationCurveBlue")},
};

// A curve the spline cannot pass through is left out with a warning, so it
// never reaches a spline evaluation.
bool usable_or_warn(const curve_points& curve, const char* name)
{
    if (curve.isEmpty())
        return false;
    if (curve_is_usable(curve))
        return true;
    qCWarning(conversion_log, "Point curve %s is left out: it needs at least two points with x ascending at least 1 apart.", name);
    return false;
}

void map_vignetting(mapping_context& context)
{
    float amount = 0.0f;
    float roundness = 0.0f;
    if (!read_number(context.settings, key::vignette_amount, amount) ||
        !read_number(context.settings, key::vignette_roundness, roundness))
        return;
    const float ev = map_two_ranges(clamp_value(amount, -vignette_amount_limit, vignette_amount_limit),
                                    -vignette_amount_limit, vignette_amount_limit, -vignette_ev_limit,
                                    vignette_ev_limit);
    const bool elliptic = clamp_value(roundness, -100.0f, 100.0f) < elliptic_roundness_limit;
    context.entries.insert(QStringLiteral("Vignetting"),
                           vignetting_template.arg(six_decimals(ev), elliptic ? QStringLiteral("1")
                                                                              : QStringLiteral("0")));
}

void map_grain(mapping_context& context)
{
    float size = 0.0f;
    if (!context.settings.contains(key::grain_amount) || !read_number(context.settings, key::grain_size, size))
        return;
    size = clamp_value(size, 0.0f, 100.0f);
    unsigned type = coarsest_grain_type;
    for (const grain_type_limit& limit : grain_types) {
        if (size <= limit.max_size) {
            type = limit.type;
            break;
        }
    }
    copy_setting(context.settings, context.entries, key::grain_amount, QStringLiteral("FilmGrainAmount"));
    context.entries.insert(QStringLiteral("FilmGrainDensity"), grain_density);
    context.entries.insert(QStringLiteral("FilmGrainGranularity"), grain_granularity);
    context.entries.insert(QStringLiteral("FilmGrainType"), QString::number(type));
}

} // namespace

void map_point_curves(mapping_context& context)
{
    const lightroom_importer& preset = context.preset;
    const bool has_master = usable_or_warn(preset.tone_curve, "ToneCurvePV2012");
    const curve_points& master = has_master ? preset.tone_curve : straight_curve;

    // Capture One applies a channel curve after the master curve, Lightroom
    // beside it: each channel curve is rewritten against the master curve as
    // read. The same in every colour space.
    bool rastered = false;
    rgb_inverse_map inverse_map;
    for (const channel_curve& channel : channel_curves) {
        const curve_points& curve = preset.*channel.curve;
        if (!usable_or_warn(curve, channel.name))
            continue;
        if (!rastered) {
            qCInfo(conversion_log) << "Rastering RGB Curve at" << master;
            inverse_map = build_rgb_inverse_map(master);
            rastered = true;
        }
        // compensate_with_rgb_curve resamples the channel curve itself.
        const curve_points compensated = compensate_with_rgb_curve(curve, master, inverse_map);
        qCInfo(conversion_log) << "Applying offsets" << compensated << "to curve" << channel.name;
        set_curve_entry(context.entries, channel.style_key, compensated);
    }

    if (!has_master)
        return;
    curve_points luma = resample_curve(master);
    // A black-and-white style keeps the shadows of the master curve as they are.
    if (!context.flags.grayscale)
        luma = soften_shadow_points(luma);
    set_curve_entry(context.entries, QStringLiteral("GradationCurve"), luma);
}

void map_detail_and_effects(mapping_context& context)
{
    for (const plain_copy& copy : detail_copies)
        copy_setting(context.settings, context.entries, copy.preset_key, copy.style_key);
    map_vignetting(context);
    map_grain(context);
}

