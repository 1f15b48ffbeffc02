// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/gui_test_main.h"
#include "support/modal_answer.h"

#include "vel_toolkit/message_box.h"

#include <QPushButton>

using vel::message_box;

class test_message_box : public QObject {
    Q_OBJECT

private slots:
    void question_returns_the_button_pressed_or_cancel_data()
    {
        QTest::addColumn<int>("action"); // a button to press; 0 closes the window, -1 presses Escape
        QTest::addColumn<int>("result");
        QTest::newRow("Convert") << int(QMessageBox::Yes) << int(QMessageBox::Yes);
        QTest::newRow("Skip") << int(QMessageBox::No) << int(QMessageBox::No);
        QTest::newRow("Convert All") << int(QMessageBox::YesToAll) << int(QMessageBox::YesToAll);
        QTest::newRow("Skip All") << int(QMessageBox::NoToAll) << int(QMessageBox::NoToAll);
        QTest::newRow("window closed") << 0 << int(QMessageBox::Cancel);
        QTest::newRow("Escape pressed") << -1 << int(QMessageBox::Cancel);
    }
    void question_returns_the_button_pressed_or_cancel()
    {
        QFETCH(int, action);
        QFETCH(int, result);
        QStringList shown;
        gui_test::modal_answer answer([&](QWidget* widget) {
            auto* box = static_cast<QMessageBox*>(widget);
            for (auto which : {QMessageBox::Yes, QMessageBox::No, QMessageBox::YesToAll, QMessageBox::NoToAll})
                shown << box->button(which)->text();
            int visible = 0;
            for (const QAbstractButton* button : box->buttons())
                visible += button->isVisible();
            shown << box->defaultButton()->text() << box->text() << QString::number(box->icon())
                  << QString::number(visible);
            if (action == 0)
                box->close();
            else if (action < 0)
                QTest::keyClick(box, Qt::Key_Escape);
            else
                box->button(QMessageBox::StandardButton(action))->click();
        });
        QCOMPARE(int(message_box::question(nullptr, "White balance", "Convert <b>it</b>?", "Convert", "Skip",
                                           "Convert All", "Skip All", QMessageBox::Yes)),
                 result);
        QCOMPARE(shown, QStringList({"Convert", "Skip", "Convert All", "Skip All", "Convert", "Convert <b>it</b>?",
                                     QString::number(QMessageBox::Question), "4"}));
    }

    void single_button_boxes_return_ok()
    {
        using box_function = QMessageBox::StandardButton (*)(QWidget*, const QString&, const QString&,
                                                             QMessageBox::StandardButtons, QMessageBox::StandardButton);
        const QList<QPair<box_function, QMessageBox::Icon>> boxes = {
            {&message_box::information, QMessageBox::Information},
            {&message_box::warning, QMessageBox::Warning},
            {&message_box::critical, QMessageBox::Critical}};
        for (const auto& [show, icon] : boxes) {
            QStringList shown;
            gui_test::modal_answer answer([&](QWidget* widget) {
                auto* box = static_cast<QMessageBox*>(widget);
                shown << QString::number(box->icon()) << box->button(QMessageBox::Ok)->text();
                box->close();
            });
            QCOMPARE(show(nullptr, "T", "x", QMessageBox::Ok, QMessageBox::Ok), QMessageBox::Ok);
            QCOMPARE(shown, QStringList({QString::number(icon), "OK"}));
        }
    }

    void boxes_show_rich_text_with_line_breaks()
    {
        message_box box(QMessageBox::Warning, "Title", "first\nsecond <b>bold</b>", QMessageBox::Ok);
        QCOMPARE(box.textFormat(), Qt::RichText);
        QCOMPARE(box.text(), QString("first<br/>second <b>bold</b>"));
        QCOMPARE(box.windowTitle(), QString("Title"));
    }
};

STYLEWRIGHT_GUI_TEST_SUITE(test_message_box)
#include "test_message_box.moc"
