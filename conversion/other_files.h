// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

// Files that sit beside presets in the folders and packs photographers keep,
// of kinds Stylewright knows but does not convert (camera and lens profiles,
// LUTs, Capture One's own styles, Lightroom's collections and catalogues).
// A folder or archive without presets says what it held instead.

// The lower-case suffix of such a file ("dcp"), or an empty string for any
// other file.
QString other_kind_of(const QString& path);

// Counts of such files by suffix.
using other_files = QMap<QString, int>;

namespace conversion_messages {

// "No preset found in this folder." or, when it held files of known kinds,
// "No preset found in this folder, only files Stylewright does not convert:
// 2 camera profiles (.dcp), 1 LUT (.cube)."
QString nothing_found(const other_files& others);

} // namespace conversion_messages
