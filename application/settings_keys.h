// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "vel_toolkit/language.h"

#include <QString>

// Every key of the stored settings; only the window stores settings.
namespace settings_keys {

struct key_with_default {
    QString key;
    QString default_value;
};

// Start folder of the open dialog; the folder of the first preset of the last run.
extern const key_with_default input_dir;
// Target folder of separate styles and start folder of the style-pack dialog.
extern const key_with_default output_dir;
// The output format by its name (output_format.h).
extern const key_with_default format;
// The colour space the styles are made for, by its name (colour_space.h).
extern const key_with_default colour_space;
// The language; without a stored value it follows the system.
inline const QString& lang = vel::language_setting_key;

} // namespace settings_keys
