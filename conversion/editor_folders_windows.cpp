// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/editor_folders.h"

#include <QDir>

#include <shlobj.h>

namespace {

// A known folder as Windows names it for this user, with '/' separators;
// empty when the system has none.
QString known_folder(REFKNOWNFOLDERID id)
{
    PWSTR path = nullptr;
    QString folder;
    if (SUCCEEDED(SHGetKnownFolderPath(id, KF_FLAG_DEFAULT, nullptr, &path)))
        folder = QDir::fromNativeSeparators(QString::fromWCharArray(path));
    CoTaskMemFree(path);
    return folder;
}

} // namespace

editor_folders this_system_editor_folders()
{
    return editor_folders_for(folder_layout::windows, {QDir::homePath(), known_folder(FOLDERID_RoamingAppData),
                                                       known_folder(FOLDERID_LocalAppData)});
}
