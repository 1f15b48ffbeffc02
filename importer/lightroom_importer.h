// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "importer/preset_extras.h"

#include <QMap>
#include <QPoint>
#include <QString>
#include <QVector>

class QXmlStreamReader;

// One Lightroom develop preset as read from a .lrtemplate, .xmp or .dng file.
// A plain value object: the readers write into its fields, everyone else
// reads them directly.
class lightroom_importer {
public:
    QMap<QString, QString> settings; // bare setting name -> value exactly as text
    QString name;
    QString description;
    QVector<QPoint> tone_curve;
    QVector<QPoint> tone_curve_red;
    QVector<QPoint> tone_curve_green;
    QVector<QPoint> tone_curve_blue;
    // Counted beside the settings: what no settings key shows.
    preset_extras extras;

    lightroom_importer() = default;

    void read_lrpreset(const QString& path);
    void read_xmp(const QString& path);

    void read_dot_notation_lrpreset(const QString& text);
    void read_regular_lrpreset(const QString& text);

    // read_lrpreset over bytes already in memory, such as an archive's entry.
    void read_lrpreset_data(const QByteArray& data);
    // The XMP walk over bytes already in memory (read_xmp opens the file and calls this).
    void read_xmp_data(const QByteArray& data);

    // A DNG preset: the XMP packet of the DNG file at path, read by the XMP
    // walk. Throws std::runtime_error for a damaged DNG and
    // no_develop_settings for one without develop settings; a file that
    // cannot be opened leaves the record empty, as for the other readers.
    void read_dng(const QString& path);
    // The same over a DNG file's bytes.
    void read_dng_data(const QByteArray& data);
    // The same over a DNG's XMP packet already taken from its file.
    void read_dng_packet(const QByteArray& packet);

    static QString get_xmp_text(QXmlStreamReader& reader);
    static QVector<QPoint> get_curve(QXmlStreamReader& reader);
};
