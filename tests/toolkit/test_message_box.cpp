#include "gui_test_main.h"
#include "modal_answer.h"

#include "vel_toolkit/message_box.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

using vel::message_box;

class test_message_box : public QObject {
    Q_OBJECT

private slots:
    void four_answer_question_returns_the_pressed_button_data();
    void four_answer_question_returns_the_pressed_button();
    void four_answer_question_labels_its_buttons_in_order();
    void question_returns_cancel_when_closed_without_a_button_data();
    void question_returns_cancel_when_closed_without_a_button();
    void two_answer_question_offers_yes_and_no();
    void boxes_show_rich_text_with_line_breaks();
    void single_button_boxes_return_ok();
};

namespace {

QMessageBox::StandardButton ask_four(QMessageBox::StandardButton default_button = QMessageBox::Yes)
{
    return message_box::question(nullptr, QStringLiteral("White balance"), QStringLiteral("Convert <b>it</b>?"),
                                 QStringLiteral("Convert"), QStringLiteral("Skip"), QStringLiteral("Convert All"),
                                 QStringLiteral("Skip All"), default_button);
}

} // namespace

void test_message_box::four_answer_question_returns_the_pressed_button_data()
{
    QTest::addColumn<int>("pressed");
    QTest::newRow("Convert") << int(QMessageBox::Yes);
    QTest::newRow("Skip") << int(QMessageBox::No);
    QTest::newRow("Convert All") << int(QMessageBox::YesToAll);
    QTest::newRow("Skip All") << int(QMessageBox::NoToAll);
}

void test_message_box::four_answer_question_returns_the_pressed_button()
{
    QFETCH(int, pressed);
    gui_test::modal_answer answer([pressed](QWidget* box) {
        static_cast<QMessageBox*>(box)->button(QMessageBox::StandardButton(pressed))->click();
    });
    QCOMPARE(int(ask_four()), pressed);
    QVERIFY(answer.answered());
}

void test_message_box::four_answer_question_labels_its_buttons_in_order()
{
    QStringList labels;
    QString default_label;
    QString text;
    bool cancel_visible = true;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    gui_test::modal_answer answer([&](QWidget* widget) {
        auto* box = static_cast<QMessageBox*>(widget);
        for (auto which : {QMessageBox::Yes, QMessageBox::No, QMessageBox::YesToAll, QMessageBox::NoToAll})
            labels << box->button(which)->text();
        default_label = box->defaultButton()->text();
        cancel_visible = box->button(QMessageBox::Cancel)->isVisible();
        text = box->text();
        icon = box->icon();
        box->defaultButton()->click();
    });
    QCOMPARE(ask_four(), QMessageBox::Yes);
    QCOMPARE(labels, QStringList({"Convert", "Skip", "Convert All", "Skip All"}));
    QCOMPARE(default_label, QStringLiteral("Convert"));
    QVERIFY(!cancel_visible);
    QCOMPARE(text, QStringLiteral("Convert <b>it</b>?"));
    QCOMPARE(icon, QMessageBox::Question);
}

void test_message_box::question_returns_cancel_when_closed_without_a_button_data()
{
    QTest::addColumn<bool>("by_escape");
    QTest::newRow("window closed") << false;
    QTest::newRow("Escape pressed") << true;
}

void test_message_box::question_returns_cancel_when_closed_without_a_button()
{
    QFETCH(bool, by_escape);
    gui_test::modal_answer answer([by_escape](QWidget* box) {
        if (by_escape)
            QTest::keyClick(box, Qt::Key_Escape);
        else
            box->close();
    });
    QCOMPARE(ask_four(), QMessageBox::Cancel);
    QVERIFY(answer.answered());
}

void test_message_box::two_answer_question_offers_yes_and_no()
{
    QStringList labels;
    int buttons = 0;
    gui_test::modal_answer answer([&](QWidget* widget) {
        auto* box = static_cast<QMessageBox*>(widget);
        for (QAbstractButton* button : box->buttons()) {
            if (button->isVisible()) {
                ++buttons;
                labels << button->text();
            }
        }
        box->button(QMessageBox::No)->click();
    });
    const auto result = message_box::question(nullptr, QStringLiteral("Language"), QStringLiteral("Restart?"),
                                              QStringLiteral("Continue working"), QStringLiteral("Quit now"));
    QCOMPARE(result, QMessageBox::No);
    QCOMPARE(buttons, 2);
    QVERIFY(labels.contains(QStringLiteral("Continue working")));
    QVERIFY(labels.contains(QStringLiteral("Quit now")));
}

void test_message_box::boxes_show_rich_text_with_line_breaks()
{
    message_box box(QMessageBox::Warning, QStringLiteral("Title"), QStringLiteral("first\nsecond <b>bold</b>"),
                    QMessageBox::Ok);
    QCOMPARE(box.textFormat(), Qt::RichText);
    QCOMPARE(box.text(), QStringLiteral("first<br/>second <b>bold</b>"));
    QCOMPARE(box.windowTitle(), QStringLiteral("Title"));
}

void test_message_box::single_button_boxes_return_ok()
{
    using box_function = QMessageBox::StandardButton (*)(QWidget*, const QString&, const QString&,
                                                         QMessageBox::StandardButtons, QMessageBox::StandardButton);
    const QList<QPair<box_function, QMessageBox::Icon>> boxes = {
        {&message_box::information, QMessageBox::Information},
        {&message_box::warning, QMessageBox::Warning},
        {&message_box::critical, QMessageBox::Critical},
    };
    for (const auto& [show, expected_icon] : boxes) {
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        QString ok_text;
        gui_test::modal_answer answer([&](QWidget* widget) {
            auto* box = static_cast<QMessageBox*>(widget);
            icon = box->icon();
            ok_text = box->button(QMessageBox::Ok)->text();
            box->close();
        });
        QCOMPARE(show(nullptr, QStringLiteral("T"), QStringLiteral("x"), QMessageBox::Ok, QMessageBox::Ok),
                 QMessageBox::Ok);
        QCOMPARE(icon, expected_icon);
        QCOMPARE(ok_text, QStringLiteral("OK"));
    }
}

STYLEWRIGHT_GUI_TEST_MAIN(test_message_box)
#include "test_message_box.moc"
