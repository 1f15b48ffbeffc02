// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/application_look.h"

#include "application/application_icon.h"
#include "vel_toolkit/dark_palette.h"
#include "vel_toolkit/proxy_style.h"

#include <QApplication>

namespace {

// Tool tips appear only after the pointer has rested this long: the window
// is small and every control has one, so quick tips would flicker constantly.
constexpr int tool_tip_wake_up_delay_ms = 2000;

} // namespace

void apply_application_look()
{
    auto* style = new vel::proxy_style();
    style->set_tool_tip_wake_up_delay(tool_tip_wake_up_delay_ms);
    QApplication::setStyle(style);
    vel::apply_dark_palette();
    QApplication::setWindowIcon(application_icon());
}
