// SPDX-License-Identifier: GPL-3.0-or-later
#include "writer/loss_groups.h"

#include "writer/carried_settings.h"

#include <QHash>

#include <array>

namespace {

struct group_rule {
    const char* id;
    loss_group group;
};

const std::array<group_rule, 14> ids = {{
    {"white_balance", loss_group::white_balance},
    {"camera_calibration", loss_group::camera_calibration},
    {"lens_corrections", loss_group::lens_corrections},
    {"transform", loss_group::transform},
    {"crop", loss_group::crop},
    {"texture", loss_group::texture},
    {"dehaze", loss_group::dehaze},
    {"profile_and_look", loss_group::profile_and_look},
    {"local_adjustments", loss_group::local_adjustments},
    {"tone_curve_details", loss_group::tone_curve_details},
    {"hsl_and_colour_grading", loss_group::hsl_and_colour_grading},
    {"detail", loss_group::detail},
    {"effects", loss_group::effects},
    {"other", loss_group::other},
}};

// Keys named one by one: Lightroom's own names, as they appear in templates
// and XMP presets. Lower-case keys are the parameters of local corrections,
// which a template's flattened tables put beside the settings.
const QHash<QString, loss_group>& named_keys()
{
    static const QHash<QString, loss_group> keys = [] {
        QHash<QString, loss_group> table;
        const auto add = [&table](loss_group group, std::initializer_list<const char*> names) {
            for (const char* name : names)
                table.insert(QLatin1String(name), group);
        };
        add(loss_group::white_balance, {"WhiteBalance", "Temperature", "Tint", "IncrementalTemperature",
                                        "IncrementalTint", "AsShotTemperature", "AsShotTint"});
        add(loss_group::camera_calibration, {"ShadowTint", "RedHue", "RedSaturation", "GreenHue", "GreenSaturation",
                                             "BlueHue", "BlueSaturation", "EnableCalibration"});
        add(loss_group::lens_corrections, {"AutoLateralCA", "ChromaticAberrationR", "ChromaticAberrationB",
                                           "VignetteAmount", "VignetteMidpoint", "EnableLensCorrections",
                                           "LensManualDistortionAmount"});
        add(loss_group::transform, {"EnableTransform"});
        add(loss_group::crop, {"HasCrop", "orientation"});
        add(loss_group::texture, {"Texture"});
        add(loss_group::dehaze, {"Dehaze"});
        add(loss_group::profile_and_look, {"CameraProfile", "CameraProfileDigest", "RGBTable", "LookTable",
                                           "ToneMapStrength", "Treatment", "ConvertToGrayscale"});
        add(loss_group::local_adjustments,
            {"EnableGradientBasedCorrections", "EnableCircularGradientBasedCorrections",
             "EnablePaintBasedCorrections", "EnableMaskGroupBasedCorrections", "clarity", "clarity2012",
             "contrast", "contrast2012", "defringe", "dehaze", "exposure", "exposure2012", "highlights2012",
             "shadows2012", "whites2012", "blacks2012", "luminanceNoise", "moire", "saturation", "sharpness",
             "temperature", "tint", "texture", "toningHue", "toningSaturation", "toningLuminance", "hue",
             "amount", "brightness", "feather", "flow", "density", "radius"});
        add(loss_group::tone_curve_details, {"ToneCurveName", "ToneCurveName2012", "CurveRefineSaturation"});
        add(loss_group::hsl_and_colour_grading,
            {"EnableColorAdjustments", "EnableSplitToning", "EnableGrayscaleMix", "SplitToningBalance"});
        add(loss_group::detail, {"EnableDetail", "LuminanceSmoothing", "ColorNoiseReduction"});
        add(loss_group::effects, {"EnableEffects", "EnableVignettes", "OverrideLookVignette"});
        return table;
    }();
    return keys;
}

// Families of keys by the start of their names, after the keys named above.
const std::array<std::pair<const char*, loss_group>, 17> prefixes = {{
    {"Lens", loss_group::lens_corrections},
    {"Defringe", loss_group::lens_corrections},
    {"ChromaticAberration", loss_group::lens_corrections},
    {"Perspective", loss_group::transform},
    {"Upright", loss_group::transform},
    {"Crop", loss_group::crop},
    {"Table_", loss_group::profile_and_look},
    {"Look", loss_group::profile_and_look},
    {"Parametric", loss_group::tone_curve_details},
    {"ColorGrade", loss_group::hsl_and_colour_grading},
    {"SplitToning", loss_group::hsl_and_colour_grading},
    {"HueAdjustment", loss_group::hsl_and_colour_grading},
    {"SaturationAdjustment", loss_group::hsl_and_colour_grading},
    {"LuminanceAdjustment", loss_group::hsl_and_colour_grading},
    {"GrayMixer", loss_group::hsl_and_colour_grading},
    {"PostCropVignette", loss_group::effects},
    {"Grain", loss_group::effects},
}};

// Detail's families start like others' ("Sharpen", "LuminanceNoiseReduction",
// "ColorNoiseReduction"): checked apart, so that the table above stays plain.
bool is_detail(const QString& key)
{
    return key.startsWith(QLatin1String("Sharpen")) || key.startsWith(QLatin1String("LuminanceNoiseReduction")) ||
           key.startsWith(QLatin1String("ColorNoiseReduction"));
}

} // namespace

const QVector<loss_group>& loss_group_order()
{
    static const QVector<loss_group> order = [] {
        QVector<loss_group> all;
        for (const group_rule& rule : ids)
            all.append(rule.group);
        return all;
    }();
    return order;
}

QString loss_group_id(loss_group group)
{
    for (const group_rule& rule : ids) {
        if (rule.group == group)
            return QLatin1String(rule.id);
    }
    return QStringLiteral("other");
}

loss_group loss_group_of(const QString& key)
{
    const auto named = named_keys().constFind(key);
    if (named != named_keys().cend())
        return named.value();
    if (is_detail(key))
        return loss_group::detail;
    for (const auto& [prefix, group] : prefixes) {
        if (key.startsWith(QLatin1String(prefix)))
            return group;
    }
    return loss_group::other;
}

QVector<lost_group> lost_groups(const style_losses& losses)
{
    QVector<QStringList> keys(loss_group_order().size());
    for (const QString& key : losses.settings)
        keys[int(loss_group_of(key))].append(key);
    QVector<lost_group> groups;
    for (const loss_group group : loss_group_order()) {
        const QStringList& held = keys.at(int(group));
        const bool counted_apart = (group == loss_group::local_adjustments && !losses.local_adjustments.isEmpty()) ||
                                   (group == loss_group::profile_and_look && !losses.look.isEmpty()) ||
                                   (group == loss_group::white_balance && !losses.white_balance.isEmpty());
        if (!held.isEmpty() || counted_apart)
            groups.append({group, held});
    }
    return groups;
}
