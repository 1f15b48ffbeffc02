// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/proxy_style.h"

namespace vel {

proxy_style::proxy_style(QStyle* base_style)
    : QProxyStyle(base_style)
    , tool_tip_wake_up_delay(baseStyle()->styleHint(SH_ToolTip_WakeUpDelay))
    , tool_tip_fall_asleep_delay(baseStyle()->styleHint(SH_ToolTip_FallAsleepDelay))
{
}

void proxy_style::set_tool_tip_wake_up_delay(int milliseconds)
{
    tool_tip_wake_up_delay = milliseconds;
}

int proxy_style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* return_data) const
{
    switch (hint) {
    case SH_ToolTip_WakeUpDelay:
        return tool_tip_wake_up_delay;
    case SH_ToolTip_FallAsleepDelay:
        return tool_tip_fall_asleep_delay;
    default:
        return QProxyStyle::styleHint(hint, option, widget, return_data);
    }
}

} // namespace vel
