// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

namespace vel {

// A label that reports a click of the left mouse button, for texts that
// lead somewhere (a folder, a page) without looking like a button.
class clickable_label : public QLabel {
    Q_OBJECT

public:
    explicit clickable_label(const QString& text = QString(), QWidget* parent = nullptr);

signals:
    void clicked();

protected:
    // Its tool tip shows above the label.
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool pressed_inside = false;
};

} // namespace vel
