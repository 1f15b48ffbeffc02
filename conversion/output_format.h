// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <array>
#include <optional>

// How a run delivers its styles: one file per preset, or one style pack,
// optionally with its styles in a category folder.
enum class output_format { separate, stylepack, stylepack_category };

inline constexpr std::array<output_format, 3> all_output_formats = {
    output_format::separate, output_format::stylepack, output_format::stylepack_category};

// "separate", "stylepack", "stylepack_category": the stored values.
QString output_format_name(output_format format);

// The format of a stored name, compared exactly; no value for any other text.
// Each reader decides what an unknown name means: the run converts it as a
// plain style pack, the settings dialog shows it as the category pack.
std::optional<output_format> parse_output_format(const QString& name);

// Whether a run writes each style as a file of its own; every other format
// has the run collect the styles (for a pack, or for standard output).
inline bool writes_separate_files(output_format format) { return format == output_format::separate; }
