// SPDX-License-Identifier: GPL-3.0-or-later
#include "importer/dng_packet.h"
#include "importer/lightroom_importer.h"

#include <QBuffer>
#include <QFile>

namespace {

// Camera-raw keys a DNG carries for the photo it is, whatever was done to
// it: they say nothing about a look.
bool describes_the_photo(const QString& key)
{
    static const QSet<QString> keys = {
        QStringLiteral("Version"),       QStringLiteral("ProcessVersion"), QStringLiteral("RawFileName"),
        QStringLiteral("HasSettings"),   QStringLiteral("HasCrop"),        QStringLiteral("AlreadyApplied"),
        QStringLiteral("CropTop"),       QStringLiteral("CropLeft"),       QStringLiteral("CropBottom"),
        QStringLiteral("CropRight"),     QStringLiteral("CropAngle"),      QStringLiteral("CropConstrainToWarp"),
        QStringLiteral("CropWidth"),     QStringLiteral("CropHeight"),     QStringLiteral("CropUnit"),
        QStringLiteral("CropConstrainToUnitSquare"),
    };
    return keys.contains(key);
}

bool holds_develop_settings(const lightroom_importer& record)
{
    if (!record.tone_curve.isEmpty() || !record.tone_curve_red.isEmpty() || !record.tone_curve_green.isEmpty() ||
        !record.tone_curve_blue.isEmpty() || !record.extras.local_adjustments.isEmpty() ||
        !record.extras.look.isEmpty() || !record.extras.preset_type.isEmpty())
        return true;
    for (auto it = record.settings.cbegin(); it != record.settings.cend(); ++it) {
        if (!record.extras.non_develop_keys.contains(it.key()) && !describes_the_photo(it.key()))
            return true;
    }
    return false;
}

} // namespace

void lightroom_importer::read_dng(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    read_dng_packet(read_dng_xmp_packet(file));
}

void lightroom_importer::read_dng_data(const QByteArray& data)
{
    QBuffer buffer;
    buffer.setData(data);
    buffer.open(QIODevice::ReadOnly);
    read_dng_packet(read_dng_xmp_packet(buffer));
}

void lightroom_importer::read_dng_packet(const QByteArray& packet)
{
    // A packet stored as a C string may end in NUL bytes, which are no XML.
    int end = packet.size();
    while (end > 0 && packet.at(end - 1) == '\0')
        --end;
    if (end == 0)
        throw no_develop_settings();
    read_xmp_data(packet.left(end));
    if (!holds_develop_settings(*this))
        throw no_develop_settings();
}
