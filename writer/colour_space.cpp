// SPDX-License-Identifier: GPL-3.0-or-later
#include "writer/colour_space.h"

#include "writer/named_values.h"

QString colour_space_name(colour_space space)
{
    switch (space) {
    case colour_space::raw:
        return QStringLiteral("raw");
    case colour_space::adobe:
        return QStringLiteral("adobe");
    case colour_space::srgb:
        return QStringLiteral("srgb");
    case colour_space::prophoto:
        return QStringLiteral("prophoto");
    case colour_space::widegamut:
        return QStringLiteral("widegamut");
    }
    return QString();
}

std::optional<colour_space> parse_colour_space(const QString& name)
{
    return value_named(all_colour_spaces, &colour_space_name, name);
}
