// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

// What one preset holds, for --inspect: its name, description, settings as text,
// point curves, compatibility flags and what a style leaves out, as the JSON
// text of one element of the report's indented array (report_depth levels
// deep). When the preset can't be read the object holds "file" and "error"
// only, and error receives the message.
struct preset_source;
constexpr int report_depth = 1;
QByteArray inspect_preset(const preset_source& preset, bool exists, QString& error);
