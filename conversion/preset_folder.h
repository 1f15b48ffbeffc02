// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

// The .xmp and .lrtemplate files (any letter case) of a folder and all its
// subfolders, sorted by path so that repeated runs see the same order.
// Hidden files and folders are left out.
QStringList presets_in_folder(const QString& folder);
