// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/message_box.h"

#include "vel_toolkit/dark_style.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>

namespace vel {
namespace {

// The box's symbol in logical pixels.
constexpr int symbol_size = 40;

// Each line of a box's text is at least this much of the font's line height.
// A rich-text label draws its first line with the font's ascent above the
// baseline and clips there, which cuts off accents stacked above capitals
// (Ü, Ế, Й); a minimum height puts the extra room above every line.
constexpr qreal line_room = 1.3;

void make_room_above_lines(QLabel* label)
{
    auto* document = label->findChild<QTextDocument*>();
    if (!document)
        return;
    // The label fills its document from the text when it first measures it;
    // a format set before that would be overwritten.
    (void)label->sizeHint();
    QTextBlockFormat format;
    format.setLineHeight(QFontMetricsF(label->font()).height() * line_room, QTextBlockFormat::MinimumHeight);
    QTextCursor cursor(document);
    cursor.select(QTextCursor::Document);
    cursor.mergeBlockFormat(format);
    // Asks the label to measure its text again.
    label->setWordWrap(label->wordWrap());
}

// The platform's message symbols are drawn for light windows and at one
// resolution; these are drawn for the dark look at the screen's resolution.
QPixmap symbol_for(QMessageBox::Icon icon)
{
    const qreal ratio = qApp->devicePixelRatio();
    QPixmap pixmap(QSize(symbol_size, symbol_size) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);

    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area(2, 2, symbol_size - 4, symbol_size - 4);
    QColor face;
    QString mark;
    switch (icon) {
    case QMessageBox::Question:
        face = QColor(74, 143, 219);
        mark = QStringLiteral("?");
        break;
    case QMessageBox::Information:
        face = QColor(74, 143, 219);
        mark = QStringLiteral("i");
        break;
    case QMessageBox::Warning:
        face = QColor(232, 164, 60);
        mark = QStringLiteral("!");
        break;
    case QMessageBox::Critical:
        face = QColor(224, 87, 79);
        mark = QStringLiteral("!");
        break;
    case QMessageBox::NoIcon:
        return QPixmap();
    }

    painter.setPen(Qt::NoPen);
    painter.setBrush(face);
    if (icon == QMessageBox::Warning) {
        QPainterPath triangle;
        triangle.moveTo(area.center().x(), area.top() + 1);
        triangle.lineTo(area.right(), area.bottom() - 2);
        triangle.lineTo(area.left(), area.bottom() - 2);
        triangle.closeSubpath();
        painter.setPen(QPen(face, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(triangle);
    } else {
        painter.drawEllipse(area);
    }

    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(icon == QMessageBox::Warning ? 22 : 25);
    painter.setFont(font);
    painter.setPen(icon == QMessageBox::Warning ? QColor(40, 40, 40) : QColor(255, 255, 255));
    const QRectF text_area = icon == QMessageBox::Warning ? area.adjusted(0, 8, 0, 0) : area;
    painter.drawText(text_area, Qt::AlignCenter, mark);
    return pixmap;
}

} // namespace

message_box::message_box(Icon icon, const QString& title, const QString& text, StandardButtons buttons,
                         QWidget* parent)
    : QMessageBox(icon, title, QString(), buttons, parent)
{
    setTextFormat(Qt::RichText);
    if (icon != NoIcon) {
        // Into the box's own symbol label, so icon() still tells the kind of
        // box (for tests, accessibility and the platform's alert sound).
        if (auto* symbol = findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label")))
            symbol->setPixmap(symbol_for(icon));
        else
            setIconPixmap(symbol_for(icon));
    }
    QString rich = text;
    setText(rich.replace(QLatin1Char('\n'), QLatin1String("<br/>")));
    if (auto* label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label")))
        make_room_above_lines(label);
    setStyleSheet(dark_style::dialog_sheet());
    translate_standard_buttons();
}

void message_box::translate_standard_buttons()
{
    // Our own wording for the standard buttons, so the boxes speak the
    // program's language even where Qt's translations are not installed.
    const QList<QPair<StandardButton, QString>> texts = {
        {Ok, tr("OK")},
        {Cancel, tr("Cancel")},
        {Yes, tr("Yes")},
        {No, tr("No")},
    };
    for (const auto& [which, label] : texts) {
        if (QAbstractButton* button_of_box = button(which))
            button_of_box->setText(label);
    }
    style_buttons();
}

void message_box::style_buttons()
{
    for (QAbstractButton* each : buttons()) {
        // On the button itself: a sheet inherited from a parent window would
        // not reach buttons whose window brings a sheet of its own.
        each->setStyleSheet(dark_style::text_button_sheet());
        // Some platform styles put small pictograms on standard buttons; on
        // the dark buttons they only clutter the labels.
        each->setIcon(QIcon());
    }
}

void message_box::showEvent(QShowEvent* event)
{
    // The box keeps within a share of the screen and squeezes its buttons to
    // do so; a label must never lose letters to that (long German answers at
    // twice the scale did). Measured here, with the labels as they are shown.
    for (QAbstractButton* each : buttons()) {
        each->ensurePolished();
        each->setMinimumWidth(each->sizeHint().width());
    }
    QMessageBox::showEvent(event);
}

void message_box::add_closing_answer()
{
    // Closing the window or pressing Escape presses the box's escape button.
    // A question has no Cancel among its answers, so an invisible one takes
    // that part and the box tells a close apart from every answer.
    addButton(Cancel)->hide();
}

QMessageBox::StandardButton message_box::ask()
{
    exec();
    QAbstractButton* clicked = clickedButton();
    if (!clicked)
        return Cancel;
    return standardButton(clicked);
}

QMessageBox::StandardButton message_box::show_box(Icon icon, QWidget* parent, const QString& title,
                                                  const QString& text, StandardButtons buttons,
                                                  StandardButton default_button)
{
    message_box box(icon, title, text, buttons, parent);
    if (default_button != NoButton)
        box.setDefaultButton(default_button);
    return box.ask();
}

QMessageBox::StandardButton message_box::ask_question(QWidget* parent, const QString& title, const QString& text,
                                                      const QList<QPair<StandardButton, QString>>& answers,
                                                      StandardButton default_button)
{
    message_box box(Question, title, text, NoButton, parent);
    for (const auto& [which, label] : answers)
        box.addButton(which)->setText(label);
    box.style_buttons();
    box.add_closing_answer();
    box.setDefaultButton(default_button);
    return box.ask();
}

QMessageBox::StandardButton message_box::information(QWidget* parent, const QString& title, const QString& text,
                                                     StandardButtons buttons, StandardButton default_button)
{
    return show_box(Information, parent, title, text, buttons, default_button);
}

QMessageBox::StandardButton message_box::warning(QWidget* parent, const QString& title, const QString& text,
                                                 StandardButtons buttons, StandardButton default_button)
{
    return show_box(Warning, parent, title, text, buttons, default_button);
}

QMessageBox::StandardButton message_box::critical(QWidget* parent, const QString& title, const QString& text,
                                                  StandardButtons buttons, StandardButton default_button)
{
    return show_box(Critical, parent, title, text, buttons, default_button);
}

QMessageBox::StandardButton message_box::question(QWidget* parent, const QString& title, const QString& text,
                                                  const QString& yes_text, const QString& no_text,
                                                  StandardButton default_button)
{
    return ask_question(parent, title, text, {{Yes, yes_text}, {No, no_text}}, default_button);
}

QMessageBox::StandardButton message_box::question(QWidget* parent, const QString& title, const QString& text,
                                                  const QString& yes_text, const QString& no_text,
                                                  const QString& yes_to_all_text, const QString& no_to_all_text,
                                                  StandardButton default_button)
{
    return ask_question(parent, title, text,
                        {{Yes, yes_text}, {No, no_text}, {YesToAll, yes_to_all_text}, {NoToAll, no_to_all_text}},
                        default_button);
}

} // namespace vel
