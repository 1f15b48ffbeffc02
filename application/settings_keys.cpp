// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/settings_keys.h"

#include "conversion/output_format.h"
#include "writer/colour_space.h"

#include <QStandardPaths>

namespace {

QString pictures_folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
}

} // namespace

namespace settings_keys {

const key_with_default input_dir{QStringLiteral("input_dir"), pictures_folder()};
const key_with_default output_dir{QStringLiteral("output_dir"), pictures_folder()};
const key_with_default format{QStringLiteral("format"), output_format_name(output_format::separate)};
const key_with_default colour_space{QStringLiteral("colorspace"), colour_space_name(::colour_space::raw)};

} // namespace settings_keys
