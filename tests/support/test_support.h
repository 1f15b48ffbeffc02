// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

#include <ostream>

// GoogleTest prints a failed comparison's values through these: text as text.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList& list, std::ostream* out)
{
    *out << "{ ";
    for (const QString& text : list) {
        PrintTo(text, out);
        *out << ' ';
    }
    *out << '}';
}

namespace test_support {

// The folder of real presets shipped beside the project, or an empty string
// when it is absent (tests that need it skip).
inline QString corpus_dir()
{
#ifdef STYLEWRIGHT_CORPUS_DIR
    const QDir dir(QStringLiteral(STYLEWRIGHT_CORPUS_DIR));
    if (dir.exists())
        return dir.absolutePath();
#endif
    return QString();
}

} // namespace test_support
