// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/editor_folders.h"

#include <QDir>

editor_folders this_system_editor_folders()
{
    return editor_folders_for(folder_layout::macos, {QDir::homePath(), QString(), QString()});
}
