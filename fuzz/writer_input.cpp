// SPDX-License-Identifier: GPL-3.0-or-later
#include "writer_input.h"

#include "importer/lightroom_importer.h"
#include "writer/carried_settings.h"

#include <QSet>
#include <algorithm>

namespace writer_input {

const QStringList& writer_keys()
{
    static const QStringList keys = [] {
        // Two conversions that between them take every branch that reads a
        // setting: black and white, split toning, vignette and grain, both
        // tone processes and the fallback white balance keys.
        QSet<QString> set;
        for (const bool process_2010 : {false, true}) {
            lightroom_importer preset;
            preset.settings = {{QStringLiteral("ConvertToGrayscale"), QStringLiteral("True")},
                               {QStringLiteral("SplitToningShadowHue"), QStringLiteral("0")},
                               {QStringLiteral("VignetteAmount"), QStringLiteral("10")},
                               {QStringLiteral("GrainAmount"), QStringLiteral("10")}};
            if (process_2010)
                preset.settings.insert(QStringLiteral("Brightness"), QStringLiteral("0"));
            set.unite(keys_a_conversion_reads(preset));
        }
        // Read by the compatibility check only.
        for (const char* key : {"Dehaze", "RGBTable", "ShadowTint", "RedHue", "RedSaturation", "GreenHue",
                                "GreenSaturation", "BlueHue", "BlueSaturation", "IncrementalTint",
                                "IncrementalTemperature", "title"})
            set.insert(QString::fromLatin1(key));
        QStringList sorted(set.cbegin(), set.cend());
        std::sort(sorted.begin(), sorted.end());
        return sorted;
    }();
    return keys;
}

void decode(const QByteArray& input, lightroom_importer& record, QString& colour_space)
{
    const QStringList lines = QString::fromUtf8(input).split(QLatin1Char('\n'));
    colour_space = lines.value(0);
    QVector<QPoint>* const curves[] = {&record.tone_curve, &record.tone_curve_red, &record.tone_curve_green,
                                       &record.tone_curve_blue};
    for (int i = 1; i < lines.size(); ++i) {
        const QString& line = lines.at(i);
        const int equals = line.indexOf(QLatin1Char('='));
        if (equals < 0)
            continue;
        const QString key = line.left(equals);
        const QString value = line.mid(equals + 1);
        if (key == QLatin1String("#name")) {
            record.name = value;
        } else if (key.startsWith(QLatin1Char('@'))) {
            QVector<QPoint>& curve = *curves[static_cast<unsigned>(key.midRef(1).toUInt()) % 4];
            curve.clear();
            const QVector<QStringRef> points = value.splitRef(QLatin1Char(';'));
            for (const QStringRef& point : points) {
                if (curve.size() == max_curve_points)
                    break;
                const int comma = point.indexOf(QLatin1Char(','));
                curve.append(QPoint(point.left(comma).toInt(), comma < 0 ? 0 : point.mid(comma + 1).toInt()));
            }
        } else {
            bool is_index = false;
            const uint index = key.toUInt(&is_index);
            const QStringList& keys = writer_keys();
            record.settings.insert(is_index ? keys.at(static_cast<int>(index % static_cast<uint>(keys.size()))) : key,
                                   value);
        }
    }
}

QByteArray encode(const lightroom_importer& record, const QString& colour_space)
{
    // Line breaks would end a value early; a preset's values hold none that matter.
    const auto one_line = [](QString text) { return text.replace(QLatin1Char('\n'), QLatin1Char(' ')); };
    QString text = one_line(colour_space) + QLatin1Char('\n');
    if (!record.name.isEmpty())
        text += QStringLiteral("#name=") + one_line(record.name) + QLatin1Char('\n');
    for (auto it = record.settings.cbegin(); it != record.settings.cend(); ++it) {
        const int index = writer_keys().indexOf(it.key());
        if (index < 0 && (it.key().contains(QLatin1Char('=')) || it.key().startsWith(QLatin1Char('@'))
                          || it.key().startsWith(QLatin1Char('#'))))
            continue;
        text += (index >= 0 ? QString::number(index) : one_line(it.key())) + QLatin1Char('=') + one_line(it.value())
                + QLatin1Char('\n');
    }
    const QVector<QPoint>* const curves[] = {&record.tone_curve, &record.tone_curve_red, &record.tone_curve_green,
                                             &record.tone_curve_blue};
    for (int c = 0; c < 4; ++c) {
        if (curves[c]->isEmpty())
            continue;
        QStringList points;
        for (const QPoint& p : *curves[c])
            points << QStringLiteral("%1,%2").arg(p.x()).arg(p.y());
        text += QStringLiteral("@%1=").arg(c) + points.join(QLatin1Char(';')) + QLatin1Char('\n');
    }
    return text.toUtf8();
}

} // namespace writer_input
