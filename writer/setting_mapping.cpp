#include "writer/setting_mapping.h"

#include <QDebug>
#include <algorithm>
#include <cmath>

namespace {

// Style entries carry numbers with six decimals.
constexpr int entry_decimals = 6;
// Curve levels run from 0 to this value; the style wants fractions 0..1.
constexpr float level_max = 255.0f;

bool numeric_setting(const preset_settings& settings, const QString& key, float& value)
{
    const auto found = settings.constFind(key);
    if (found == settings.constEnd())
        return false;
    bool ok = false;
    value = found->toFloat(&ok);
    // "nan" converts but is no number a slider could have.
    return ok && !std::isnan(value);
}

} // namespace

void map_setting(const preset_settings& settings, costyle_entries& entries, const QString& preset_key,
                 const QString& style_key, float in_min, float in_max, float out_min, float out_max)
{
    float v = 0.0f;
    if (!numeric_setting(settings, preset_key, v))
        return;
    v = std::min(std::max(v, in_min), in_max);

    // Each half has its own scale; zero always maps to zero. Every step is
    // rounded to single precision on its own, so the results match the
    // values the mapping constants were tuned with.
    float result = 0.0f;
    if (v >= 0.0f) {
        const float ratio = v / in_max;
        result = ratio * out_max;
    } else {
        const float shifted = v - in_min;
        const float ratio = shifted / (0.0f - in_min);
        const float scaled = ratio * (0.0f - out_min);
        result = scaled + out_min;
    }
    entries.insert(style_key, QString::number(result, 'f', entry_decimals));
}

void copy_setting(const preset_settings& settings, costyle_entries& entries, const QString& preset_key,
                  const QString& style_key)
{
    float v = 0.0f;
    if (!numeric_setting(settings, preset_key, v))
        return;
    entries.insert(style_key, QString::number(v, 'f', entry_decimals));
}

void read_hsl_adjustments(const preset_settings& settings, bool& found, QString& colour, float& hue,
                          float& saturation, float& luminance)
{
    // An empty name ends up as a single null character, which matches no key.
    if (colour.isEmpty())
        colour = QString(QChar(0));
    else
        colour[0] = colour[0].toUpper();

    const auto read = [&](const char* prefix, float& out) {
        float v = 0.0f;
        if (numeric_setting(settings, QLatin1String(prefix) + colour, v)) {
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
            qWarning() << "point" << p << "is out of range and will be clamped!";
        const float x = std::clamp(static_cast<float>(p.x()) / level_max, 0.0f, 1.0f);
        const float y = std::clamp(static_cast<float>(p.y()) / level_max, 0.0f, 1.0f);
        text += QStringLiteral("%1,%2;").arg(x, 0, 'f', entry_decimals).arg(y, 0, 'f', entry_decimals);
    }
    text.chop(1);
    entries.insert(key, text);
}
