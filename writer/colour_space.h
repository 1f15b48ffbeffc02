// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <array>
#include <optional>

// The colour space a style is made for: the one of the images it will be
// applied to. Its name is what the settings store and the command line use.
enum class colour_space { raw, adobe, srgb, prophoto, widegamut };

// Every colour space, in the order the program offers them.
inline constexpr std::array<colour_space, 5> all_colour_spaces = {
    colour_space::raw, colour_space::adobe, colour_space::srgb, colour_space::prophoto, colour_space::widegamut};

// "raw", "adobe", "srgb", "prophoto", "widegamut".
QString colour_space_name(colour_space space);

// The colour space of a name, compared exactly; no value for any other text.
std::optional<colour_space> parse_colour_space(const QString& name);
