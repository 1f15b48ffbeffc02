// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Helpers of the style writer's tests: one writer for the whole program,
// presets from literal settings, documents read back into their entries.

#include "support/log_capture.h"
#include "importer/lightroom_importer.h"
#include "writer/costyle_writer.h"

#include <QRegularExpression>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

using test_support::log_capture;
using setting_list = std::vector<std::pair<const char*, const char*>>;

inline lightroom_importer preset_with(const setting_list& settings, const QString& name = QString())
{
    lightroom_importer preset;
    for (const auto& [key, value] : settings)
        preset.settings.insert(key, value);
    preset.name = name;
    return preset;
}

// Building a writer loads three colour tables; the tests share one.
inline const costyle_writer& shared_writer()
{
    static const costyle_writer writer;
    return writer;
}

inline QString convert(const lightroom_importer& preset, const QString& colour_space)
{
    QString out;
    shared_writer().create_costyle(preset, out, colour_space);
    return out;
}

// A style document read back: its entries in document order and by key.
struct parsed_style {
    QStringList keys;
    QMap<QString, QString> entries;
    QString error;
    bool has(const QString& key) const { return entries.contains(key); }
    QString value(const QString& key) const { return entries.value(key); }
};

inline parsed_style convert_to_style(const lightroom_importer& preset, const QString& colour_space = "adobe")
{
    parsed_style style;
    QXmlStreamReader reader(convert(preset, colour_space));
    if (reader.readNextStartElement() && reader.name() == QLatin1String("SL"))
        for (; reader.readNextStartElement(); reader.skipCurrentElement()) {
            style.keys << reader.attributes().value("K").toString();
            style.entries.insert(style.keys.last(), reader.attributes().value("V").toString());
        }
    style.error = reader.errorString();
    return style;
}

// The one random part of a document, replaced so documents can be compared.
inline QString mask_uuid(QString document)
{
    return document.replace(QRegularExpression("[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}"),
                            "UUID-MASKED");
}

// Rows of settings converted in a colour space, with entries the style must
// hold (a value of nullptr: the entry must be absent).
struct mapping_case {
    const char* name;
    const char* colour_space;
    setting_list settings, expected;
};

inline void check_mapping(const std::vector<mapping_case>& cases)
{
    for (const mapping_case& c : cases) {
        const parsed_style style = convert_to_style(preset_with(c.settings), c.colour_space);
        for (const auto& [key, value] : c.expected)
            EXPECT_EQ(style.has(key) ? style.value(key) : "absent", value ? value : "absent") << c.name << ": " << key;
    }
}
