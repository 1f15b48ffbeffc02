#pragma once

// Helpers of the style writer's tests: one writer for the whole program,
// presets from literal settings, documents read back into their entries, and
// a check of expected entries for rows of settings.

#include "color/log_capture.h"
#include "importer/lightroom_importer.h"
#include "writer/costyle_writer.h"

#include <QRegularExpression>
#include <QXmlStreamReader>
#include <gtest/gtest.h>
#include <vector>

namespace writer_test {

using test_support::log_capture;
using setting_list = std::vector<std::pair<const char*, const char*>>;

// Building a writer loads three colour tables; the tests share one.
inline const costyle_writer& shared_writer()
{
    static const costyle_writer writer;
    return writer;
}

inline lightroom_importer preset_with(const setting_list& settings, const QString& name = QString())
{
    lightroom_importer preset;
    for (const auto& [key, value] : settings)
        preset.settings.insert(key, value);
    preset.name = name;
    return preset;
}

struct parsed_style {
    QString engine;
    QStringList keys; // in document order
    QMap<QString, QString> entries;
    QString error;

    bool has(const QString& key) const { return entries.contains(key); }
    QString value(const QString& key) const { return entries.value(key); }
};

inline parsed_style parse_style(const QString& document)
{
    parsed_style style;
    QXmlStreamReader reader(document);
    if (reader.readNextStartElement() && reader.name() == QLatin1String("SL")) {
        style.engine = reader.attributes().value("Engine").toString();
        while (reader.readNextStartElement()) {
            style.keys << reader.attributes().value("K").toString();
            style.entries.insert(style.keys.last(), reader.attributes().value("V").toString());
            reader.skipCurrentElement();
        }
    }
    style.error = reader.errorString();
    return style;
}

inline QString convert(const lightroom_importer& preset, const QString& colour_space)
{
    QString out;
    shared_writer().create_costyle(preset, out, colour_space);
    return out;
}

inline parsed_style convert_to_style(const lightroom_importer& preset, const QString& colour_space = "adobe")
{
    return parse_style(convert(preset, colour_space));
}

// The one random part of a document, replaced so documents can be compared.
inline QString mask_uuid(QString document)
{
    static const QRegularExpression uuid("[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}");
    return document.replace(uuid, "UUID-MASKED");
}

// Settings converted in a colour space, and entries the style must hold
// (a value of nullptr: the entry must be absent).
struct mapping_case {
    const char* name;
    const char* colour_space;
    setting_list settings;
    setting_list expected;
};

inline void check_mapping(const std::vector<mapping_case>& cases)
{
    for (const mapping_case& c : cases) {
        SCOPED_TRACE(c.name);
        const parsed_style style = convert_to_style(preset_with(c.settings), c.colour_space);
        for (const auto& [key, value] : c.expected) {
            if (value)
                EXPECT_EQ(style.value(key), value) << key;
            else
                EXPECT_FALSE(style.has(key)) << key << " = " << style.value(key).toStdString();
        }
    }
}

} // namespace writer_test
