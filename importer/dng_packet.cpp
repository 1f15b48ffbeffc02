// SPDX-License-Identifier: GPL-3.0-or-later
#include "importer/dng_packet.h"

#include "color/conversion_log.h"

#include <QDebug>
#include <QIODevice>

#include <tiffio.h>

#include <cstdarg>
#include <cstdio>
#include <memory>

namespace {

// No single allocation libtiff makes for a preset's first directory comes
// near this: the XMP packet of a preset with a lookup table is a few hundred
// KB, the profile tables tens of KB. A damaged count asking for more fails
// with libtiff's "Maximum single memory allocation size exceeded" instead of
// taking the memory.
constexpr tmsize_t max_single_allocation = 16 * 1024 * 1024;

// Longest libtiff message kept; theirs are one short sentence.
constexpr int message_size = 512;

QIODevice& device_of(thandle_t handle)
{
    return *static_cast<QIODevice*>(handle);
}

tmsize_t read_device(thandle_t handle, void* buffer, tmsize_t size)
{
    return device_of(handle).read(static_cast<char*>(buffer), size);
}

tmsize_t write_nothing(thandle_t, void*, tmsize_t)
{
    return -1;
}

toff_t seek_device(thandle_t handle, toff_t offset, int whence)
{
    QIODevice& device = device_of(handle);
    const qint64 size = device.size();
    qint64 position = 0;
    switch (whence) {
    case SEEK_SET:
        position = qint64(offset);
        break;
    case SEEK_CUR:
        position = device.pos() + qint64(offset);
        break;
    case SEEK_END:
        position = size + qint64(offset);
        break;
    default:
        return toff_t(-1);
    }
    // An offset past the end is damage; a read there would only come up short.
    if (position < 0 || position > size || !device.seek(position))
        return toff_t(-1);
    return toff_t(position);
}

int close_nothing(thandle_t)
{
    return 0;
}

toff_t device_size(thandle_t handle)
{
    return toff_t(device_of(handle).size());
}

int map_nothing(thandle_t, void**, toff_t*)
{
    return 0;
}

void unmap_nothing(thandle_t, void*, toff_t) {}

QString formatted(const char* format, va_list arguments)
{
    char text[message_size];
    std::vsnprintf(text, sizeof text, format, arguments);
    return QString::fromUtf8(text);
}

// The name libtiff puts before some of its messages.
const char* const file_label = "DNG";

// What libtiff said while the file was opened.
struct messages {
    QString error;          // the first error: the reason; later ones follow from it
    QString packet_warning; // why the packet's tag was passed over, if it was
};

QString without_label(QString text)
{
    const QString label = QString::fromLatin1(file_label) + QStringLiteral(": ");
    return text.startsWith(label) ? text.mid(label.size()) : text;
}

int keep_first_error(TIFF*, void* user_data, const char*, const char* format, va_list arguments)
{
    auto* said = static_cast<messages*>(user_data);
    const QString text = without_label(formatted(format, arguments));
    if (said->error.isEmpty())
        said->error = text;
    return 1;
}

// A damaged packet tag is only a warning to libtiff, which then passes it
// over; for a preset it is the reason the file can't be read.
int keep_packet_warning(TIFF*, void* user_data, const char* module, const char* format, va_list arguments)
{
    auto* said = static_cast<messages*>(user_data);
    const QString text = without_label(formatted(format, arguments));
    if (said->packet_warning.isEmpty() && text.contains(QLatin1String("XMLPacket")))
        said->packet_warning = text;
    qCDebug(conversion_log).noquote() << QStringLiteral("libtiff %1: %2").arg(QString::fromUtf8(module ? module : ""), text);
    return 1;
}

[[noreturn]] void fail(const QString& reason)
{
    throw std::runtime_error(QStringLiteral("Not a readable DNG: %1").arg(reason).toStdString());
}

struct options_deleter {
    void operator()(TIFFOpenOptions* options) const { TIFFOpenOptionsFree(options); }
};
struct tiff_closer {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};

} // namespace

QByteArray read_dng_xmp_packet(QIODevice& device)
{
    messages said;
    const std::unique_ptr<TIFFOpenOptions, options_deleter> options(TIFFOpenOptionsAlloc());
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), max_single_allocation);
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), keep_first_error, &said);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), keep_packet_warning, &said);

    if (!device.seek(0))
        fail(QStringLiteral("the file can't be read from its start."));
    // "r": read only; "m": never map the file, everything goes through the
    // callbacks. Opening reads the header and the first directory only.
    const std::unique_ptr<TIFF, tiff_closer> tiff(TIFFClientOpenExt(
        file_label, "rm", &device, read_device, write_nothing, seek_device, close_nothing, device_size, map_nothing,
        unmap_nothing, options.get()));
    if (!tiff)
        fail(said.error.isEmpty() ? QStringLiteral("the file is no TIFF.") : said.error);
    uint32_t size = 0;
    const void* packet = nullptr;
    if (TIFFGetField(tiff.get(), TIFFTAG_XMLPACKET, &size, &packet) != 1 || packet == nullptr) {
        if (!said.packet_warning.isEmpty())
            fail(said.packet_warning);
        return QByteArray();
    }
    return QByteArray(static_cast<const char*>(packet), int(size));
}
