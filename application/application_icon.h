// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

// The program's icon at every size it is rendered in, for window frames,
// task bars and the about box.
QIcon application_icon();
