// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/other_files.h"

#include <QString>
#include <QStringList>

// The .xmp, .dng and .lrtemplate files (any letter case) of a folder and all
// its subfolders, sorted by path so that repeated runs see the same order.
// Hidden files and folders are left out. others, when given, counts the files
// of known kinds that are no presets; archives, when given, receives the .zip
// files, sorted likewise.
QStringList presets_in_folder(const QString& folder, other_files* others = nullptr, QStringList* archives = nullptr);
