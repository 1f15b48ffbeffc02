// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QDesktopServices>
#include <QUrl>

#include <functional>

namespace vel {

// How the platform names the key of its shortcuts.
enum class shortcut_key_names {
    command_key, // macOS: Qt's Ctrl is the Command key, shown as "Cmd"
    control_key, // elsewhere: Ctrl is Ctrl ("Strg" on German keyboards)
};

// The names of the platform the program runs on.
shortcut_key_names platform_shortcut_key_names();

// Help pages write shortcuts with "Ctrl" (German "Strg"), the key Qt calls
// Ctrl. On macOS that key is Command, so both become "Cmd". Where a page
// means the real Control key it writes "CtXrl" or "StXrg", which become
// "Ctrl" on every platform.
QString replace_shortcut_names(QString text, shortcut_key_names names);

// Shows the help page of the current language (path_template with %1 for the
// language code) in the system's browser, through a copy in the temporary folder.
// Where the desktop cannot open a web page (open_url says false), the page is
// shown in a window of the program's own instead.
using url_opener = std::function<bool(const QUrl&)>;
void open_help(const QString& path_template, const url_opener& open_url = &QDesktopServices::openUrl);

// The help page's text in a window of its own, with working links.
void show_help_window(const QString& html);

} // namespace vel
