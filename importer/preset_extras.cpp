// SPDX-License-Identifier: GPL-3.0-or-later
#include "importer/preset_extras.h"

#include <array>
#include <utility>

void preset_extras::note_local_adjustments(const QString& key, int count)
{
    static const std::array<std::pair<QLatin1String, QLatin1String>, 4> kinds = {{
        {QLatin1String("GradientBasedCorrections"), QLatin1String("gradient")},
        {QLatin1String("CircularGradientBasedCorrections"), QLatin1String("radial")},
        {QLatin1String("PaintBasedCorrections"), QLatin1String("brush")},
        {QLatin1String("MaskGroupBasedCorrections"), QLatin1String("mask_groups")},
    }};
    for (const auto& [list_key, kind] : kinds) {
        if (key == list_key && count > 0)
            local_adjustments[kind] += count;
    }
}

bool is_lightroom_profile(const preset_extras& extras)
{
    return extras.preset_type == QLatin1String("Look");
}

QString named_white_balance(const QMap<QString, QString>& settings)
{
    QString name = settings.value(QStringLiteral("WhiteBalance"));
    if (name.size() >= 2 && name.startsWith(QLatin1Char('"')) && name.endsWith(QLatin1Char('"')))
        name = name.mid(1, name.size() - 2);
    if (name == QLatin1String("As Shot") || name == QLatin1String("Custom"))
        return QString();
    return name;
}
