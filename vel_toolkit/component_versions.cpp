// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/component_versions.h"

#include <QCoreApplication>
#include <QDebug>
#include <QSysInfo>

#include <zip.h>
#include <zlib.h>

namespace vel {

QVector<component_version> component_versions()
{
    QString qt_version = QString::fromLatin1(qVersion());
    if (qt_version != QLatin1String(QT_VERSION_STR))
        qt_version += QStringLiteral(" (built with %1)").arg(QLatin1String(QT_VERSION_STR));
    return {
        {QCoreApplication::applicationName(), QCoreApplication::applicationVersion()},
        {QStringLiteral("Qt"), qt_version},
        {QStringLiteral("libzip"), QString::fromLatin1(zip_libzip_version())},
        {QStringLiteral("zlib"), QString::fromLatin1(zlibVersion())},
    };
}

QString operating_system_description()
{
    return QStringLiteral("%1 (%2 %3, %4)")
        .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
             QSysInfo::currentCpuArchitecture());
}

void log_component_versions()
{
    for (const component_version& component : component_versions())
        qDebug().noquote() << "Component" << component.name << component.version;
    qDebug().noquote() << "Operating system" << operating_system_description();
}

} // namespace vel
