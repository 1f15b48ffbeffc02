// SPDX-License-Identifier: GPL-3.0-or-later
#include "importer/lightroom_importer.h"
#include "color/conversion_log.h"

#include <QDebug>
#include <QFile>
#include <QLatin1String>
#include <QXmlStreamReader>

namespace {

// Longest text a single entity may expand into. Presets declare no entities
// at all; the cap turns an exponential "billion laughs" declaration into a
// well-formedness error after a few kilobytes instead of gigabytes.
constexpr int max_entity_expansion = 4096;

// Develop settings live in this namespace; everything else on the description
// is metadata of the file (EXIF, TIFF, xmp, rdf).
const QLatin1String camera_raw_namespace("http://ns.adobe.com/camera-raw-settings/1.0/");

// Consumes an element the record has no place for, noting what a report on
// the preset's losses needs: the corrections of a local-adjustment list (the
// items of its rdf:Seq) and the name of a Look.
void note_skipped_element(preset_extras& extras, QXmlStreamReader& reader)
{
    const QString element = reader.name().toString();
    int items = 0;
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("Seq")) {
            while (reader.readNextStartElement()) {
                items += reader.name() == QLatin1String("li") ? 1 : 0;
                reader.skipCurrentElement();
            }
        } else if (element == QLatin1String("Look") && reader.name() == QLatin1String("Description")) {
            for (const QXmlStreamAttribute& attribute : reader.attributes()) {
                if (attribute.name() == QLatin1String("Name"))
                    extras.look = attribute.value().toString();
            }
            reader.skipCurrentElement();
        } else {
            reader.skipCurrentElement();
        }
    }
    extras.note_local_adjustments(element, items);
}

// Hands each child of the rdf:Alt elements of a language alternative to
// read, which consumes it; other children are skipped. The reader stands on
// the alternative's element (crs:Name, crs:Group) and leaves it consumed.
template <typename read_item>
void read_alternatives(QXmlStreamReader& reader, read_item read)
{
    while (reader.readNextStartElement()) {
        if (reader.name() != QLatin1String("Alt")) {
            reader.skipCurrentElement();
            continue;
        }
        while (reader.readNextStartElement())
            read(reader);
    }
}

// A preset's group, a language alternative like its name: the "x-default"
// text, else the first that is not empty, trimmed.
QString group_text(QXmlStreamReader& reader)
{
    QString first;
    QString by_default;
    read_alternatives(reader, [&](QXmlStreamReader& item) {
        if (item.name() != QLatin1String("li")) {
            item.skipCurrentElement();
            return;
        }
        const bool is_default = item.attributes().value(QLatin1String("xml:lang")) == QLatin1String("x-default");
        const QString text = item.readElementText(QXmlStreamReader::IncludeChildElements).trimmed();
        if (is_default && by_default.isEmpty())
            by_default = text;
        if (first.isEmpty())
            first = text;
    });
    return by_default.isEmpty() ? first : by_default;
}

// The attributes and children of the one rdf:Description that holds the
// develop settings; the reader stands on its start element.
void read_description(lightroom_importer& record, QXmlStreamReader& reader)
{
    for (const QXmlStreamAttribute& attribute : reader.attributes()) {
        const QString key = attribute.name().toString();
        const QString value = attribute.value().toString();
        record.settings.insert(key, value);
        if (attribute.namespaceUri() == camera_raw_namespace) {
            record.extras.non_develop_keys.remove(key);
            if (key == QLatin1String("PresetType"))
                record.extras.preset_type = value;
            else if (key == QLatin1String("Group"))
                record.extras.group = value.trimmed();
        } else {
            record.extras.non_develop_keys.insert(key);
        }
        qCDebug(conversion_log) << key << "->" << value;
    }

    while (reader.readNextStartElement()) {
        const QStringRef element = reader.name();
        if (element == QLatin1String("Name")) {
            record.name = lightroom_importer::get_xmp_text(reader);
            qCDebug(conversion_log) << "Name ->" << record.name;
        } else if (element == QLatin1String("Description")) {
            record.description = lightroom_importer::get_xmp_text(reader);
            qCDebug(conversion_log) << "Description ->" << record.description;
        } else if (element == QLatin1String("ToneCurvePV2012") || element == QLatin1String("ToneCurve")) {
            record.tone_curve = lightroom_importer::get_curve(reader);
            qCDebug(conversion_log) << "ToneCurvePV2012 -> " << record.tone_curve;
        } else if (element == QLatin1String("ToneCurvePV2012Red")) {
            record.tone_curve_red = lightroom_importer::get_curve(reader);
            qCDebug(conversion_log) << "ToneCurvePV2012Red -> " << record.tone_curve_red;
        } else if (element == QLatin1String("ToneCurvePV2012Green")) {
            record.tone_curve_green = lightroom_importer::get_curve(reader);
            qCDebug(conversion_log) << "ToneCurvePV2012Green -> " << record.tone_curve_green;
        } else if (element == QLatin1String("ToneCurvePV2012Blue")) {
            record.tone_curve_blue = lightroom_importer::get_curve(reader);
            qCDebug(conversion_log) << "ToneCurvePV2012Blue -> " << record.tone_curve_blue;
        } else if (element == QLatin1String("Group")) {
            qCDebug(conversion_log) << "Skipping" << element;
            record.extras.group = group_text(reader);
        } else if (element == QLatin1String("PresetType")) {
            qCDebug(conversion_log) << "Skipping" << element;
            record.extras.preset_type = reader.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
        } else {
            qCDebug(conversion_log) << "Skipping" << element;
            note_skipped_element(record.extras, reader);
        }
    }
}

// Walks x:xmpmeta / rdf:RDF / rdf:Description. Returns false when the
// document has the wrong shape (already reported); true otherwise, also
// when the document simply ended or broke off.
bool read_document(lightroom_importer& record, QXmlStreamReader& reader)
{
    if (!reader.readNextStartElement())
        return true;
    if (reader.name() != QLatin1String("xmpmeta")) {
        qCritical("No xmpmeta element found at start of document");
        return false;
    }
    if (!reader.readNextStartElement())
        return true;
    if (reader.name() != QLatin1String("RDF")) {
        qCritical("No RDF element found at start of document");
        return false;
    }
    if (!reader.readNextStartElement())
        return true;
    if (reader.name() != QLatin1String("Description")) {
        qCritical("No Description element found at start of document");
        return false;
    }
    read_description(record, reader);
    return true;
}

} // namespace

void lightroom_importer::read_xmp(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    read_xmp_data(file.readAll());
}

void lightroom_importer::read_xmp_data(const QByteArray& data)
{
    // Namespace processing stays on; only local names are compared, so any
    // prefix (or none) is accepted.
    QXmlStreamReader reader(data);
    reader.setEntityExpansionLimit(max_entity_expansion);

    if (!read_document(*this, reader))
        return;
    if (reader.hasError())
        qWarning().noquote() << static_cast<int>(reader.error()) << reader.errorString();
}

QString lightroom_importer::get_xmp_text(QXmlStreamReader& reader)
{
    QString result;
    read_alternatives(reader, [&result](QXmlStreamReader& item) {
        // The first non-empty entry wins, whatever its language.
        if (item.name() == QLatin1String("li") && result.isEmpty())
            result = item.readElementText(QXmlStreamReader::IncludeChildElements);
        else
            item.skipCurrentElement();
    });
    return result;
}

QVector<QPoint> lightroom_importer::get_curve(QXmlStreamReader& reader)
{
    QVector<QPoint> points;
    while (reader.readNextStartElement()) {
        if (reader.name() != QLatin1String("Seq")) {
            reader.skipCurrentElement();
            continue;
        }
        while (reader.readNextStartElement()) {
            if (reader.name() != QLatin1String("li")) {
                reader.skipCurrentElement();
                continue;
            }
            // "x, y": QString's integer conversion allows the space after
            // the comma; a field that does not convert counts as 0.
            const QString text = reader.readElementText(QXmlStreamReader::IncludeChildElements);
            const int first_comma = text.indexOf(QLatin1Char(','));
            const int second_comma = first_comma < 0 ? -1 : text.indexOf(QLatin1Char(','), first_comma + 1);
            const int x = text.leftRef(first_comma).toInt(nullptr, 10);
            const int y = first_comma < 0
                ? 0
                : text.midRef(first_comma + 1, second_comma < 0 ? -1 : second_comma - first_comma - 1).toInt(nullptr, 10);
            points.append(QPoint(x, y));
        }
    }
    return points;
}
