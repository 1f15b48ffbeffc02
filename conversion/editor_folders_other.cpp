// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/editor_folders.h"

// Neither Lightroom nor Capture One runs here: there is nothing to find.
editor_folders this_system_editor_folders()
{
    return editor_folders_for(folder_layout::none, {});
}
