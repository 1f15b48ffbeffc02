// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// A Lightroom group as a folder name that is valid on Windows, macOS and
// Linux alike, by one fixed rule the same everywhere and in every run:
// '%' and every character no system allows in a name ('<', '>', ':', '"',
// '/', '\', '|', '?', '*' and control characters) are written as '%' and two
// upper-case hex digits of their UTF-8 bytes; so are a trailing dot or
// space, the first letter of a name Windows reserves (CON, PRN, AUX, NUL,
// COM1 to COM9, LPT1 to LPT9, also before a dot), and the whole of "." or
// "..". The rule is reversible (group_of_folder), so two groups never share
// a folder and a second run finds the folders of the first.
QString folder_of_group(const QString& group);
QString group_of_folder(const QString& folder);
