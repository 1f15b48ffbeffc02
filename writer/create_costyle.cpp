// SPDX-License-Identifier: GPL-3.0-or-later
// The frame of a style conversion: flags, colour table, bookkeeping entries,
// the mapping groups in their order, and the XML form of the entry table.

#include "writer/costyle_writer.h"
#include "color/conversion_log.h"
#include "writer/mapping_context.h"

#include "importer/lightroom_importer.h"

#include <QUuid>
#include <QXmlStreamWriter>
#include <QtDebug>

#include <cmath>
#include <limits>

namespace {

const QString grayscale_key = QStringLiteral("ConvertToGrayscale");
// Title fallback of presets without a name: an XMP preset's rdf:about.
const QString about_key = QStringLiteral("about");

// Presence of any of these marks a preset of Lightroom's 2010 process. The
// list carries "FillLights" while the fill-light mapping reads "FillLight";
// both spellings are kept as they are, so a preset whose only 2010 key is
// "FillLight" is treated as a 2012 preset.
const QStringList process_2010_keys = {
    QStringLiteral("Brightness"), QStringLiteral("Clarity"),           QStringLiteral("Contrast"),
    QStringLiteral("Exposure"),   QStringLiteral("FillLights"),        QStringLiteral("HighlightRecovery"),
    QStringLiteral("Shadows"),
};

// Capture One reads styles whose root names this engine version.
const QString style_engine_version = QStringLiteral("900");
// Nesting depth of the document in spaces per level.
constexpr int xml_indent = 4;

const colour_table& select_table(const costyle_writer& writer, std::optional<colour_space> space)
{
    if (!space) {
        // An unknown name is not an error: the colours pass through unconverted.
        return writer.table(costyle_writer::identity);
    }
    switch (*space) {
    case colour_space::adobe:
        qCDebug(conversion_log, "Using AdobeRGB colorspace (converting)");
        return writer.table(costyle_writer::adobe_rgb);
    case colour_space::srgb:
        qCDebug(conversion_log, "Using sRGB colorspace (converting)");
        return writer.table(costyle_writer::srgb);
    case colour_space::prophoto:
        qCDebug(conversion_log, "Using ProPhoto colorspace (some conversion)");
        return writer.table(costyle_writer::identity);
    case colour_space::widegamut:
        qCDebug(conversion_log, "Using Wide Gamut RGB colorspace (converting)");
        return writer.table(costyle_writer::wide_gamut_rgb);
    case colour_space::raw:
        // "raw" shares the Wide Gamut table; it additionally switches a few formulas.
        qCDebug(conversion_log, "Using Wide Gamut RGB colorspace (RAW, some conversion)");
        return writer.table(costyle_writer::wide_gamut_rgb);
    }
    return writer.table(costyle_writer::identity);
}

QString new_style_uuid()
{
    // Upper-case, without braces: the form Capture One writes itself.
    const QString braced = QUuid::createUuid().toString();
    return braced.mid(1, braced.size() - 2).toUpper();
}

void write_document(const costyle_entries& entries, QString& out)
{
    QXmlStreamWriter writer(&out);
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(xml_indent);
    // Written into a string, the declaration carries no encoding; the caller
    // picks the file encoding when saving.
    writer.writeStartDocument();
    writer.writeStartElement(QStringLiteral("SL"));
    writer.writeAttribute(QStringLiteral("Engine"), style_engine_version);
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
        writer.writeEmptyElement(QStringLiteral("E"));
        writer.writeAttribute(QStringLiteral("K"), entry.key());
        writer.writeAttribute(QStringLiteral("V"), entry.value());
    }
    writer.writeEndElement();
    writer.writeEndDocument();
}

} // namespace

mapping_flags read_mapping_flags(const settings_view& settings)
{
    mapping_flags flags;
    // Lightroom writes true or True; the number 1 is not a yes here.
    flags.grayscale = settings.value(grayscale_key, QStringLiteral("False")).toLower() == QLatin1String("true");
    // Every key of the list is looked at: each is read as the mark of the
    // process, so none of them is a setting the style leaves out.
    for (const QString& key : process_2010_keys) {
        if (settings.contains(key))
            flags.process_2010 = true;
    }
    return flags;
}

bool costyle_writer::create_costyle(const lightroom_importer& preset, QString& out, const QString& colour_space,
                                    QSet<QString>* keys_read) const
{
    costyle_entries entries = map_settings(preset, colour_space, keys_read, true);
    // A fresh identity on every call: converting twice gives two styles.
    entries.insert(QStringLiteral("UUID"), new_style_uuid());
    write_document(entries, out);
    return true;
}

QSet<QString> costyle_writer::settings_read(const lightroom_importer& preset) const
{
    QSet<QString> keys_read;
    // Which keys are read depends on the settings, not on the colour space.
    (void)map_settings(preset, colour_space_name(colour_space::raw), &keys_read, false);
    return keys_read;
}

costyle_entries costyle_writer::map_settings(const lightroom_importer& preset, const QString& colour_space,
                                             QSet<QString>* keys_read, bool with_point_curves) const
{
    costyle_entries entries;
    const settings_view settings(preset.settings, keys_read);
    const mapping_flags flags = read_mapping_flags(settings);
    const std::optional<::colour_space> space = parse_colour_space(colour_space);
    const colour_table& active_table = select_table(*this, space);

    // Every style carries a name, even an empty one.
    entries.insert(QStringLiteral("Name"),
                   preset.name.isEmpty() ? settings.value(about_key) : preset.name);

    mapping_context context{preset, settings, entries, active_table, colour_space, space, flags};

    map_white_balance(context);
    if (flags.process_2010)
        map_process_2010_tone(context);
    // The 2012 group runs after the 2010 one so that its values win where a
    // preset carries both.
    map_process_2012_tone(context);
    map_clarity(context);
    map_saturation(context);
    // The point curves come from the record, not from its settings: a pass
    // that only learns which settings are read skips their rastering.
    if (with_point_curves)
        map_point_curves(context);
    if (flags.grayscale)
        map_black_and_white(context);
    map_split_toning(context);
    map_colour_corrections(context);
    map_detail_and_effects(context);
    return entries;
}
