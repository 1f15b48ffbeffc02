// SPDX-License-Identifier: GPL-3.0-or-later
#include "writer/check_costyle.h"

#include "importer/lightroom_importer.h"
#include "writer/costyle_writer.h"

#include <QLatin1String>

namespace {

// A value that does not convert counts as 0, so a quoted "5" from the dotted
// template reader raises nothing. NaN compares unequal to 0 and raises.
bool is_nonzero(const lightroom_importer& preset, const QString& key)
{
    const float value = preset.settings.value(key, QStringLiteral("0")).toFloat();
    return value != 0.0f;
}

} // namespace

void check_preset_flags(bool& white_balance, bool& dehaze, bool& lut, bool& camera_calibration,
                        const lightroom_importer& preset)
{
    // Presence alone counts: even a preset that sets the temperature to its
    // default overrides the camera's white balance.
    static const QLatin1String white_balance_keys[] = {
        QLatin1String("Tint"),
        QLatin1String("IncrementalTint"),
        QLatin1String("Temperature"),
        QLatin1String("IncrementalTemperature"),
    };
    white_balance = false;
    for (const QLatin1String& key : white_balance_keys) {
        if (preset.settings.contains(key)) {
            white_balance = true;
            break;
        }
    }

    dehaze = is_nonzero(preset, QStringLiteral("Dehaze"));
    lut = preset.settings.contains(QStringLiteral("RGBTable"));

    static const QLatin1String calibration_keys[] = {
        QLatin1String("ShadowTint"),
        QLatin1String("RedHue"),
        QLatin1String("RedSaturation"),
        QLatin1String("GreenHue"),
        QLatin1String("GreenSaturation"),
        QLatin1String("BlueHue"),
        QLatin1String("BlueSaturation"),
    };
    for (const QLatin1String& key : calibration_keys) {
        if (is_nonzero(preset, key)) {
            camera_calibration = true;
            break;
        }
    }
}

void costyle_writer::check_costyle(bool& white_balance, bool& dehaze, bool& lut, bool& camera_calibration,
                                   const lightroom_importer& preset) const
{
    check_preset_flags(white_balance, dehaze, lut, camera_calibration, preset);
}
