// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>
#include <QString>

// What one preset holds, for --inspect: its name, description, settings as text,
// point curves, compatibility flags and the settings no mapping reads. When the
// preset can't be read the object holds "file" and "error" only, and error
// receives the message.
struct preset_source;
QJsonObject inspect_preset(const preset_source& preset, bool exists, QString& error);
