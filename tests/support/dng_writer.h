// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QVector>

#include <cstdint>

// Valid 1x1 DNG files made on the spot around an XMP packet, so that no
// third-party DNG is needed: a TIFF header, one directory with the tags a DNG
// reader expects (DNGVersion among them), the packet and one grey pixel.
namespace dng {

enum class byte_order { little, big };
// TIFF field types the XMLPacket tag is written with.
enum class packet_type : std::uint16_t { byte = 1, undefined = 7 };

struct options {
    byte_order order = byte_order::little;
    packet_type type = packet_type::byte;
    // Wraps the packet in <?xpacket begin ...?> ... <?xpacket end="w"?>
    // with padding, as Adobe writes it.
    bool wrapped = true;
    // Leaves the XMLPacket tag out.
    bool without_packet = false;
};

// Where the parts of a file made by make() lie, for tests that damage one.
struct layout {
    std::uint32_t directory = 8;  // offset of the entry count
    int entries = 0;
    std::uint32_t packet = 0;     // offset of the packet's bytes
    std::uint32_t packet_entry = 0; // offset of the XMLPacket entry
};

inline QByteArray header(byte_order order)
{
    return order == byte_order::big ? QByteArray("MM\x00\x2a", 4) : QByteArray("II\x2a\x00", 4);
}

// An XML declaration has no place inside the wrapper, and Adobe writes none.
inline QByteArray wrapped_packet(QByteArray xmp)
{
    if (xmp.startsWith("<?xml")) {
        const int end = xmp.indexOf("?>");
        xmp = xmp.mid(end + 2);
    }
    return QByteArray("<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n") + xmp +
           QByteArray(2048, ' ') + "\n<?xpacket end=\"w\"?>";
}

class writer {
public:
    explicit writer(byte_order order) : big_(order == byte_order::big) {}

    void u16(QByteArray& out, std::uint32_t value) const
    {
        const char bytes[2] = {char(value & 0xff), char((value >> 8) & 0xff)};
        out.append(big_ ? bytes[1] : bytes[0]).append(big_ ? bytes[0] : bytes[1]);
    }
    void u32(QByteArray& out, std::uint32_t value) const
    {
        for (int i = 0; i < 4; ++i) {
            const int shift = big_ ? 24 - 8 * i : 8 * i;
            out.append(char((value >> shift) & 0xff));
        }
    }

private:
    bool big_;
};

struct entry {
    std::uint16_t tag;
    std::uint16_t type;
    std::uint32_t count;
    std::uint32_t value; // a short is written in the field's first two bytes
    QByteArray data;     // data that does not fit the field, placed after the directory
};

inline QByteArray make(const QByteArray& xmp, const options& o = {}, layout* where = nullptr)
{
    const writer w(o.order);
    const QByteArray packet = o.wrapped ? wrapped_packet(xmp) : xmp;
    enum : std::uint16_t { short_type = 3, long_type = 4, byte_type = 1 };
    QVector<entry> entries = {
        {254, long_type, 1, 0, {}},  // NewSubfileType: the main image
        {256, long_type, 1, 1, {}},  // ImageWidth
        {257, long_type, 1, 1, {}},  // ImageLength
        {258, short_type, 1, 8, {}}, // BitsPerSample
        {259, short_type, 1, 1, {}}, // Compression: none
        {262, short_type, 1, 1, {}}, // PhotometricInterpretation: black is zero
        {273, long_type, 1, 0, {}},  // StripOffsets, set below
        {277, short_type, 1, 1, {}}, // SamplesPerPixel
        {278, long_type, 1, 1, {}},  // RowsPerStrip
        {279, long_type, 1, 1, {}},  // StripByteCounts
    };
    if (!o.without_packet)
        entries.append({700, std::uint16_t(o.type), std::uint32_t(packet.size()), 0, packet});
    entries.append({50706, byte_type, 4, 0, {}}); // DNGVersion 1.4.0.0, set below

    const std::uint32_t directory = 8;
    const std::uint32_t after_directory = directory + 2 + 12 * std::uint32_t(entries.size()) + 4;
    std::uint32_t next_data = after_directory;
    for (entry& e : entries) {
        if (!e.data.isEmpty()) {
            e.value = next_data;
            next_data += std::uint32_t(e.data.size());
            next_data += next_data % 2; // word boundary
        }
    }
    const std::uint32_t pixel = next_data;

    QByteArray out = header(o.order);
    w.u32(out, directory);
    w.u16(out, std::uint32_t(entries.size()));
    for (const entry& e : entries) {
        if (where && e.tag == 700)
            where->packet_entry = std::uint32_t(out.size());
        w.u16(out, e.tag);
        w.u16(out, e.type);
        w.u32(out, e.count);
        if (e.tag == 273) {
            w.u32(out, pixel);
        } else if (e.tag == 50706) {
            out.append("\x01\x04\x00\x00", 4);
        } else if (e.type == short_type) {
            w.u16(out, e.value);
            w.u16(out, 0);
        } else {
            w.u32(out, e.value);
        }
    }
    w.u32(out, 0); // no further directory
    for (const entry& e : entries) {
        if (e.data.isEmpty())
            continue;
        if (where && e.tag == 700)
            where->packet = std::uint32_t(out.size());
        out.append(e.data);
        if (out.size() % 2 != 0)
            out.append('\0');
    }
    out.append('\x80'); // the one pixel
    if (where) {
        where->directory = directory;
        where->entries = entries.size();
    }
    return out;
}

} // namespace dng
