#pragma once

// Helpers shared by the style writer's tests: one writer for the whole test
// program, presets built from literal settings, a parsed style document and
// a recorder of the log.

#include "importer/lightroom_importer.h"
#include "writer/costyle_writer.h"

#include <QMap>
#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <QXmlStreamReader>
#include <QtGlobal>

#include <ostream>
#include <utility>
#include <vector>

// Readable QString values in GoogleTest's failure messages.
inline void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}

namespace writer_test {

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
    for (const auto& setting : settings)
        preset.settings.insert(QString::fromUtf8(setting.first), QString::fromUtf8(setting.second));
    preset.name = name;
    return preset;
}

// A style document read back: the entries in document order and by key.
struct parsed_style {
    QString engine;
    QStringList keys;
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
        style.engine = reader.attributes().value(QLatin1String("Engine")).toString();
        while (reader.readNextStartElement()) {
            const QString key = reader.attributes().value(QLatin1String("K")).toString();
            style.keys.append(key);
            style.entries.insert(key, reader.attributes().value(QLatin1String("V")).toString());
            reader.skipCurrentElement();
        }
    }
    if (reader.hasError())
        style.error = reader.errorString();
    return style;
}

inline QString convert(const lightroom_importer& preset, const QString& colour_space)
{
    QString out;
    shared_writer().create_costyle(preset, out, colour_space);
    return out;
}

inline parsed_style convert_to_style(const lightroom_importer& preset, const QString& colour_space = QStringLiteral("adobe"))
{
    return parse_style(convert(preset, colour_space));
}

// The one random part of a document, replaced so documents can be compared.
inline QString mask_uuid(QString document)
{
    static const QRegularExpression uuid(
        QStringLiteral("[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}"));
    return document.replace(uuid, QStringLiteral("UUID-MASKED"));
}

// Records the log while it lives (one at a time).
class message_log {
public:
    message_log() { previous_ = qInstallMessageHandler(&message_log::record); }
    ~message_log()
    {
        qInstallMessageHandler(previous_);
        lines().clear();
    }
    message_log(const message_log&) = delete;
    message_log& operator=(const message_log&) = delete;

    static QStringList& lines()
    {
        static QStringList recorded;
        return recorded;
    }
    bool contains(const QString& text) const
    {
        for (const QString& line : lines())
            if (line.contains(text))
                return true;
        return false;
    }

private:
    static void record(QtMsgType, const QMessageLogContext&, const QString& message) { lines().append(message); }
    QtMessageHandler previous_ = nullptr;
};

} // namespace writer_test
