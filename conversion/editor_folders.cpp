// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/editor_folders.h"

#include <QFileInfo>

namespace {

// Below the per-user application data folder of both systems.
const QString camera_raw_settings = QStringLiteral("/Adobe/CameraRaw/Settings");
const QString lightroom_develop_presets = QStringLiteral("/Adobe/Lightroom/Develop Presets");
// macOS keeps application data below the home folder.
const QString mac_application_support = QStringLiteral("/Library/Application Support");
const QString mac_capture_one_styles = QStringLiteral("/Capture One/Styles");
// Capture One for Windows keeps its styles in the local, not roaming, folder.
const QString windows_capture_one_styles = QStringLiteral("/CaptureOne/Styles50");

bool is_folder(const QString& path)
{
    return !path.isEmpty() && QFileInfo(path).isDir();
}

} // namespace

QStringList editor_folders::existing_lightroom_presets() const
{
    QStringList existing;
    for (const QString& folder : lightroom_presets) {
        if (is_folder(folder))
            existing << folder;
    }
    return existing;
}

bool editor_folders::capture_one_styles_exist() const
{
    return is_folder(capture_one_styles);
}

editor_folders editor_folders_for(folder_layout layout, const user_folders& user)
{
    editor_folders folders;
    folders.layout = layout;
    switch (layout) {
    case folder_layout::macos: {
        const QString support = user.home + mac_application_support;
        folders.lightroom_presets = QStringList{support + camera_raw_settings, support + lightroom_develop_presets};
        folders.capture_one_styles = support + mac_capture_one_styles;
        break;
    }
    case folder_layout::windows:
        folders.lightroom_presets = QStringList{user.app_data + camera_raw_settings, user.app_data + lightroom_develop_presets};
        folders.capture_one_styles = user.local_app_data + windows_capture_one_styles;
        break;
    case folder_layout::none:
        break;
    }
    return folders;
}
