// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QPushButton>
#include <QString>

namespace vel {

// A push button of the dark look whose icon lights up while the pointer is
// over it. Type "header" is the flat kind that sits on the header bar;
// any other type is the raised kind of the window body.
class dark_button : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(QString type READ type CONSTANT)

public:
    explicit dark_button(const QString& type = QString(), QWidget* parent = nullptr);

    QString type() const;

    // Loads the icon (and its @2x twin) from path and sizes it to fill the
    // button up to the given margin on each side.
    void set_icon_path(const QString& path, int margin = 3);
    bool is_highlighted() const;

protected:
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void show_icon(bool highlight);
    void fit_icon_size();

    QString button_type;
    QIcon normal_icon;
    QIcon highlighted_icon;
    int icon_margin = 3;
    bool highlight_shown = false;
};

} // namespace vel
