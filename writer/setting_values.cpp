// SPDX-License-Identifier: GPL-3.0-or-later
#include "writer/setting_values.h"
#include "color/conversion_log.h"

#include <QDebug>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// Style entries carry numbers with six decimals.
constexpr int entry_decimals = 6;
// Curve levels run from 0 to this value; the style wants fractions 0..1.
constexpr float level_max = 255.0f;

} // namespace

bool read_number(const settings_view& settings, const QString& key, float& value)
{
    const QString* found = settings.find(key);
    if (found == nullptr)
        return false;
    bool ok = false;
    const float converted = found->toFloat(&ok);
    // toFloat reports an overflow as a failure but still returns infinity;
    // "nan" converts but is no number a slider could have.
    if (!ok || std::isnan(converted))
        return false;
    value = converted;
    return true;
}

float number_or_zero(const settings_view& settings, const QString& key)
{
    float value = 0.0f;
    return read_number(settings, key, value) ? value : 0.0f;
}

QString six_decimals(float value)
{
    return QString::number(static_cast<double>(value), 'f', entry_decimals);
}

float clamp_value(float value, float low, float high)
{
    return qBound(low, value, high);
}

float map_two_ranges(float value, float in_min, float in_max, float out_min, float out_max)
{
    if (value >= 0.0f)
        return value / in_max * out_max;
    return (value - in_min) / (0.0f - in_min) * (0.0f - out_min) + out_min;
}

int truncate_to_int(float value)
{
    if (std::isnan(value))
        return 0;
    // 2^31 is exact in float; everything below it truncates into range.
    constexpr float int_limit = 2147483648.0f;
    if (value >= int_limit)
        return std::numeric_limits<int>::max();
    if (value < -int_limit)
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

void map_setting(const settings_view& settings, costyle_entries& entries, const QString& preset_key,
                 const QString& style_key, float in_min, float in_max, float out_min, float out_max)
{
    float v = 0.0f;
    if (!read_number(settings, preset_key, v))
        return;
    v = std::min(std::max(v, in_min), in_max);
    entries.insert(style_key, six_decimals(map_two_ranges(v, in_min, in_max, out_min, out_max)));
}

void copy_setting(const settings_view& settings, costyle_entries& entries, const QString& preset_key,
                  const QString& style_key)
{
    float v = 0.0f;
    if (!read_number(settings, preset_key, v))
        return;
    entries.insert(style_key, six_decimals(v));
}

void read_hsl_adjustments(const settings_view& settings, bool& found, QString& colour, float& hue,
                          float& saturation, float& luminance)
{
    // An empty name ends up as a single null character, which matches no key.
    if (colour.isEmpty())
        colour = QString(QChar(0));
    else
        colour[0] = colour[0].toUpper();

    const auto read = [&](const char* prefix, float& out) {
        float v = 0.0f;
        if (read_number(settings, QLatin1String(prefix) + colour, v)) {
            out = v;
            found = true;
        } else {
            out = 0.0f;
        }
    };
    read("HueAdjustment", hue);
    read("SaturationAdjustment", saturation);
    read("LuminanceAdjustment", luminance);
}

void set_curve_entry(costyle_entries& entries, const QString& key, const curve_points& curve)
{
    if (curve.isEmpty())
        return;
    QString text;
    for (const QPoint& p : curve) {
        if (p.x() < 0 || p.x() > 255 || p.y() < 0 || p.y() > 255)
            qCWarning(conversion_log) << "point" << p << "is out of range and will be clamped!";
        const float x = std::clamp(static_cast<float>(p.x()) / level_max, 0.0f, 1.0f);
        const float y = std::clamp(static_cast<float>(p.y()) / level_max, 0.0f, 1.0f);
        text += QStringLiteral("%1,%2;").arg(x, 0, 'f', entry_decimals).arg(y, 0, 'f', entry_decimals);
    }
    text.chop(1);
    entries.insert(key, text);
}
