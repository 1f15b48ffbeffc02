// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

namespace vel {

// The platform style with tool-tip delays of the program's choosing. The
// platform's delays are read once on creation; the program may override the
// wake-up delay.
class proxy_style : public QProxyStyle {
    Q_OBJECT

public:
    explicit proxy_style(QStyle* base_style = nullptr);

    void set_tool_tip_wake_up_delay(int milliseconds);

    int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
                  QStyleHintReturn* return_data = nullptr) const override;

private:
    int tool_tip_wake_up_delay;
    int tool_tip_fall_asleep_delay;
};

} // namespace vel
