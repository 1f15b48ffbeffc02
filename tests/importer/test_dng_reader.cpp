// SPDX-License-Identifier: GPL-3.0-or-later
// DNG presets: the XMP packet of DNGs made on the spot (both byte orders, both
// field types, with and without Adobe's wrapper) reads as the XMP itself, and
// damaged DNGs end with libtiff's or our reason, never a crash or a hang.
#include "importer/dng_packet.h"
#include "importer/lightroom_importer.h"
#include "support/dng_writer.h"
#include "support/test_support.h"

#include <QBuffer>
#include <QDirIterator>
#include <QFile>
#include <QtEndian>
#include <gtest/gtest.h>

#include <functional>

namespace {

QString record_text(const lightroom_importer& record)
{
    QStringList lines;
    for (auto it = record.settings.cbegin(); it != record.settings.cend(); ++it)
        lines << it.key() + QLatin1Char('=') + it.value();
    for (const auto* curve : {&record.tone_curve, &record.tone_curve_red, &record.tone_curve_green,
                              &record.tone_curve_blue}) {
        QStringList points;
        for (const QPoint& p : *curve)
            points << QStringLiteral("%1,%2").arg(p.x()).arg(p.y());
        lines << QStringLiteral("curve ") + points.join(QLatin1Char(' '));
    }
    lines << QStringLiteral("name ") + record.name << QStringLiteral("description ") + record.description
          << QStringLiteral("look ") + record.extras.look << QStringLiteral("type ") + record.extras.preset_type
          << QStringLiteral("group ") + record.extras.group;
    for (auto it = record.extras.local_adjustments.cbegin(); it != record.extras.local_adjustments.cend(); ++it)
        lines << QStringLiteral("local %1 %2").arg(it.key()).arg(it.value());
    return lines.join(QLatin1Char('\n'));
}

// What reading bytes as a DNG comes to: the record, or the message thrown.
QString read_as_dng(const QByteArray& bytes)
{
    lightroom_importer record;
    try {
        record.read_dng_data(bytes);
    } catch (const no_develop_settings& error) {
        return QStringLiteral("no develop settings: ") + QString::fromUtf8(error.what());
    } catch (const std::runtime_error& error) {
        return QStringLiteral("error: ") + QString::fromUtf8(error.what());
    }
    return record_text(record);
}

QStringList xmp_presets()
{
    QStringList found;
    QStringList roots = {QStringLiteral(STYLEWRIGHT_TEST_DATA_DIR "/readers")};
    if (!test_support::corpus_dir().isEmpty())
        roots << test_support::corpus_dir();
    for (const QString& root : roots) {
        for (QDirIterator it(root, {QStringLiteral("*.xmp")}, QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
            found << it.next();
    }
    found.sort();
    return found;
}

const dng::options every_form[] = {
    {dng::byte_order::little, dng::packet_type::byte, true, false},
    {dng::byte_order::little, dng::packet_type::undefined, false, false},
    {dng::byte_order::big, dng::packet_type::byte, false, false},
    {dng::byte_order::big, dng::packet_type::undefined, true, false},
};

} // namespace

TEST(dng_reader, every_xmp_preset_in_a_dng_reads_as_the_xmp_itself)
{
    int compared = 0;
    for (const QString& path : xmp_presets()) {
        SCOPED_TRACE(path.toStdString());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray xmp = file.readAll();
        lightroom_importer from_xmp;
        from_xmp.read_xmp_data(xmp);
        const QString expected = record_text(from_xmp);
        for (const dng::options& form : every_form) {
            // The wrapper is UTF-8: a packet in another encoding goes bare.
            if (form.wrapped && !xmp.contains("xmpmeta"))
                continue;
            const QString got = read_as_dng(dng::make(xmp, form));
            // A file the XMP reader gets nothing from is no DNG preset either.
            if (got.startsWith(QLatin1String("no develop settings")))
                EXPECT_TRUE(from_xmp.settings.isEmpty() || from_xmp.extras.non_develop_keys.size() ==
                                                               from_xmp.settings.size())
                    << expected.toStdString();
            else
                EXPECT_EQ(got, expected);
            ++compared;
        }
    }
    EXPECT_GE(compared, 4 * 19);
}

TEST(dng_reader, packet_is_read_from_a_file_without_reading_the_photo)
{
    const QByteArray xmp = "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
                           "xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"><rdf:Description "
                           "xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\" crs:Exposure2012=\"+0.50\"/>"
                           "</rdf:RDF></x:xmpmeta>";
    // A photo of 8 MB behind the directory: only the first few KB are read.
    QByteArray bytes = dng::make(xmp) + QByteArray(8 * 1024 * 1024, '\x55');
    struct counting_buffer : QBuffer {
        qint64 read_total = 0;
        qint64 readData(char* data, qint64 size) override
        {
            const qint64 got = QBuffer::readData(data, size);
            read_total += qMax<qint64>(got, 0);
            return got;
        }
    } device;
    device.setData(bytes);
    ASSERT_TRUE(device.open(QIODevice::ReadOnly));
    EXPECT_TRUE(read_dng_xmp_packet(device).contains("Exposure2012"));
    EXPECT_LT(device.read_total, 64 * 1024);
}

TEST(dng_reader, damaged_dngs_end_with_a_reason)
{
    const QByteArray xmp = "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
                           "xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"><rdf:Description "
                           "xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\" crs:Contrast2012=\"20\"/>"
                           "</rdf:RDF></x:xmpmeta>";
    const QByteArray photo_only = "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
                                  "xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"><rdf:Description "
                                  "xmlns:tiff=\"http://ns.adobe.com/tiff/1.0/\" "
                                  "xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\" tiff:Make=\"Fuji\" "
                                  "crs:Version=\"15.0\" crs:RawFileName=\"a.raf\" crs:CropTop=\"0.1\"/>"
                                  "</rdf:RDF></x:xmpmeta>";
    dng::layout at;
    const QByteArray good = dng::make(xmp, {}, &at);
    const auto put32 = [](QByteArray bytes, int offset, quint32 value) {
        qToLittleEndian(value, bytes.data() + offset);
        return bytes;
    };
    const auto put16 = [](QByteArray bytes, int offset, quint16 value) {
        qToLittleEndian(value, bytes.data() + offset);
        return bytes;
    };
    const int next_directory = int(at.directory) + 2 + 12 * at.entries;
    const QString packet_unreadable =
        QStringLiteral("error: Not a readable DNG: IO error during reading of \"XMLPacket\"; tag ignored");
    const struct {
        const char* damage;
        QByteArray bytes;
        QString outcome; // the message, or a line of the record
    } cases[] = {
        {"an empty file", QByteArray(), "error: Not a readable DNG: Cannot read TIFF header"},
        {"a zip archive", QByteArray("PK\x03\x04\0\0\0\0\0\0", 10),
         "error: Not a readable DNG: Not a TIFF or MDI file, bad magic number 19280 (0x4b50)"},
        {"cut inside the header", good.left(6), "error: Not a readable DNG: Cannot read TIFF header"},
        {"cut inside the directory", good.left(40), "error: Not a readable DNG: Can not read TIFF directory"},
        {"directory offset past the end", put32(good, 4, 0x7fffff00u), "error: Not a readable DNG: Seek error accessing TIFF directory"},
        {"absurd entry count", put16(good, int(at.directory), 0xffff),
         "error: Not a readable DNG: Sanity check on directory count failed, this is probably not a valid IFD offset"},
        {"packet offset past the end", put32(good, int(at.packet_entry) + 8, 0x7fff0000u), packet_unreadable},
        {"packet count past the end", put32(good, int(at.packet_entry) + 4, 0x7fffffffu), packet_unreadable},
        {"a loop of directories is never followed", put32(good, next_directory, at.directory), "Contrast2012=20"},
        {"no packet", dng::make(xmp, {dng::byte_order::big, dng::packet_type::byte, true, true}),
         "no develop settings: holds no develop settings"},
        {"a packet of NUL bytes", dng::make(QByteArray(64, '\0'), {dng::byte_order::little, dng::packet_type::byte, false, false}),
         "no develop settings: holds no develop settings"},
        {"a photo's packet", dng::make(photo_only), "no develop settings: holds no develop settings"},
        {"a packet that is no XML", dng::make("not xml at all"), "no develop settings: holds no develop settings"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.damage);
        const QString got = read_as_dng(c.bytes);
        if (c.outcome.startsWith(QLatin1String("error")) || c.outcome.startsWith(QLatin1String("no develop")))
            EXPECT_EQ(got, c.outcome);
        else
            EXPECT_TRUE(got.split(QLatin1Char('\n')).contains(c.outcome)) << got.toStdString();
    }
}
