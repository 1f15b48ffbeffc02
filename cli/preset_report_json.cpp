// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/preset_report_json.h"

#include "application/conversion_messages.h"
#include "application/preset_reading.h"
#include "application/preset_source.h"
#include "importer/lightroom_importer.h"
#include "writer/carried_settings.h"
#include "writer/check_costyle.h"

#include <QJsonArray>

#include <exception>

namespace {

QJsonArray curve_json(const QVector<QPoint>& curve)
{
    QJsonArray points;
    for (const QPoint& point : curve)
        points.append(QJsonArray{point.x(), point.y()});
    return points;
}

// The settings a style lacks, and beside them only the kinds of loss the
// preset has.
QJsonObject losses_json(const style_losses& losses)
{
    QJsonObject json{{QStringLiteral("settings"), QJsonArray::fromStringList(losses.settings)}};
    if (!losses.local_adjustments.isEmpty()) {
        QJsonObject counts;
        for (auto it = losses.local_adjustments.cbegin(); it != losses.local_adjustments.cend(); ++it)
            counts.insert(it.key(), it.value());
        json.insert(QStringLiteral("local_adjustments"), counts);
    }
    if (!losses.look.isEmpty())
        json.insert(QStringLiteral("look"), losses.look);
    if (!losses.white_balance.isEmpty())
        json.insert(QStringLiteral("white_balance"), losses.white_balance);
    return json;
}

QJsonObject preset_json(const QString& path, const lightroom_importer& record)
{
    QJsonObject settings;
    for (auto it = record.settings.cbegin(); it != record.settings.cend(); ++it)
        settings.insert(it.key(), it.value());

    const QJsonObject curves{{QStringLiteral("tone_curve"), curve_json(record.tone_curve)},
                             {QStringLiteral("tone_curve_red"), curve_json(record.tone_curve_red)},
                             {QStringLiteral("tone_curve_green"), curve_json(record.tone_curve_green)},
                             {QStringLiteral("tone_curve_blue"), curve_json(record.tone_curve_blue)}};

    // The flags need no colour tables, so no writer is built for them.
    bool white_balance = false;
    bool dehaze = false;
    bool lut = false;
    bool camera_calibration = false;
    check_preset_flags(white_balance, dehaze, lut, camera_calibration, record);
    const QJsonObject flags{{QStringLiteral("white_balance"), white_balance},
                            {QStringLiteral("dehaze"), dehaze},
                            {QStringLiteral("lut"), lut},
                            {QStringLiteral("camera_calibration"), camera_calibration}};

    return {{QStringLiteral("file"), path},
            {QStringLiteral("name"), record.name},
            {QStringLiteral("description"), record.description},
            {QStringLiteral("settings"), settings},
            {QStringLiteral("curves"), curves},
            {QStringLiteral("flags"), flags},
            {QStringLiteral("not_carried_over"), losses_json(what_a_style_leaves_out(record))}};
}

QString failure_text(const conversion_failure& failure)
{
    return failure.title + QStringLiteral(": ") + conversion_messages::plain_text(failure.text);
}

} // namespace

QJsonObject inspect_preset(const preset_source& preset, bool exists, QString& error)
{
    const QString& path = preset.path;
    if (!exists)
        error = QStringLiteral("No such file or folder.");
    else if (preset_format_of(path) == preset_format::unsupported)
        error = failure_text(conversion_messages::unsupported_format(path));
    else {
        try {
            lightroom_importer record;
            read_preset(preset, record);
            return preset_json(path, record);
        } catch (const std::exception& exception) {
            error = failure_text(conversion_messages::unreadable_preset(path, QString::fromUtf8(exception.what())));
        }
    }
    return {{QStringLiteral("file"), path}, {QStringLiteral("error"), error}};
}
