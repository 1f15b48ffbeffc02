// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

// Where Lightroom keeps a person's presets and Capture One their styles. The
// layouts are plain functions of the person's own folders, so every system's
// is built and tested everywhere; which one applies here is chosen once, by a
// small file per system (this_system_editor_folders).

// The per-user folders a layout is made of. On Windows the roaming and the
// local application data folders (%APPDATA%, %LOCALAPPDATA%); on macOS only
// the home folder counts.
struct user_folders {
    QString home;
    QString app_data;
    QString local_app_data;
};

enum class folder_layout {
    macos,
    windows,
    none // neither program runs on this system
};

struct editor_folders {
    folder_layout layout = folder_layout::none;
    // Lightroom Classic 7.3 and later (and Camera Raw): XMP presets and
    // profiles in group folders; then Lightroom up to 7.2: templates in
    // group folders. Both, whether they exist or not.
    QStringList lightroom_presets;
    // Capture One's user styles; each subfolder shows as a style group.
    QString capture_one_styles;

    // The Lightroom folders that exist, in the order above.
    QStringList existing_lightroom_presets() const;
    bool capture_one_styles_exist() const;
};

editor_folders editor_folders_for(folder_layout layout, const user_folders& user);

// This system's layout over this user's folders.
editor_folders this_system_editor_folders();
