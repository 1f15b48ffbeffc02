// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz_targets.h"

#include "conversion/preset_archive.h"
#include "conversion/preset_reading.h"
#include "color/colour_table.h"
#include "color/stk_exception.h"
#include "importer/lightroom_importer.h"
#include "writer/carried_settings.h"
#include "writer/costyle_writer.h"
#include "writer_input.h"

#include <QTextStream>
#include <QXmlStreamReader>
#include <cstdlib>
#include <stdexcept>

namespace {

// The bytes decoded exactly as the template reader decodes a file: UTF-8,
// byte-order marks honoured, invalid sequences as replacement characters.
QString template_text(const QByteArray& input)
{
    QTextStream stream(input, QIODevice::ReadOnly);
    stream.setCodec("UTF-8");
    stream.setAutoDetectUnicode(true);
    return stream.readAll();
}

// Corners, the middle and odd values: every cell-index edge case of the
// interpolation.
constexpr int lookup_probes[][3] = {{0, 0, 0}, {255, 255, 255}, {128, 64, 32}, {1, 254, 127}, {255, 0, 255}};

} // namespace

// Global, so the lookups written into it cannot be optimised away.
volatile float fuzz_lookup_sink = 0.0f;

namespace fuzz_targets {

void silence_qt_messages()
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
}

void regular_template(const QByteArray& input)
{
    const QString text = template_text(input);
    lightroom_importer record;
    try {
        record.read_regular_lrpreset(text);
    } catch (const std::runtime_error&) {
        // Entries stored before the error stay in the record.
    }
}

void dot_notation(const QByteArray& input)
{
    const QString text = template_text(input);
    lightroom_importer record;
    record.read_dot_notation_lrpreset(text);
}

void xmp(const QByteArray& input)
{
    lightroom_importer record;
    record.read_xmp_data(input);
}

void dng(const QByteArray& input)
{
    lightroom_importer record;
    try {
        record.read_dng_data(input);
    } catch (const std::runtime_error&) {
        // A damaged DNG, or one without develop settings.
    }
}

void lut_3dl(const QByteArray& input)
{
    colour_table table;
    try {
        load_3dl_from_data(table, input);
    } catch (const stk::exception&) {
        return;
    }
    for (const auto& p : lookup_probes) {
        const colour_entry e = table.lookup(p[0], p[1], p[2]);
        fuzz_lookup_sink = e.r + e.g + e.b + e.a;
    }
}

void costyle_writer(const QByteArray& input)
{
    // Built once: the constructor reads three colour tables.
    static const ::costyle_writer writer;

    lightroom_importer record;
    QString colour_space;
    writer_input::decode(input, record, colour_space);

    bool white_balance = false, dehaze = false, lut = false, camera_calibration = false;
    writer.check_costyle(white_balance, dehaze, lut, camera_calibration, record);
    QString document;
    QSet<QString> keys_read;
    if (!writer.create_costyle(record, document, colour_space, &keys_read))
        std::abort();
    (void)not_carried_over(record, keys_read);
    QXmlStreamReader xml(document);
    while (!xml.atEnd())
        xml.readNext();
    if (xml.hasError())
        std::abort(); // a style file Capture One could not read
}

void preset_archive(const QByteArray& input)
{
    archive_limits limits;
    limits.max_entries = 64;
    limits.max_entry_size = 1024 * 1024;
    limits.max_total_size = 4 * 1024 * 1024;
    const archive_contents contents = read_preset_archive_data(input, limits);
    for (const archive_preset& preset : contents.presets) {
        if (preset.entry.isEmpty() || preset.entry.startsWith(QLatin1Char('/')) || preset.entry.contains(QLatin1String("..")))
            std::abort(); // a name that could leave the output folder
        switch (preset_format_of(preset.entry)) {
        case preset_format::xmp:
            xmp(preset.data);
            break;
        case preset_format::dng:
            // Its packet was taken while the archive was read.
            if (preset.error.isEmpty())
                xmp(preset.data);
            break;
        default:
            regular_template(preset.data);
            break;
        }
    }
}

} // namespace fuzz_targets
