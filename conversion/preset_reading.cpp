// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/preset_reading.h"

#include "conversion/preset_source.h"
#include "importer/lightroom_importer.h"

#include <QFileInfo>

#include <stdexcept>

namespace {

// A DNG made from a photo often names no preset; where the style would get
// no name from its packet (neither a title nor an rdf:about), the file's name
// is the one the person gave it.
void name_after_file(const QString& path, lightroom_importer& record)
{
    if (record.name.isEmpty() && record.settings.value(QStringLiteral("about")).isEmpty())
        record.name = QFileInfo(path).completeBaseName();
}

} // namespace

preset_format preset_format_of(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("lrtemplate"))
        return preset_format::lrtemplate;
    if (suffix == QLatin1String("xmp"))
        return preset_format::xmp;
    if (suffix == QLatin1String("dng"))
        return preset_format::dng;
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
    case preset_format::dng:
        record.read_dng(path);
        name_after_file(path, record);
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
    case preset_format::dng:
        // Its packet was taken while the archive was read.
        if (!preset.error.isEmpty())
            throw std::runtime_error(preset.error.toStdString());
        record.read_dng_packet(preset.data);
        name_after_file(preset.path, record);
        return true;
    case preset_format::unsupported:
        break;
    }
    return false;
}
