// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QString>

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
