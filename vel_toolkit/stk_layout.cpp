// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/stk_layout.h"

namespace stk::qt {

layout::layout(QWidget* parent, margins outer, spacings between)
    : QGridLayout(parent)
{
    setContentsMargins(outer.left, outer.top, outer.right, outer.bottom);
    setHorizontalSpacing(between.horizontal);
    setVerticalSpacing(between.vertical);
}

} // namespace stk::qt
