// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/clickable_label.h"

#include <QMouseEvent>

namespace vel {

clickable_label::clickable_label(const QString& text, QWidget* parent)
    : QLabel(text, parent)
{
    setCursor(Qt::PointingHandCursor);
}

void clickable_label::mousePressEvent(QMouseEvent* event)
{
    pressed_inside = event->button() == Qt::LeftButton;
    QLabel::mousePressEvent(event);
}

void clickable_label::mouseReleaseEvent(QMouseEvent* event)
{
    // A click is press and release on the label, as with a button: dragging
    // off the label before releasing cancels it.
    const bool click = pressed_inside && event->button() == Qt::LeftButton && rect().contains(event->pos());
    pressed_inside = false;
    QLabel::mouseReleaseEvent(event);
    if (click)
        emit clicked();
}

} // namespace vel
