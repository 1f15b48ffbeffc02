#pragma once

#include <QString>

// Keys of the stored settings whose default depends on the platform.
namespace settings_keys {

struct key_with_default {
    QString key;
    QString default_value;
};

// Start folder of the open dialog; the folder of the first preset of the last run.
extern const key_with_default input_dir;
// Target folder of separate styles and start folder of the style-pack dialog.
extern const key_with_default output_dir;

} // namespace settings_keys
