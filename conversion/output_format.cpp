// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/output_format.h"

#include "writer/named_values.h"

QString output_format_name(output_format format)
{
    switch (format) {
    case output_format::separate:
        return QStringLiteral("separate");
    case output_format::stylepack:
        return QStringLiteral("stylepack");
    case output_format::stylepack_category:
        return QStringLiteral("stylepack_category");
    }
    return QString();
}

std::optional<output_format> parse_output_format(const QString& name)
{
    return value_named(all_output_formats, &output_format_name, name);
}
