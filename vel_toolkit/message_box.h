// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMessageBox>

namespace vel {

// Message boxes in the dark look. Texts are rich text; a plain line break
// ("\n") in a text is kept as a line break.
class message_box : public QMessageBox {
    Q_OBJECT

public:
    message_box(Icon icon, const QString& title, const QString& text, StandardButtons buttons,
                QWidget* parent = nullptr);

    // Runs the box modally and returns the button it was left with; Cancel
    // when it was closed without one (a question box offers no Cancel of its own).
    StandardButton ask();

    static StandardButton information(QWidget* parent, const QString& title, const QString& text,
                                      StandardButtons buttons = Ok, StandardButton default_button = NoButton);
    static StandardButton warning(QWidget* parent, const QString& title, const QString& text,
                                  StandardButtons buttons = Ok, StandardButton default_button = NoButton);
    static StandardButton critical(QWidget* parent, const QString& title, const QString& text,
                                   StandardButtons buttons = Ok, StandardButton default_button = NoButton);

    // Two answers: Yes and No, labelled with the texts given.
    static StandardButton question(QWidget* parent, const QString& title, const QString& text,
                                   const QString& yes_text, const QString& no_text,
                                   StandardButton default_button = Yes);

    // Four answers: Yes, No, YesToAll and NoToAll, labelled in that order
    // with the texts given.
    static StandardButton question(QWidget* parent, const QString& title, const QString& text,
                                   const QString& yes_text, const QString& no_text,
                                   const QString& yes_to_all_text, const QString& no_to_all_text,
                                   StandardButton default_button = Yes);

protected:
    void showEvent(QShowEvent* event) override;

private:
    static StandardButton show_box(Icon icon, QWidget* parent, const QString& title, const QString& text,
                                   StandardButtons buttons, StandardButton default_button);
    static StandardButton ask_question(QWidget* parent, const QString& title, const QString& text,
                                       const QList<QPair<StandardButton, QString>>& answers,
                                       StandardButton default_button);

    void translate_standard_buttons();
    void style_buttons();
    void add_closing_answer();
};

} // namespace vel
