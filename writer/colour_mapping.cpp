// SPDX-License-Identifier: GPL-3.0-or-later
// Split toning into colour balance (or the black-and-white toning of a
// monochrome style), and vibrance with the per-hue adjustments into the one
// "ColorCorrections" entry. Colours are moved through the active colour table.

#include "writer/mapping_context.h"
#include "writer/setting_values.h"

#include "color/colour_table.h"
#include "color/hcl.h"
#include "color/tone_curve.h"

#include <array>
#include <cmath>

namespace {

namespace key {
const QString shadow_hue = QStringLiteral("SplitToningShadowHue");
const QString shadow_saturation = QStringLiteral("SplitToningShadowSaturation");
const QString highlight_hue = QStringLiteral("SplitToningHighlightHue");
const QString highlight_saturation = QStringLiteral("SplitToningHighlightSaturation");
const QString balance = QStringLiteral("SplitToningBalance");

const QString parametric_shadows = QStringLiteral("ParametricShadows");
const QString parametric_darks = QStringLiteral("ParametricDarks");
const QString parametric_lights = QStringLiteral("ParametricLights");
const QString parametric_highlights = QStringLiteral("ParametricHighlights");

const QString vibrance = QStringLiteral("Vibrance");
} // namespace key

const QString* const split_toning_keys[] = {&key::shadow_hue, &key::shadow_saturation, &key::highlight_hue,
                                            &key::highlight_saturation, &key::balance};

// --- split toning -----------------------------------------------------------

// The toning colour is built at half chroma so the table can move it without
// leaving its gamut, and shown again at full chroma once its hue is converted.
constexpr int toning_probe_chroma = 50000;
constexpr int toning_full_chroma = 100000;
constexpr int toning_lightness = 50000;
// HCL hues are thousandths of a degree.
constexpr float hue_scale = 1000.0f;
// Table values are fractions; this brings them back to 8-bit levels.
constexpr float table_to_8_bit = 256.0f;

// Lightroom's toning saturation stops having an effect at 50.
constexpr float max_toning_saturation = 50.0f;
// Strongest pull of a factor away from 1 at full saturation.
constexpr float toning_strength = 0.3f;
// The highlight colour reaches the highlight range at a third of its strength.
constexpr float highlight_range_share = 3.0f;
// Capture One's light toning saturation runs stronger than Lightroom's.
constexpr float light_toning_saturation_scale = 0.4f;

// Lightroom's balance slider onto the share of one tone blended into the other.
const point_table balance_blend = {{-100, -100}, {-68, -100}, {-23, -50}, {0, -25},
                                   {40, 0},      {77, 25},    {100, 75}};

// Strongest darkening or brightening of a tone range by the parametric curve.
constexpr float parametric_strength = 0.25f;

const QString colour_balance_template = QStringLiteral("%1;%2;%3");

using factors = std::array<float, 3>; // red, green, blue

struct toning_colour {
    int converted_hue = 0;
    int r = 0;
    int g = 0;
    int b = 0;
};

int table_level(float component)
{
    // Negative table values count as black; the cap keeps an exact 1.0 of the
    // identity table from wrapping round in the 8-bit conversion.
    const int level = truncate_to_int(component * table_to_8_bit);
    if (level < 0)
        return 0;
    return level > 255 ? 255 : level;
}

toning_colour toning_colour_for(const colour_table& table, float lightroom_hue)
{
    int r = 0;
    int g = 0;
    int b = 0;
    // A single-precision product, then truncated; a hue beyond the int range
    // (or not a number) is kept defined by truncate_to_int.
    vel::hcl_to_rgb_8<int>(truncate_to_int(lightroom_hue * hue_scale), toning_probe_chroma, toning_lightness, r, g, b);
    const colour_entry moved = table.lookup(r, g, b);

    toning_colour colour;
    int chroma = 0;
    int lightness = 0;
    vel::rgb_to_hcl(static_cast<unsigned char>(table_level(moved.r)), static_cast<unsigned char>(table_level(moved.g)),
                    static_cast<unsigned char>(table_level(moved.b)), colour.converted_hue, chroma, lightness);
    vel::hcl_to_rgb_8<int>(colour.converted_hue, toning_full_chroma, toning_lightness, colour.r, colour.g, colour.b);
    return colour;
}

float toning_factor(int component, float saturation_share)
{
    return 1.0f - (255.0f - static_cast<float>(component)) / 255.0f * toning_strength * saturation_share;
}

float third_strength_factor(int component, float saturation_share)
{
    return 1.0f - (255.0f - static_cast<float>(component)) / 255.0f * toning_strength * saturation_share /
                      highlight_range_share;
}

factors factors_of(const toning_colour& colour, float (*factor)(int, float), float saturation_share)
{
    return {factor(colour.r, saturation_share), factor(colour.g, saturation_share), factor(colour.b, saturation_share)};
}

void blend_towards(factors& blended, const factors& target, float weight)
{
    for (std::size_t i = 0; i < blended.size(); ++i)
        blended[i] = blended[i] * (1.0f - weight) + target[i] * weight;
}

float parametric_share(float k)
{
    return 1.0f - parametric_strength * std::fabs(k) / 100.0f;
}

QString colour_balance_text(const factors& values, float amount)
{
    return colour_balance_template.arg(six_decimals(values[0] * amount), six_decimals(values[1] * amount),
                                       six_decimals(values[2] * amount));
}

// --- colour corrections -------------------------------------------------------

// Vibrance -100..100 onto Capture One's -80..80, zero fixed.
constexpr float vibrance_limit = 80.0f;

struct hue_range {
    float hue_low, hue_high;
    float saturation_low, saturation_high;
    float luminance_low, luminance_high;
    QString colour; // Lightroom's colour name, as read_hsl_adjustments takes it
    QString editor_template;
};

// Output ranges of Lightroom's per-hue sliders in Capture One's colour editor.
// The lopsided ranges are tuned by eye and kept exactly; purple's saturation
// passes through unchanged. Each template is one colour-editor entry for that
// hue's sector, with its hue, saturation and luminance shift as %1, %2, %3.
const hue_range hue_ranges[] = {
    {-30.0f, 30.0f, -60.0f, 40.0f, -5.0f, 3.0f, QStringLiteral("red"),
     QStringLiteral("1,1,0,%1,%2,%3,237,45.3288917541504,66.479118347168,-9.59939575195312,9.18455505371094,"
                    "-80.8738861083984,19.1261138916016,25.9748382568359,0,0,0,0;")},
    {-30.0f, 30.0f, -50.0f, 22.0f, -4.4f, 4.0f, QStringLiteral("orange"),
     QStringLiteral("1,1,0,%1,%2,%3,255,130,12,0,4.55426025390625,-95.2941207885742,4.70587921142578,"
                    "18.2099227905273,0,0,0,0;")},
    {-30.0f, 30.0f, -80.0f, 30.0f, -3.0f, 5.0f, QStringLiteral("yellow"),
     QStringLiteral("1,1,0,%1,%2,%3,255,225.91796875,36.1078147888184,-5.1807861328125,1.47015380859375,"
                    "-85.8400726318359,14.1599273681641,20.3872756958008,0,0,0,0;")},
    {-30.0f, 30.0f, -66.0f, 55.0f, -5.0f, 2.8f, QStringLiteral("green"),
     QStringLiteral("1,1,0,%1,%2,%3,58.8606338500977,208,10.4000005722046,-33.7201843261719,32.3572998046875,-95,5,"
                    "23.2739639282227,0,0,0,0;")},
    {-30.0f, 30.0f, -54.0f, 65.0f, -5.8f, 3.3f, QStringLiteral("aqua"),
     QStringLiteral("1,1,0,%1,%2,%3,22.6761436462402,216,177.109222412109,-4.34454345703125,5.92352294921875,"
                    "-89.5017852783203,10.4982147216797,28.4633140563965,0,0,0,0;")},
    {-30.0f, 30.0f, -59.0f, 50.0f, -5.0f, 3.5f, QStringLiteral("blue"),
     QStringLiteral("1,1,0,%1,%2,%3,61.345775604248,87.8979263305664,165,-14.3739013671875,22.6552124023438,"
                    "-62.820743560791,37.179256439209,27.3963947296143,0,0,0,0;")},
    {-30.0f, 30.0f, -100.0f, 100.0f, -7.0f, 6.3f, QStringLiteral("purple"),
     QStringLiteral("1,1,0,%1,%2,%3,104,0,148,-12.1621704101562,2.99188232421875,-100,0,26.3488998413086,0,0,0,0;")},
    {-30.0f, 30.0f, -70.0f, 60.0f, -8.0f, 4.6f, QStringLiteral("magenta"),
     QStringLiteral("1,1,0,%1,%2,%3,235,50.884838104248,191.595169067383,-6.26992797851562,5.4552001953125,"
                    "-78.3468780517578,21.6531219482422,20.9790744781494,0,0,0,0;")},
};

// Six fixed colour-editor entries that shape Lightroom's vibrance, and a
// seventh whose %1 carries the vibrance amount.
const QString vibrance_base_text = QStringLiteral(
    "1,1,1,0,0,0,127,63,119,-28.822566986084,28.822566986084,-50,50,12,0,0,0,0;"
    "1,1,1,0,0,0,67,63,127,-21.9782791137695,21.9782791137695,-50,50,12,0,0,0,0;"
    "1,1,1,0,0,0,63,118,127,-22.3223114013672,22.3223114013672,-50,50,12,0,0,0,0;"
    "1,1,1,0,0,0,69,127,63,-38.9258460998535,38.9258460998535,-50,50,12,0,0,0,0;"
    "1,1,1,0,0,0,127,115,63,-13.5424394607544,13.5424394607544,-50,50,12,0,0,0,0;"
    "1,1,1,0,0,0,127,68,63,-18.4085693359375,18.4085693359375,-50,50,12,0,0,0,0;"
    "0,1,1,0,%1,0,0,0,0,0,0,0,0,0,0,0,0,0;");

// The entry every style ends its colour corrections with; on its own it is
// the whole entry of a preset without colour settings.
const QString fixed_correction_text = QStringLiteral(
    "1,1,2,2.36563158035278,-15.9744558334351,0,174,139,97,0,25,-42.1264381408691,25.6254768371582,25,0,0,0,0");

float mapped_adjustment(float value, float low, float high)
{
    return map_two_ranges(clamp_value(value, -100.0f, 100.0f), -100.0f, 100.0f, low, high);
}

} // namespace

void map_split_toning(mapping_context& context)
{
    const settings_view& settings = context.settings;
    costyle_entries& entries = context.entries;

    // The colour-balance entries are written whenever any split-toning key is
    // present; what is absent counts as 0.
    bool present = false;
    for (const QString* k : split_toning_keys)
        present = present || settings.contains(*k);
    if (!present)
        return;

    const float shadow_hue = number_or_zero(settings, key::shadow_hue);
    const float shadow_saturation = number_or_zero(settings, key::shadow_saturation);
    const float highlight_hue = number_or_zero(settings, key::highlight_hue);
    const float highlight_saturation = number_or_zero(settings, key::highlight_saturation);

    const toning_colour shadow_colour = toning_colour_for(context.table, shadow_hue);
    const toning_colour highlight_colour = toning_colour_for(context.table, highlight_hue);

    const float shadow_share = clamp_value(shadow_saturation, 0.0f, max_toning_saturation) / max_toning_saturation;
    const float highlight_share =
        clamp_value(highlight_saturation, 0.0f, max_toning_saturation) / max_toning_saturation;
    factors shadow = factors_of(shadow_colour, toning_factor, shadow_share);
    factors highlight = factors_of(highlight_colour, toning_factor, highlight_share);
    factors highlight_third = factors_of(highlight_colour, third_strength_factor, highlight_share);

    const float balance = map_to_points(balance_blend, clamp_value(number_or_zero(settings, key::balance), -100.0f, 100.0f));
    const float weight = std::fabs(balance) / 100.0f;
    // Only the full-strength factors are blended; the highlight range keeps
    // its third-strength colour whatever the balance.
    if (balance < 0.0f)
        blend_towards(highlight, shadow, weight);
    else if (balance > 0.0f)
        blend_towards(shadow, highlight, weight);

    if (context.flags.grayscale) {
        // The dark saturation goes over as read while the light one is scaled.
        entries.insert(QStringLiteral("BwDarkHue"),
                       six_decimals(static_cast<float>(shadow_colour.converted_hue) / hue_scale));
        entries.insert(QStringLiteral("BwDarkSaturation"), six_decimals(shadow_saturation));
        entries.insert(QStringLiteral("BwLightHue"),
                       six_decimals(static_cast<float>(highlight_colour.converted_hue) / hue_scale));
        entries.insert(QStringLiteral("BwLightSaturation"),
                       six_decimals(highlight_saturation * light_toning_saturation_scale));
        // A black-and-white style is toned by the entries above; its colour
        // balance keeps only the parametric tone amounts.
        shadow.fill(1.0f);
        highlight.fill(1.0f);
        highlight_third.fill(1.0f);
    }

    const float darks = number_or_zero(settings, key::parametric_darks);
    const float ks = clamp_value(number_or_zero(settings, key::parametric_shadows) + clamp_value(darks, -100.0f, 0.0f),
                                 -100.0f, 100.0f);
    const float km = clamp_value(number_or_zero(settings, key::parametric_lights) + clamp_value(darks, 0.0f, 100.0f),
                                 -100.0f, 100.0f);
    const float kh = number_or_zero(settings, key::parametric_highlights);

    // Lifted shadows leave the shadow balance alone: it has no reciprocal branch.
    const float shadow_amount = ks <= 0.0f ? parametric_share(ks) : 1.0f;
    const auto tone_amount = [](float k) {
        if (k == 0.0f)
            return 1.0f;
        return k < 0.0f ? parametric_share(k) : 1.0f / parametric_share(k);
    };

    entries.insert(QStringLiteral("ColorBalanceShadow"), colour_balance_text(shadow, shadow_amount));
    entries.insert(QStringLiteral("ColorBalanceMidtone"), colour_balance_text(highlight, tone_amount(km)));
    entries.insert(QStringLiteral("ColorBalanceHighlight"), colour_balance_text(highlight_third, tone_amount(kh)));
}

void map_colour_corrections(mapping_context& context)
{
    const settings_view& settings = context.settings;

    // Vibrance counts on presence alone; a text that is not a number is 0.
    bool colour_found = false;
    float vibrance = 0.0f;
    if (settings.contains(key::vibrance)) {
        vibrance = map_two_ranges(clamp_value(number_or_zero(settings, key::vibrance), -100.0f, 100.0f), -100.0f,
                                  100.0f, -vibrance_limit, vibrance_limit);
        colour_found = true;
    }

    struct adjustment {
        float hue = 0.0f;
        float saturation = 0.0f;
        float luminance = 0.0f;
    };
    std::array<adjustment, std::size(hue_ranges)> adjustments;
    for (std::size_t i = 0; i < adjustments.size(); ++i) {
        // read_hsl_adjustments capitalises the name in place; give it a copy.
        QString colour = hue_ranges[i].colour;
        read_hsl_adjustments(settings, colour_found, colour, adjustments[i].hue, adjustments[i].saturation,
                             adjustments[i].luminance);
    }

    if (!colour_found) {
        context.entries.insert(QStringLiteral("ColorCorrections"), fixed_correction_text);
        return;
    }

    QString text;
    if (vibrance != 0.0f)
        text += vibrance_base_text.arg(six_decimals(vibrance));
    for (std::size_t i = 0; i < adjustments.size(); ++i) {
        const hue_range& range = hue_ranges[i];
        text += range.editor_template.arg(
            six_decimals(mapped_adjustment(adjustments[i].hue, range.hue_low, range.hue_high)),
            six_decimals(mapped_adjustment(adjustments[i].saturation, range.saturation_low, range.saturation_high)),
            six_decimals(mapped_adjustment(adjustments[i].luminance, range.luminance_low, range.luminance_high)));
    }
    text += fixed_correction_text;
    context.entries.insert(QStringLiteral("ColorCorrections"), text);
}

