// SPDX-License-Identifier: GPL-3.0-or-later
// Wraps XMP presets into DNG presets, as Lightroom on phones shares them, for
// benchmarks and trials by hand: each FILE.xmp becomes OUT/FILE.dng, a 1x1 DNG
// whose XMP packet is the preset. --photo BYTES appends that many bytes of
// image data behind the packet, as a real DNG's photo would lie there.
//
//   make_dng_presets [--photo BYTES] OUT FILE.xmp...
#include "support/dng_writer.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QStringList arguments = application.arguments().mid(1);
    qint64 photo = 0;
    if (arguments.size() >= 2 && arguments.first() == QLatin1String("--photo")) {
        photo = arguments.at(1).toLongLong();
        arguments = arguments.mid(2);
    }
    if (arguments.size() < 2) {
        std::fputs("usage: make_dng_presets [--photo BYTES] OUT FILE.xmp...\n", stderr);
        return 2;
    }
    const QDir out(arguments.takeFirst());
    out.mkpath(QStringLiteral("."));
    for (const QString& path : arguments) {
        QFile xmp(path);
        QFile dng_file(out.filePath(QFileInfo(path).completeBaseName() + QStringLiteral(".dng")));
        if (!xmp.open(QIODevice::ReadOnly) || !dng_file.open(QIODevice::WriteOnly)) {
            std::fprintf(stderr, "%s: can't be read or written\n", qPrintable(path));
            return 1;
        }
        dng_file.write(dng::make(xmp.readAll()));
        dng_file.write(QByteArray(int(photo), '\x55'));
    }
    return 0;
}
