// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <stdexcept>

class QIODevice;

// A DNG preset is a small DNG photo whose develop settings are the XMP packet
// in its first image file directory (TIFF tag 700, XMLPacket), the same XMP
// an .xmp preset holds.

// Reads that packet through libtiff from device, which is open for reading
// and seekable: only the file's header and its first directory are read,
// never image data, so a large DNG costs what a small one does. Returns an
// empty array when the first directory has no packet. Throws
// std::runtime_error, "Not a readable DNG: " and libtiff's reason, when the
// file is no TIFF or is damaged (truncated, offsets past its end, absurd
// counts, a packet that can't be read). libtiff's warnings go to the debug
// log.
QByteArray read_dng_xmp_packet(QIODevice& device);

// Thrown for a DNG whose packet is missing or holds no develop settings: a
// photo, not a preset.
class no_develop_settings : public std::runtime_error {
public:
    no_develop_settings() : std::runtime_error("holds no develop settings") {}
};
