// SPDX-License-Identifier: GPL-3.0-or-later
#include "writer/carried_settings.h"
#include "writer/costyle_writer.h"

#include "color/conversion_log.h"

#include "importer/lightroom_importer.h"

namespace {

// Keys that describe the preset file rather than a develop setting, so their
// absence from a style is no loss: template bookkeeping (title, id, uuid,
// internalName, type, version), the XMP preset's identity and version
// (about, Name, UUID, Version, ProcessVersion, PresetType, Cluster, Copyright,
// ContactInfo, CameraModelRestriction, HasSettings, AlreadyApplied,
// RequiresRGBTables), its Supports* flags, and the names of the point curves
// whose points are carried over separately (ToneCurveName, ToneCurveName2012).
// ProcessVersion is among them because the writer recognises the process by
// the tone keys a preset carries, not by the version number. Image metadata
// of sidecar files (camera, lens, dates) is not filtered: such files are not
// presets, and what they hold is listed as it is.
const QSet<QString>& bookkeeping_keys()
{
    static const QSet<QString> keys = {
        QStringLiteral("title"),
        QStringLiteral("id"),
        QStringLiteral("uuid"),
        QStringLiteral("internalName"),
        QStringLiteral("type"),
        QStringLiteral("version"),
        QStringLiteral("about"),
        QStringLiteral("Name"),
        QStringLiteral("UUID"),
        QStringLiteral("Version"),
        QStringLiteral("ProcessVersion"),
        QStringLiteral("PresetType"),
        QStringLiteral("Cluster"),
        QStringLiteral("Copyright"),
        QStringLiteral("ContactInfo"),
        QStringLiteral("CameraModelRestriction"),
        QStringLiteral("HasSettings"),
        QStringLiteral("AlreadyApplied"),
        QStringLiteral("RequiresRGBTables"),
        QStringLiteral("SupportsAmount"),
        QStringLiteral("SupportsAmount2"),
        QStringLiteral("SupportsColor"),
        QStringLiteral("SupportsMonochrome"),
        QStringLiteral("SupportsHighDynamicRange"),
        QStringLiteral("SupportsNormalDynamicRange"),
        QStringLiteral("SupportsSceneReferred"),
        QStringLiteral("SupportsOutputReferred"),
        QStringLiteral("ToneCurveName"),
        QStringLiteral("ToneCurveName2012"),
    };
    return keys;
}

} // namespace

QSet<QString> keys_a_conversion_reads(const lightroom_importer& preset)
{
    const silent_conversion_log silent;
    return costyle_writer().settings_read(preset);
}

QStringList not_carried_over(const lightroom_importer& preset, const QSet<QString>& read)
{
    const preset_settings& settings = preset.settings;
    QStringList missing;
    for (auto entry = settings.cbegin(); entry != settings.cend(); ++entry) {
        const QString& key = entry.key();
        // An empty key (a blank line of a dotted template) is no setting at all.
        if (key.isEmpty() || read.contains(key) || bookkeeping_keys().contains(key) ||
            preset.extras.non_develop_keys.contains(key))
            continue;
        missing.append(key);
    }
    // The settings map is ordered by key already, so the list is too.
    return missing;
}

bool style_losses::empty() const
{
    return settings.isEmpty() && local_adjustments.isEmpty() && look.isEmpty() && white_balance.isEmpty();
}

QString style_losses::summary() const
{
    QStringList parts;
    QStringList adjustments;
    for (auto it = local_adjustments.cbegin(); it != local_adjustments.cend(); ++it)
        adjustments << QStringLiteral("%1 %2").arg(it.value()).arg(it.key());
    if (!adjustments.isEmpty())
        parts << QStringLiteral("local adjustments (%1)").arg(adjustments.join(QStringLiteral(", ")));
    if (!look.isEmpty())
        parts << QStringLiteral("Look \"%1\"").arg(look);
    if (!white_balance.isEmpty())
        parts << QStringLiteral("white balance \"%1\"").arg(white_balance);
    if (!settings.isEmpty())
        parts << QStringLiteral("%1 settings: %2").arg(settings.size()).arg(settings.join(QStringLiteral(", ")));
    return parts.join(QStringLiteral("; "));
}

style_losses what_a_style_leaves_out(const lightroom_importer& preset, const QSet<QString>& read)
{
    return {not_carried_over(preset, read), preset.extras.local_adjustments, preset.extras.look,
            named_white_balance(preset.settings)};
}

bool style_carries_nothing(const lightroom_importer& preset, const QSet<QString>& read)
{
    if (!preset.tone_curve.isEmpty() || !preset.tone_curve_red.isEmpty() || !preset.tone_curve_green.isEmpty() ||
        !preset.tone_curve_blue.isEmpty())
        return false;
    for (auto entry = preset.settings.cbegin(); entry != preset.settings.cend(); ++entry) {
        if (read.contains(entry.key()))
            return false;
    }
    return true;
}
