// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/clickable_label.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>

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

bool clickable_label::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || toolTip().isEmpty())
        return QLabel::event(event);
    // Qt puts a tip below the pointer, where it would cover what follows the
    // label (in the information box, its buttons); this one goes above.
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), toolTip(), this, rect());
    for (QWidget* tip : QApplication::topLevelWidgets()) {
        if (tip->isVisible() && tip->inherits("QTipLabel")) {
            constexpr int gap = 4;
            const QPoint top = mapToGlobal(QPoint(0, 0));
            tip->move(tip->x(), top.y() - tip->height() - gap);
        }
    }
    return true;
}

} // namespace vel
