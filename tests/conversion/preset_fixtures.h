#pragma once

#include "conversion/qt_printing.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QString>

// Small preset files written on the fly, for tests that run whole conversions.
namespace preset_fixtures {

// An XMP preset whose crs attributes are settings, with the title name.
inline QByteArray xmp_text(const QString& name, const QMap<QString, QString>& settings)
{
    QString attributes;
    for (auto it = settings.cbegin(); it != settings.cend(); ++it)
        attributes += QStringLiteral("\n    crs:%1=\"%2\"").arg(it.key(), it.value().toHtmlEscaped());
    return QStringLiteral("<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
                          " <rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
                          "  <rdf:Description rdf:about=\"\"\n"
                          "    xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\"%1>\n"
                          "   <crs:Name><rdf:Alt><rdf:li xml:lang=\"x-default\">%2</rdf:li></rdf:Alt></crs:Name>\n"
                          "  </rdf:Description>\n"
                          " </rdf:RDF>\n"
                          "</x:xmpmeta>\n")
        .arg(attributes, name.toHtmlEscaped())
        .toUtf8();
}

// A template in the nested form with the given title and settings.
inline QByteArray lrtemplate_text(const QString& title, const QMap<QString, QString>& settings)
{
    QString entries;
    for (auto it = settings.cbegin(); it != settings.cend(); ++it)
        entries += QStringLiteral("\t\t\t%1 = %2,\n").arg(it.key(), it.value());
    return QStringLiteral("s = {\n"
                          "\ttitle = \"%1\",\n"
                          "\ttype = \"Develop\",\n"
                          "\tvalue = {\n"
                          "\t\tsettings = {\n"
                          "%2"
                          "\t\t},\n"
                          "\t},\n"
                          "\tversion = 0,\n"
                          "}\n")
        .arg(title, entries)
        .toUtf8();
}

inline QString write_file(const QDir& dir, const QString& file_name, const QByteArray& bytes)
{
    const QString path = dir.filePath(file_name);
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

// Settings that raise each flag of the compatibility check.
inline QMap<QString, QString> white_balance()
{
    return {{QStringLiteral("Temperature"), QStringLiteral("5000")}};
}
inline QMap<QString, QString> dehaze()
{
    return {{QStringLiteral("Dehaze"), QStringLiteral("12")}};
}
inline QMap<QString, QString> lut()
{
    return {{QStringLiteral("RGBTable"), QStringLiteral("ABC")}};
}
inline QMap<QString, QString> calibration()
{
    return {{QStringLiteral("RedHue"), QStringLiteral("10")}};
}
// Per-hue adjustments make the longest styles (over a kilobyte).
inline QMap<QString, QString> colourful()
{
    return {{QStringLiteral("HueAdjustmentRed"), QStringLiteral("10")},
            {QStringLiteral("SaturationAdjustmentBlue"), QStringLiteral("-20")}};
}
inline QMap<QString, QString> plain()
{
    return {{QStringLiteral("Exposure2012"), QStringLiteral("0.50")}};
}

inline QMap<QString, QString> merged(std::initializer_list<QMap<QString, QString>> parts)
{
    QMap<QString, QString> all;
    for (const auto& part : parts)
        all.insert(part);
    return all;
}

} // namespace preset_fixtures
