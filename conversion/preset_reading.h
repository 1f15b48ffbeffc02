// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class lightroom_importer;

// Which reader a preset file goes to, chosen by its last suffix in any letter case.
enum class preset_format { lrtemplate, xmp, dng, unsupported };

preset_format preset_format_of(const QString& path);

// Reads the file into record with the reader its suffix selects. Returns false and
// leaves record untouched for a suffix no reader handles. Whatever the reader
// throws (std::runtime_error on a template syntax error or a damaged DNG,
// no_develop_settings for a DNG that is no preset) reaches the caller. A DNG
// preset without a name of its own is named after its file.
bool read_preset(const QString& path, lightroom_importer& record);

struct preset_source;
// The same for a preset of a run: an archive's entry is read from its bytes.
bool read_preset(const preset_source& preset, lightroom_importer& record);
