// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

// The style being built: Capture One key -> value text, ordered by key
// (UTF-16 code units); a later write to a key replaces the earlier one.
using costyle_entries = QMap<QString, QString>;

// The preset's settings: Lightroom key -> value text.
using preset_settings = QMap<QString, QString>;
