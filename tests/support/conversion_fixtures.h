// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/test_support.h"
#include <QDir>
#include <QFile>
#include <QMap>
#include <QTemporaryDir>

#include <ostream>
#include <zip.h>

// Presets written on the fly and archives read back, for tests of whole conversions.
namespace fixtures {

using settings_map = QMap<QString, QString>;

// An exposure change plus settings raising the check's flags named in flags
// ("wb", "lut", "dehaze", "cal"; "colourful" makes a style over a kilobyte).
inline settings_map flagged(const QString& flags = QString())
{
    static const QMap<QString, settings_map> parts = {
        {"wb", {{"Temperature", "5000"}}}, {"lut", {{"RGBTable", "ABC"}}}, {"dehaze", {{"Dehaze", "12"}}},
        {"cal", {{"RedHue", "10"}}}, {"colourful", {{"HueAdjustmentRed", "10"}, {"SaturationAdjustmentBlue", "-20"}}}};
    settings_map all = {{"Exposure2012", "0.50"}};
    for (const QString& flag : flags.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        all.insert(parts.value(flag));
    return all;
}

// A template in the nested form when file ends in .lrtemplate, else an XMP preset.
inline QByteArray preset_text(const QString& file, const QString& name, const settings_map& settings)
{
    const bool lrtemplate = file.endsWith(QLatin1String(".lrtemplate"), Qt::CaseInsensitive);
    QString values;
    for (auto it = settings.cbegin(); it != settings.cend(); ++it)
        values += QString(lrtemplate ? "%1 = %2,\n" : " crs:%1=\"%2\"").arg(it.key(), it.value());
    if (lrtemplate)
        return QStringLiteral("s = {\ntitle = \"%1\",\ntype = \"Develop\",\nvalue = {\nsettings = {\n%2},\n},\n}\n")
            .arg(name, values)
            .toUtf8();
    return QStringLiteral("<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">"
                          "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
                          "<rdf:Description xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\"%1>\n"
                          "<crs:Name><rdf:Alt><rdf:li xml:lang=\"x-default\">%2</rdf:li></rdf:Alt></crs:Name>\n"
                          "</rdf:Description></rdf:RDF></x:xmpmeta>\n")
        .arg(values, name.toHtmlEscaped())
        .toUtf8();
}

inline QString write_file(const QString& folder, const QString& name, const QByteArray& bytes)
{
    const QString path = QDir(folder).filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return path;
}

inline QByteArray read_file(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Writes a zip archive holding exactly these entries; returns its path.
inline QString make_zip(const QString& path, const QMap<QString, QByteArray>& entries)
{
    int code = 0;
    zip_t* archive = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    for (auto it = entries.cbegin(); it != entries.cend(); ++it) {
        zip_source_t* source = zip_source_buffer(archive, it.value().constData(), zip_uint64_t(it.value().size()), 0);
        zip_file_add(archive, it.key().toUtf8().constData(), source, ZIP_FL_ENC_UTF_8);
    }
    zip_close(archive);
    return path;
}

// The bytes of such an archive, to be put inside another.
inline QByteArray zip_bytes(const QMap<QString, QByteArray>& entries)
{
    const QTemporaryDir dir;
    return read_file(make_zip(dir.filePath(QStringLiteral("a.zip")), entries));
}

// An archive's entries in archive order, as "name" or "name: data".
inline QStringList zip_entries(const QString& path, bool with_data = false)
{
    QStringList entries;
    zip_t* archive = zip_open(path.toUtf8().constData(), ZIP_RDONLY, nullptr);
    for (zip_uint64_t i = 0; archive != nullptr && i < zip_uint64_t(zip_get_num_entries(archive, 0)); ++i) {
        zip_stat_t stat;
        zip_stat_index(archive, i, 0, &stat);
        QByteArray data(int(stat.size), '\0');
        zip_file_t* file = zip_fopen_index(archive, i, 0);
        zip_fread(file, data.data(), stat.size);
        zip_fclose(file);
        entries << QString::fromUtf8(zip_get_name(archive, i, ZIP_FL_ENC_RAW)) + (with_data ? ": " + data : "");
    }
    if (archive != nullptr)
        zip_discard(archive);
    return entries;
}

// Whether every central directory record whose name goes beyond ASCII carries
// the UTF-8 name flag (bit 11), which libzip keeps out of sight.
inline bool names_flagged_utf8(const QByteArray& archive)
{
    static const QByteArray record("PK\x01\x02", 4);
    for (int at = archive.indexOf(record); at >= 0 && at + 46 <= archive.size(); at = archive.indexOf(record, at + 4)) {
        const QByteArray name = archive.mid(at + 46, quint8(archive.at(at + 28)) | quint8(archive.at(at + 29)) << 8);
        if (QString::fromLatin1(name).toUtf8() != name && (quint8(archive.at(at + 9)) & 0x08) == 0)
            return false;
    }
    return true;
}

} // namespace fixtures
