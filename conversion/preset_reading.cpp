// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/preset_reading.h"

#include "conversion/preset_source.h"
#include "importer/lightroom_importer.h"

#include <QFileInfo>

preset_format preset_format_of(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("lrtemplate"))
        return preset_format::lrtemplate;
    if (suffix == QLatin1String("xmp"))
        return preset_format::xmp;
    return preset_format::unsupported;
}

bool read_preset(const QString& path, lightroom_importer& record)
{
    switch (preset_format_of(path)) {
    case preset_format::lrtemplate:
        record.read_lrpreset(path);
        return true;
    case preset_format::xmp:
        record.read_xmp(path);
        return true;
    case preset_format::unsupported:
        break;
    }
    return false;
}

bool read_preset(const preset_source& preset, lightroom_importer& record)
{
    if (!preset.in_archive)
        return read_preset(preset.path, record);
    switch (preset_format_of(preset.path)) {
    case preset_format::lrtemplate:
        record.read_lrpreset_data(preset.data);
        return true;
    case preset_format::xmp:
        record.read_xmp_data(preset.data);
        return true;
    case preset_format::unsupported:
        break;
    }
    return false;
}
