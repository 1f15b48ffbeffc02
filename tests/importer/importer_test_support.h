// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Helpers of the preset readers' tests: a record written out as one line of
// text, so that a whole expected record fits in a table row.

#include "support/log_capture.h"
#include "importer/lightroom_importer.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <stdexcept>

using test_support::log_capture;

// "0,0 255,255"
inline QString points_text(const QVector<QPoint>& points)
{
    QStringList xy;
    for (const QPoint& p : points)
        xy << QStringLiteral("%1,%2").arg(p.x()).arg(p.y());
    return xy.join(' ');
}

// "Exposure2012=0.35; title=Warm; master: 0,0 255,255; name: Warm", leaving out what is empty.
inline QString describe(const lightroom_importer& record)
{
    QStringList parts;
    for (auto it = record.settings.cbegin(); it != record.settings.cend(); ++it)
        parts << it.key() + '=' + it.value();
    const std::pair<const char*, QString> fields[] = {
        {"master", points_text(record.tone_curve)},      {"red", points_text(record.tone_curve_red)},
        {"green", points_text(record.tone_curve_green)}, {"blue", points_text(record.tone_curve_blue)},
        {"name", record.name},                            {"description", record.description}};
    for (const auto& [label, text] : fields)
        if (!text.isEmpty())
            parts << label + (": " + text);
    return parts.join("; ");
}

// Writes the bytes into a file of the folder and gives its path.
inline QString write_file(const QTemporaryDir& dir, const QByteArray& bytes, const QString& name = "preset")
{
    QFile file(dir.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? file.fileName() : QString();
}

// Bytes of a fixed pseudo-random sequence.
inline QByteArray random_bytes(int size, quint32 state)
{
    QByteArray bytes(size, '\0');
    for (char& b : bytes)
        b = char((state = state * 1103515245u + 12345u) >> 24);
    return bytes;
}
