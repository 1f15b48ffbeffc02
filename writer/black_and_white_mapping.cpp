// SPDX-License-Identifier: GPL-3.0-or-later
// Lightroom's eight-channel gray mixer onto Capture One's six-channel
// black-and-white mixer.

#include "writer/mapping_context.h"

namespace {

namespace key {
const QString red = QStringLiteral("GrayMixerRed");
const QString orange = QStringLiteral("GrayMixerOrange");
const QString yellow = QStringLiteral("GrayMixerYellow");
const QString green = QStringLiteral("GrayMixerGreen");
const QString aqua = QStringLiteral("GrayMixerAqua");
const QString blue = QStringLiteral("GrayMixerBlue");
const QString purple = QStringLiteral("GrayMixerPurple");
const QString magenta = QStringLiteral("GrayMixerMagenta");
} // namespace key

constexpr float mixer_limit = 100.0f;
// Capture One has no orange and no purple channel: each gives half of itself
// to its two neighbours.
constexpr float neighbour_share = 0.5f;

float clamped_mixer(float value)
{
    // The equal ranges leave the value as it is apart from rounding; the full
    // two-range formula is kept so the last decimal of negative fractions
    // comes out the same as in every other group.
    return map_two_ranges(clamp_value(value, -mixer_limit, mixer_limit), -mixer_limit, mixer_limit, -mixer_limit,
                          mixer_limit);
}

float blended(float channel, float neighbour)
{
    return clamp_value(channel + neighbour_share * neighbour, -mixer_limit, mixer_limit);
}

} // namespace

void map_black_and_white(mapping_context& context)
{
    const settings_view& settings = context.settings;
    costyle_entries& entries = context.entries;

    entries.insert(QStringLiteral("BwEnabled"), QStringLiteral("1"));

    // Unlike the other groups an absent channel is written as 0: the mixer is
    // always complete once the style is black and white.
    const float red = clamped_mixer(number_or_zero(settings, key::red));
    const float orange = clamped_mixer(number_or_zero(settings, key::orange));
    const float yellow = clamped_mixer(number_or_zero(settings, key::yellow));
    const float green = number_or_zero(settings, key::green);
    const float aqua = number_or_zero(settings, key::aqua);
    const float blue = clamped_mixer(number_or_zero(settings, key::blue));
    const float purple = clamped_mixer(number_or_zero(settings, key::purple));
    const float magenta = clamped_mixer(number_or_zero(settings, key::magenta));

    entries.insert(QStringLiteral("BwRed"), six_decimals(blended(red, orange)));
    entries.insert(QStringLiteral("BwYellow"), six_decimals(blended(yellow, orange)));
    // Green and aqua have no neighbour to take from and go through unclamped.
    entries.insert(QStringLiteral("BwGreen"), six_decimals(green));
    entries.insert(QStringLiteral("BwCyan"), six_decimals(aqua));
    entries.insert(QStringLiteral("BwBlue"), six_decimals(blended(blue, purple)));
    entries.insert(QStringLiteral("BwMagenta"), six_decimals(blended(magenta, purple)));
}

