// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/other_files.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>

#include <array>

namespace {

struct other_kind {
    const char* suffix;
    const char* one;  // translated in the main window's context
    const char* many;
};

// In the order a message names them.
const std::array<other_kind, 8> kinds = {{
    {"dcp", QT_TRANSLATE_NOOP("MainWindow", "%1 camera profile (.dcp)"),
     QT_TRANSLATE_NOOP("MainWindow", "%1 camera profiles (.dcp)")},
    {"lcp", QT_TRANSLATE_NOOP("MainWindow", "%1 lens profile (.lcp)"),
     QT_TRANSLATE_NOOP("MainWindow", "%1 lens profiles (.lcp)")},
    {"cube", QT_TRANSLATE_NOOP("MainWindow", "%1 LUT (.cube)"), QT_TRANSLATE_NOOP("MainWindow", "%1 LUTs (.cube)")},
    {"3dl", QT_TRANSLATE_NOOP("MainWindow", "%1 LUT (.3dl)"), QT_TRANSLATE_NOOP("MainWindow", "%1 LUTs (.3dl)")},
    {"costyle", QT_TRANSLATE_NOOP("MainWindow", "%1 Capture One style (.costyle)"),
     QT_TRANSLATE_NOOP("MainWindow", "%1 Capture One styles (.costyle)")},
    {"costylepack", QT_TRANSLATE_NOOP("MainWindow", "%1 Capture One style pack (.costylepack)"),
     QT_TRANSLATE_NOOP("MainWindow", "%1 Capture One style packs (.costylepack)")},
    {"lrsmcol", QT_TRANSLATE_NOOP("MainWindow", "%1 Lightroom smart collection (.lrsmcol)"),
     QT_TRANSLATE_NOOP("MainWindow", "%1 Lightroom smart collections (.lrsmcol)")},
    {"lrcat", QT_TRANSLATE_NOOP("MainWindow", "%1 Lightroom catalogue (.lrcat)"),
     QT_TRANSLATE_NOOP("MainWindow", "%1 Lightroom catalogues (.lrcat)")},
}};

} // namespace

QString other_kind_of(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    for (const other_kind& kind : kinds) {
        if (suffix == QLatin1String(kind.suffix))
            return suffix;
    }
    return QString();
}

namespace conversion_messages {

QString nothing_found(const other_files& others)
{
    QStringList counted;
    for (const other_kind& kind : kinds) {
        const int count = others.value(QLatin1String(kind.suffix));
        if (count > 0)
            counted << QCoreApplication::translate("MainWindow", count == 1 ? kind.one : kind.many).arg(count);
    }
    if (counted.isEmpty())
        return QCoreApplication::translate("MainWindow", "No preset found in this folder.");
    return QCoreApplication::translate("MainWindow", "No preset found in this folder, only files Stylewright does "
                                                     "not convert: %1.")
        .arg(counted.join(QStringLiteral(", ")));
}

} // namespace conversion_messages
