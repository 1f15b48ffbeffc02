// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/private_folder.h"

#include <QStandardPaths>

namespace vel {

// The shared temporary folder is everyone's here; the runtime folder
// ($XDG_RUNTIME_DIR, or one Qt makes with the owner's rights only) is not.
QString private_folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

} // namespace vel
