// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/preset_report_json.h"

#include "conversion/conversion_messages.h"
#include "conversion/preset_outcome.h"
#include "conversion/preset_reading.h"
#include "importer/dng_packet.h"
#include "conversion/preset_source.h"
#include "importer/lightroom_importer.h"
#include "writer/carried_settings.h"
#include "writer/check_costyle.h"
#include "writer/loss_groups.h"

#include "cli/json_text.h"

#include <exception>

namespace {

void write_curve(json_text& json, const QString& name, const QVector<QPoint>& curve)
{
    json.key(name).begin_array();
    for (const QPoint& point : curve)
        json.begin_array().value(point.x()).value(point.y()).end_array();
    json.end_array();
}

// The settings a style lacks, and beside them only the kinds of loss the
// preset has.
void write_losses(json_text& json, const style_losses& losses)
{
    json.key(QStringLiteral("not_carried_over")).begin_object();
    // The same by the tools a photographer knows, each with its keys.
    json.key(QStringLiteral("groups")).begin_array();
    for (const lost_group& lost : lost_groups(losses)) {
        json.begin_object().key(QStringLiteral("id")).value(loss_group_id(lost.group));
        json.key(QStringLiteral("keys")).begin_array();
        for (const QString& key : lost.keys)
            json.value(key);
        json.end_array().end_object();
    }
    json.end_array();
    if (!losses.local_adjustments.isEmpty()) {
        json.key(QStringLiteral("local_adjustments")).begin_object();
        for (auto it = losses.local_adjustments.cbegin(); it != losses.local_adjustments.cend(); ++it)
            json.key(it.key()).value(it.value());
        json.end_object();
    }
    if (!losses.look.isEmpty())
        json.key(QStringLiteral("look")).value(losses.look);
    json.key(QStringLiteral("settings")).begin_array();
    for (const QString& key : losses.settings)
        json.value(key);
    json.end_array();
    if (!losses.white_balance.isEmpty())
        json.key(QStringLiteral("white_balance")).value(losses.white_balance);
    json.end_object();
}

// Keys in QJsonObject's order, which sorts them.
QByteArray preset_json(const QString& path, const lightroom_importer& record)
{
    bool white_balance = false;
    bool dehaze = false;
    bool lut = false;
    bool camera_calibration = false;
    check_preset_flags(white_balance, dehaze, lut, camera_calibration, record);

    json_text json(report_depth);
    json.begin_object();
    json.key(QStringLiteral("curves")).begin_object();
    write_curve(json, QStringLiteral("tone_curve"), record.tone_curve);
    write_curve(json, QStringLiteral("tone_curve_blue"), record.tone_curve_blue);
    write_curve(json, QStringLiteral("tone_curve_green"), record.tone_curve_green);
    write_curve(json, QStringLiteral("tone_curve_red"), record.tone_curve_red);
    json.end_object();
    json.key(QStringLiteral("description")).value(record.description);
    json.key(QStringLiteral("file")).value(path);
    json.key(QStringLiteral("flags")).begin_object();
    json.key(QStringLiteral("camera_calibration")).value(camera_calibration);
    json.key(QStringLiteral("dehaze")).value(dehaze);
    json.key(QStringLiteral("lut")).value(lut);
    json.key(QStringLiteral("white_balance")).value(white_balance);
    json.end_object();
    json.key(QStringLiteral("name")).value(record.name);
    write_losses(json, what_a_style_leaves_out(record, keys_a_conversion_reads(record)));
    json.key(QStringLiteral("settings")).begin_object();
    for (auto it = record.settings.cbegin(); it != record.settings.cend(); ++it)
        json.key(it.key()).value(it.value());
    json.end_object();
    // A profile is said as a run's account says it, beside its "file";
    // develop presets carry no such key.
    if (is_lightroom_profile(record.extras)) {
        preset_outcome profile;
        profile.kind = outcome_kind::skipped;
        profile.skipped_as = skip_reason::profile;
        json.key(QStringLiteral("skipped")).value(conversion_messages::outcome_line(profile));
    }
    json.end_object();
    return json.text();
}

QString failure_text(const conversion_failure& failure)
{
    return failure.title + QStringLiteral(": ") + failure.plain;
}

} // namespace

QByteArray inspect_preset(const preset_source& preset, bool exists, QString& error)
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
        } catch (const no_develop_settings&) {
            error = failure_text(conversion_messages::no_develop_settings(path));
        } catch (const std::exception& exception) {
            error = failure_text(conversion_messages::unreadable_preset(path, QString::fromUtf8(exception.what())));
        }
    }
    json_text json(report_depth);
    json.begin_object().key(QStringLiteral("error")).value(error).key(QStringLiteral("file")).value(path).end_object();
    return json.text();
}
