// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <array>
#include <cstddef>
#include <optional>

// The value among values whose name, as name_of gives it, is exactly name:
// the one parse behind every stored or printed vocabulary of the program.
template <typename value, std::size_t count>
std::optional<value> value_named(const std::array<value, count>& values, QString (*name_of)(value), const QString& name)
{
    for (const value candidate : values) {
        if (name_of(candidate) == name)
            return candidate;
    }
    return std::nullopt;
}
