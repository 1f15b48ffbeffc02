// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/application_identity.h"

#include "stylewright_version.h"

#include <QCoreApplication>

void set_application_identity()
{
    QCoreApplication::setOrganizationName(QStringLiteral("Quillmark"));
    // A reserved domain: nothing of the program may reach a real party.
    QCoreApplication::setOrganizationDomain(QStringLiteral("quillmark.example"));
    QCoreApplication::setApplicationName(QStringLiteral("Stylewright"));
    QCoreApplication::setApplicationVersion(QString::fromLatin1(stylewright_version));
}
