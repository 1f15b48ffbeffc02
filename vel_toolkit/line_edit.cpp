// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/line_edit.h"

#include "vel_toolkit/dark_style.h"

namespace vel {

line_edit::line_edit(QWidget* parent)
    : QLineEdit(parent)
{
    setStyleSheet(dark_style::line_edit_sheet());
}

} // namespace vel
