// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/dark_button.h"

#include "vel_toolkit/dark_style.h"
#include "vel_toolkit/icon_loader.h"

namespace vel {

namespace {
const QString header_type = QStringLiteral("header");
}

dark_button::dark_button(const QString& type, QWidget* parent)
    : QPushButton(parent)
    , button_type(type)
{
    setStyleSheet(type == header_type ? dark_style::header_button_sheet() : dark_style::button_sheet());
    setCursor(Qt::PointingHandCursor);
    // A click keeps the focus where it was; the keyboard can still reach the button.
    setFocusPolicy(Qt::TabFocus);
}

QString dark_button::type() const
{
    return button_type;
}

void dark_button::set_icon_path(const QString& path, int margin)
{
    normal_icon = load_icon(path);
    highlighted_icon = load_icon(path, icon_state::highlighted);
    icon_margin = margin;
    show_icon(underMouse());
    fit_icon_size();
}

bool dark_button::is_highlighted() const
{
    return highlight_shown;
}

void dark_button::enterEvent(QEvent* event)
{
    show_icon(isEnabled());
    QPushButton::enterEvent(event);
}

void dark_button::leaveEvent(QEvent* event)
{
    show_icon(false);
    QPushButton::leaveEvent(event);
}

void dark_button::resizeEvent(QResizeEvent* event)
{
    QPushButton::resizeEvent(event);
    fit_icon_size();
}

void dark_button::show_icon(bool highlight)
{
    highlight_shown = highlight;
    setIcon(highlight ? highlighted_icon : normal_icon);
}

void dark_button::fit_icon_size()
{
    if (normal_icon.isNull())
        return;
    // The icon's own proportions, as large as the button allows.
    const QSize available = size() - QSize(2 * icon_margin, 2 * icon_margin);
    const QList<QSize> sizes = normal_icon.availableSizes();
    const QSize natural = sizes.isEmpty() ? available : sizes.first();
    setIconSize(natural.scaled(available, Qt::KeepAspectRatio).boundedTo(natural));
}

} // namespace vel
