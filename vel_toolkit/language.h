// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;

namespace vel {

// The stored setting that holds the chosen language ("en", "de").
inline const QString language_setting_key = QStringLiteral("lang");

// The two-letter code of the user-interface language: the stored setting
// named key when it holds one, else the system's language if the program
// offers it, else English ("en").
QString get_language_suffix(const QString& key);

// After the language setting may have changed: when the language now
// differs from previous_suffix, offers to quit so the next start uses it.
void ask_for_application_restart_if_language_changed(QWidget* parent, const QString& previous_suffix);

} // namespace vel
