// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/private_folder.h"

#include <QDir>

namespace vel {

// On Windows and macOS the temporary folder belongs to the user alone.
QString private_folder()
{
    return QDir::tempPath();
}

} // namespace vel
