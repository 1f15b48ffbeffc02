// SPDX-License-Identifier: GPL-3.0-or-later
#include "importer/lightroom_importer.h"

#include "importer/lrparser.h"

#include <QFile>
#include <QLatin1String>
#include <QTextStream>

void lightroom_importer::read_lrpreset(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    read_lrpreset_data(file.readAll());
}

void lightroom_importer::read_lrpreset_data(const QByteArray& data)
{
    // Lightroom writes its templates in UTF-8, and real ones carry titles in
    // Cyrillic, Vietnamese or with symbols such as U+00A9. The stream's own
    // default is the locale's codec, which turns those into junk under a C or
    // Latin-1 locale, so UTF-8 is forced. Byte-order marks are still honoured
    // (UTF-8, UTF-16 and UTF-32, as written by some Windows editors); invalid
    // UTF-8 decodes to replacement characters instead of failing. The file is
    // opened without text mode: carriage returns stay in the text, where both
    // readers treat them as white space.
    QTextStream stream(data);
    stream.setCodec("UTF-8");
    stream.setAutoDetectUnicode(true);
    const QString text = stream.readAll();

    if (text.contains(QLatin1String("s.value.settings = {}")))
        read_dot_notation_lrpreset(text);
    else
        read_regular_lrpreset(text);

    name = settings.value(QStringLiteral("title"));
}

void lightroom_importer::read_regular_lrpreset(const QString& text)
{
    lrparser parser(text);
    parser.parse(*this);
}
