// SPDX-License-Identifier: GPL-3.0-or-later
// White balance, the tone controls of Lightroom's 2010 and 2012 processes,
// the levels and luma curve that stand in for them, clarity and saturation.
// All arithmetic is single precision, operation by operation as written.

#include "writer/mapping_context.h"
#include "color/conversion_log.h"
#include "writer/setting_values.h"

#include "color/tint_shift.h"
#include "color/tone_curve.h"

#include <cmath>

namespace {

namespace key {
const QString temperature = QStringLiteral("Temperature");
const QString incremental_temperature = QStringLiteral("IncrementalTemperature");
const QString tint = QStringLiteral("Tint");
const QString incremental_tint = QStringLiteral("IncrementalTint");

const QString brightness = QStringLiteral("Brightness");
const QString contrast = QStringLiteral("Contrast");
const QString exposure = QStringLiteral("Exposure");
const QString fill_light = QStringLiteral("FillLight");
const QString highlight_recovery = QStringLiteral("HighlightRecovery");
const QString shadows = QStringLiteral("Shadows");

const QString exposure_2012 = QStringLiteral("Exposure2012");
const QString contrast_2012 = QStringLiteral("Contrast2012");
const QString shadows_2012 = QStringLiteral("Shadows2012");
const QString highlights_2012 = QStringLiteral("Highlights2012");
const QString blacks_2012 = QStringLiteral("Blacks2012");
const QString whites_2012 = QStringLiteral("Whites2012");

const QString clarity = QStringLiteral("Clarity");
const QString clarity_2012 = QStringLiteral("Clarity2012");
const QString saturation = QStringLiteral("Saturation");
} // namespace key

// Capture One's white-balance temperature range in kelvin.
constexpr float min_kelvin = 800.0f;
constexpr float max_kelvin = 14000.0f;
// The relative temperature slider of presets for non-raw files, as kelvin.
const point_table incremental_temperature_kelvin = {
    {-100, 2000}, {-75, 2417}, {-50, 2985}, {-25, 3791}, {0, 5500},
    {25, 6957},   {50, 10526}, {75, 18605}, {100, 50000},
};
// Capture One needs both halves of a white balance; these are its neutral values.
const QString neutral_temperature = QStringLiteral("5000");
const QString neutral_tint = QStringLiteral("0");

// The black level that the darkest Lightroom shadow/black setting reaches.
constexpr float deepest_black_level = 0.189092f;

const QString shadow_levels_template = QStringLiteral("0.0000;0.0000;0.0000;%1");
const QString untouched_shadow_target = QStringLiteral("0.0000;0.0000;0.0000;0.0000");
const QString midtone_levels_template = QStringLiteral("0;0;0;%1");
const QString highlight_levels_template = QStringLiteral("1;1;1;%1");
const QString untouched_highlight = QStringLiteral("1;1;1;1");

const QString straight_luma_curve = QStringLiteral("0.0000,0.0000;1.0000,1.0000");
const QString luma_curve_template =
    QStringLiteral("0.0000,0.0000;0.2000,%1;0.4000,%2;0.6000,%3;0.8000,%4;1.0000,1.0000");

// Positive whites lower the highlight level; a raw style needs the stronger pull.
constexpr float whites_highlight_scale_raw = -0.5f;
constexpr float whites_highlight_scale = -0.1565f;

// Capture One's clarity method that matches Lightroom's look.
const QString clarity_method = QStringLiteral("2");

QString kelvin_text(float kelvin)
{
    // Shortest form (5500, 3629.8): Capture One writes temperatures like this.
    return QString::number(static_cast<double>(clamp_value(kelvin, min_kelvin, max_kelvin)), 'g', 6);
}

float tint_shift_for(const mapping_context& context, float kelvin)
{
    switch (context.space.value_or(colour_space::adobe)) {
    case colour_space::srgb:
        return get_tint_shift(tint_curve::srgb, kelvin);
    case colour_space::prophoto:
        return get_tint_shift(tint_curve::prophoto, kelvin);
    case colour_space::widegamut:
        return get_tint_shift(tint_curve::widegamut, kelvin);
    case colour_space::raw:
        return 0.0f;
    case colour_space::adobe:
        break;
    }
    // Adobe RGB and unknown names get no tint correction.
    qCWarning(conversion_log, "get_tint_shift: Unknown color space: %s. Not ofsetting.", qUtf8Printable(context.colour_space));
    return 0.0f;
}

} // namespace

void map_white_balance(mapping_context& context)
{
    const settings_view& settings = context.settings;
    costyle_entries& entries = context.entries;
    bool temperature_written = false;
    bool tint_written = false;

    // For the temperature the presence of the key decides the source: a
    // "Temperature" that is not a number still hides "IncrementalTemperature".
    float value = 0.0f;
    if (settings.contains(key::temperature)) {
        if (read_number(settings, key::temperature, value)) {
            // The shift is taken at the unclamped temperature; it clamps on its own.
            context.tint_offset = tint_shift_for(context, value);
            entries.insert(QStringLiteral("WhiteBalanceTemperature"), kelvin_text(value));
            temperature_written = true;
        }
    } else if (read_number(settings, key::incremental_temperature, value)) {
        const float kelvin = map_to_points(incremental_temperature_kelvin, clamp_value(value, -100.0f, 100.0f));
        context.tint_offset = tint_shift_for(context, kelvin);
        entries.insert(QStringLiteral("WhiteBalanceTemperature"), kelvin_text(kelvin));
        temperature_written = true;
    }

    // For the tint the validity decides: a "Tint" that is not a number lets
    // "IncrementalTint" through.
    if (read_number(settings, key::tint, value)) {
        const float tint = clamp_value(value, -150.0f, 150.0f) / 3.0f;
        entries.insert(QStringLiteral("WhiteBalanceTint"), six_decimals(clamp_value(tint + context.tint_offset, -50.0f, 50.0f)));
        tint_written = true;
    } else if (read_number(settings, key::incremental_tint, value)) {
        const float tint = clamp_value(value, -100.0f, 100.0f) / 2.0f;
        entries.insert(QStringLiteral("WhiteBalanceTint"), six_decimals(clamp_value(tint + context.tint_offset, -50.0f, 50.0f)));
        tint_written = true;
    }

    if (tint_written && !temperature_written)
        entries.insert(QStringLiteral("WhiteBalanceTemperature"), neutral_temperature);
    if (temperature_written && !tint_written)
        entries.insert(QStringLiteral("WhiteBalanceTint"), neutral_tint);
}

void map_process_2010_tone(mapping_context& context)
{
    const settings_view& settings = context.settings;
    costyle_entries& entries = context.entries;

    // The crossing of Brightness and Exposure, the lopsided contrast output and
    // the exposure input range are tuned to match the two programs' looks.
    map_setting(settings, entries, key::brightness, QStringLiteral("Exposure"), -150.0f, 150.0f, -3.0f, 3.0f);
    map_setting(settings, entries, key::contrast, QStringLiteral("Contrast"), -100.0f, 100.0f, -50.0f, 40.0f);
    map_setting(settings, entries, key::exposure, QStringLiteral("Brightness"), -2.5f, 1.75f, -50.0f, 50.0f);
    map_setting(settings, entries, key::fill_light, QStringLiteral("ShadowRecovery"), 0.0f, 40.0f, 0.0f, 100.0f);
    map_setting(settings, entries, key::highlight_recovery, QStringLiteral("HighlightRecovery"), 0.0f, 100.0f, 0.0f,
                50.0f);

    // The 2010 black point becomes the shadow level.
    float shadows = 0.0f;
    if (read_number(settings, key::shadows, shadows)) {
        const float level = clamp_value(shadows, 0.0f, 42.0f) / 42.0f * deepest_black_level;
        entries.insert(QStringLiteral("Shadow"), shadow_levels_template.arg(six_decimals(level)));
        entries.insert(QStringLiteral("TargetShadow"), untouched_shadow_target);
    }
}

void map_process_2012_tone(mapping_context& context)
{
    const settings_view& settings = context.settings;
    costyle_entries& entries = context.entries;

    map_setting(settings, entries, key::exposure_2012, QStringLiteral("Exposure"), -3.5f, 3.5f, -4.0f, 4.0f);
    map_setting(settings, entries, key::contrast_2012, QStringLiteral("Contrast"), -100.0f, 100.0f, -50.0f, 40.0f);

    float value = 0.0f;
    if (read_number(settings, key::shadows_2012, value)) {
        if (value < 0.0f) {
            // Darker shadows only lower the curve; Capture One has no negative recovery.
            const float c = clamp_value(value, -100.0f, 100.0f);
            context.y20 = 0.15f + 0.05f * (c + 100.0f) / 100.0f;
        } else if (value > 0.0f) {
            // Deliberately unclamped on this side.
            entries.insert(QStringLiteral("ShadowRecovery"), six_decimals(value * 0.8f));
        }
    }

    float highlights = 0.0f;
    if (read_number(settings, key::highlights_2012, highlights)) {
        const float c = clamp_value(highlights, -100.0f, 100.0f);
        if (c < 0.0f) {
            context.y60 = 0.53f + 0.07f * (c + 100.0f) / 100.0f;
            context.y80 = 0.73f + 0.07f * (c + 100.0f) / 100.0f;
            // The y40 correction is summed on its own first (the constants 0.35
            // and -0.4 instead of -0.05 keep its rounding), then added to y40.
            const float y40_correction = 0.05f * (c + 100.0f) / 100.0f + 0.35f - 0.4f;
            context.y40 = context.y40 + y40_correction;
            // Only a raw style recovers highlights; from the unclamped value.
            if (context.is_raw())
                entries.insert(QStringLiteral("HighlightRecovery"), six_decimals(std::fabs(highlights) * 0.5f));
        } else {
            context.y60 = 0.6f + 0.11f * c / 100.0f;
            context.y80 = 0.8f + 0.13f * c / 100.0f;
        }
    }

    if (read_number(settings, key::blacks_2012, value)) {
        if (value < 0.0f) {
            const float c = clamp_value(value, -100.0f, 0.0f);
            const float level = deepest_black_level - deepest_black_level * (c + 100.0f) / 100.0f;
            entries.insert(QStringLiteral("Shadow"), shadow_levels_template.arg(six_decimals(level)));
            entries.insert(QStringLiteral("TargetShadow"), untouched_shadow_target);
        } else {
            const float t = clamp_value(value, 0.0f, 100.0f) / 100.0f;
            context.y40 = context.y40 + 0.035f * t;
            context.y20 = context.y20 + 0.05f * t;
            context.luma_curve_marked = true;
        }
    }

    // Presence of "Highlights2012" is enough, even when its text is not a number.
    if (settings.contains(key::highlights_2012) || context.luma_curve_marked) {
        const bool all_zero = number_or_zero(settings, key::highlights_2012) == 0.0f &&
                              number_or_zero(settings, key::shadows_2012) == 0.0f &&
                              number_or_zero(settings, key::blacks_2012) == 0.0f;
        entries.insert(QStringLiteral("GradationCurveY"),
                       all_zero ? straight_luma_curve
                                : luma_curve_template.arg(six_decimals(context.y20), six_decimals(context.y40),
                                                          six_decimals(context.y60), six_decimals(context.y80)));
    }

    if (read_number(settings, key::whites_2012, value)) {
        if (value < 0.0f) {
            const float t = (clamp_value(value, -100.0f, 0.0f) + 100.0f) / 100.0f;
            entries.insert(QStringLiteral("Midtone"), midtone_levels_template.arg(six_decimals(0.0365f - 0.0365f * t)));
            entries.insert(QStringLiteral("Highlight"), untouched_highlight);
            entries.insert(QStringLiteral("TargetHighlight"),
                           highlight_levels_template.arg(six_decimals(0.8343f + 0.1657f * t)));
        } else {
            const float t = clamp_value(value, 0.0f, 100.0f) / 100.0f;
            const float k = context.is_raw() ? whites_highlight_scale_raw : whites_highlight_scale;
            entries.insert(QStringLiteral("Highlight"), highlight_levels_template.arg(six_decimals(1.0f + k * t)));
            entries.insert(QStringLiteral("TargetHighlight"), untouched_highlight);
        }
    }
}

void map_clarity(mapping_context& context)
{
    const QString& source = context.flags.process_2010 ? key::clarity : key::clarity_2012;
    float value = 0.0f;
    if (!read_number(context.settings, source, value))
        return;
    context.entries.insert(QStringLiteral("Clarity"), six_decimals(value));
    context.entries.insert(QStringLiteral("ClarityMethod"), clarity_method);
    context.entries.insert(QStringLiteral("ClarityStructure"), six_decimals(value / 3.0f));
}

void map_saturation(mapping_context& context)
{
    copy_setting(context.settings, context.entries, key::saturation, QStringLiteral("Saturation"));
}

