// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/application_icon.h"

namespace {

// Sizes the icon is rendered in at build time; the system picks the nearest.
constexpr int icon_sizes[] = {16, 24, 32, 48, 64, 128, 256};

} // namespace

QIcon application_icon()
{
    QIcon icon;
    for (const int size : icon_sizes)
        icon.addFile(QStringLiteral(":/images/stylewright_%1.png").arg(size));
    return icon;
}
