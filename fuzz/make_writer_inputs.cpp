// SPDX-License-Identifier: GPL-3.0-or-later
// Turns real presets into start inputs of the style-writer harness: each
// preset file given on the command line is read and written into the output
// folder in the harness's input form, with the colour spaces taken in turn.
// Usage: make_writer_inputs OUTPUT_DIR PRESET...
#include "importer/lightroom_importer.h"
#include "writer_input.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <stdexcept>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QStringList arguments = app.arguments();
    if (arguments.size() < 2) {
        std::fprintf(stderr, "usage: make_writer_inputs OUTPUT_DIR PRESET...\n");
        return 2;
    }
    const QDir out(arguments.at(1));
    QDir().mkpath(out.path());
    static const QStringList colour_spaces{QStringLiteral("raw"), QStringLiteral("adobe"), QStringLiteral("srgb"),
                                           QStringLiteral("prophoto"), QStringLiteral("widegamut")};
    int written = 0;
    for (int i = 2; i < arguments.size(); ++i) {
        const QFileInfo preset(arguments.at(i));
        lightroom_importer record;
        try {
            if (preset.suffix().compare(QLatin1String("xmp"), Qt::CaseInsensitive) == 0)
                record.read_xmp(preset.filePath());
            else
                record.read_lrpreset(preset.filePath());
        } catch (const std::runtime_error&) {
            continue;
        }
        if (record.settings.isEmpty())
            continue;
        // One colour space per preset, in turn, keeps the corpus small.
        const QByteArray input = writer_input::encode(record, colour_spaces.at(i % colour_spaces.size()));
        const QString name = QString::fromLatin1(QCryptographicHash::hash(input, QCryptographicHash::Sha1).toHex());
        QFile file(out.filePath(name));
        if (file.exists())
            continue;
        if (file.open(QIODevice::WriteOnly) && file.write(input) == input.size())
            ++written;
    }
    std::printf("%d writer inputs written to %s\n", written, qPrintable(out.path()));
    return 0;
}
