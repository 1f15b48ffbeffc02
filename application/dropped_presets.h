// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/preset_source.h"

#include <QList>
#include <QUrl>

// The presets a drop onto the main window hands to a conversion run, in the
// order of the dropped items. A dropped file is taken whatever its suffix, as
// the open dialog takes a typed name (the run reports what it can't read); a
// dropped folder or .zip archive gives its presets from all its subfolders,
// sorted by path, leaving hidden files and folders out, each with the
// subfolder its style goes to. Urls that are not local files or folders are
// ignored.
gathered_presets dropped_presets(const QList<QUrl>& urls);
