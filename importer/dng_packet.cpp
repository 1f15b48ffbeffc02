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

// The first error is the reason; later ones follow from it.
int keep_first_error(TIFF*, void* user_data, const char*, const char* format, va_list arguments)
{
    auto* reason = static_cast<QString*>(user_data);
    const QString text = formatted(format, arguments);
    if (reason->isEmpty())
        *reason = text;
    return 1;
}

int log_warning(TIFF*, void*, const char* module, const char* format, va_list arguments)
{
    qCDebug(conversion_log).noquote() << QStringLiteral("libtiff %1: %2")
                                             .arg(QString::fromUtf8(module ? module : ""), formatted(format, arguments));
    return 1;
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
    QString reason;
    const std::unique_ptr<TIFFOpenOptions, options_deleter> options(TIFFOpenOptionsAlloc());
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), max_single_allocation);
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), keep_first_error, &reason);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), log_warning, nullptr);

    if (!device.seek(0))
        throw std::runtime_error("The file can't be read from its start.");
    // "r": read only; "m": never map the file, everything goes through the
    // callbacks. Opening reads the header and the first directory only.
    const std::unique_ptr<TIFF, tiff_closer> tiff(TIFFClientOpenExt(
        "DNG", "rm", &device, read_device, write_nothing, seek_device, close_nothing, device_size, map_nothing,
        unmap_nothing, options.get()));
    if (!tiff) {
        if (reason.isEmpty())
            reason = QStringLiteral("The file is not a DNG.");
        throw std::runtime_error(reason.toStdString());
    }
    uint32_t size = 0;
    const void* packet = nullptr;
    if (TIFFGetField(tiff.get(), TIFFTAG_XMLPACKET, &size, &packet) != 1 || packet == nullptr)
        return QByteArray();
    return QByteArray(static_cast<const char*>(packet), int(size));
}
