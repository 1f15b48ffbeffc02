// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

// The simple crs: properties of an XMP preset's rdf:Description as exiftool
// reports them: the local name from exiftool's property path and the value
// as exiftool extracts it without any conversion (-X -n, automatic XMP value
// conversion off).
struct exiftool_property {
    QString name;
    QString value;
};

struct exiftool_report {
    bool listed = false; // false: exiftool said nothing about the file
    QVector<exiftool_property> properties; // in exiftool's order; a name may repeat
};

// Full path of exiftool, or empty when it is not installed.
QString exiftool_program();

// One report per file, keyed by the path as given. exiftool runs twice for
// the whole list (it takes about half a second to start). error is set when
// exiftool could not run at all.
QMap<QString, exiftool_report> exiftool_crs_properties(const QStringList& xmp_paths, QString& error);
