// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/gui_test_main.h"
#include "support/url_catcher.h"
#include "support/modal_answer.h"

#include "application/dialog_settings.h"
#include "application/main_window.h"
#include "application/settings_keys.h"
#include "application/translation_loader.h"
#include "vel_toolkit/about_dialog.h"
#include "vel_toolkit/combo_box.h"
#include "vel_toolkit/dark_button.h"
#include "vel_toolkit/information_box.h"
#include "vel_toolkit/line_edit.h"
#include "vel_toolkit/qt_message_handler.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QUrl>
#include <QtTest>

#include <iostream>
#include <memory>

class test_main_window : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void log_shows_lines_written_before_it_was_first_opened();
    void standard_streams_are_restored_on_destruction();
    void chosen_output_folder_is_stored_and_shown();
    void texts_are_german_with_german_translations();
    void help_button_opens_the_help_page_of_the_language();
    void language_change_in_settings_asks_for_a_restart();
    void cancelled_preset_dialog_changes_nothing();

private:
    void make_window();
    void open_window();
    void press_shortcut(Qt::Key key);
    QTextEdit* log_window() const;
    vel::dark_button* button_with_tip(const QString& tip) const;

    std::unique_ptr<MainWindow> window;
    QtMessageHandler test_framework_handler = nullptr;
    gui_test::url_catcher browser;
};

void test_main_window::initTestCase()
{
    test_framework_handler = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(test_framework_handler);
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &browser, "open");
}

void test_main_window::init()
{
    QSettings().clear();
    browser.opened.clear();
}

void test_main_window::cleanup()
{
    window.reset();
    qInstallMessageHandler(test_framework_handler);
}

void test_main_window::make_window()
{
    // Each window hands the standard streams back to the one before it, so
    // the old window goes before the new one comes.
    window.reset();
    window = std::make_unique<MainWindow>();
}

void test_main_window::open_window()
{
    make_window();
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

void test_main_window::press_shortcut(Qt::Key key)
{
    QWidget* target = QApplication::activeWindow() ? QApplication::activeWindow() : window.get();
    QTest::keyClick(target, key, Qt::ControlModifier | Qt::ShiftModifier);
}

QTextEdit* test_main_window::log_window() const
{
    QTextEdit* found = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->windowTitle() == QLatin1String("Application Log")) {
            if (found)
                return nullptr; // more than one: wrong
            found = qobject_cast<QTextEdit*>(widget);
        }
    }
    return found;
}

vel::dark_button* test_main_window::button_with_tip(const QString& tip) const
{
    for (vel::dark_button* button : window->findChildren<vel::dark_button*>()) {
        if (button->toolTip() == tip)
            return button;
    }
    return nullptr;
}

void test_main_window::log_shows_lines_written_before_it_was_first_opened()
{
    vel::install_qt_message_handler(true, false);
    open_window();
    qDebug() << "logged before opening";
    std::cerr << "written to standard error" << std::endl;
    QTest::qWait(250);
    QTextEdit* log = log_window();
    QVERIFY(log);
    QVERIFY(!log->isVisible());
    QVERIFY(log->toPlainText().isEmpty());

    press_shortcut(Qt::Key_L);
    QVERIFY(log->isVisible());
    QVERIFY(log->toPlainText().contains(QStringLiteral("Debug: logged before opening\n")));
    QVERIFY(log->toPlainText().contains(QStringLiteral("written to standard error\n")));
}




void test_main_window::standard_streams_are_restored_on_destruction()
{
    std::streambuf* const output = std::cout.rdbuf();
    std::streambuf* const error = std::cerr.rdbuf();
    make_window();
    QVERIFY(std::cout.rdbuf() != output);
    QVERIFY(std::cerr.rdbuf() != error);
    QCOMPARE(std::cout.rdbuf(), std::cerr.rdbuf());
    window.reset();
    QCOMPARE(std::cout.rdbuf(), output);
    QCOMPARE(std::cerr.rdbuf(), error);
    QVERIFY(!log_window());
}



void test_main_window::chosen_output_folder_is_stored_and_shown()
{
    QTemporaryDir start;
    QTemporaryDir chosen;
    QSettings().setValue(settings_keys::output_dir.key, start.path());
    open_window();
    QString start_folder;
    QString caption;
    gui_test::modal_answer answer([&](QWidget* widget) {
        auto* dialog = qobject_cast<QFileDialog*>(widget);
        QVERIFY(dialog);
        start_folder = dialog->directory().absolutePath();
        caption = dialog->windowTitle();
        // Entering the folder with nothing selected in it chooses the folder itself.
        dialog->setDirectory(chosen.path());
        QMetaObject::invokeMethod(dialog, "accept");
    });
    button_with_tip(QStringLiteral("Select the folder where the converted Lightroom presets will be saved."))->click();
    QVERIFY(answer.answered());
    QCOMPARE(start_folder, start.path());
    QCOMPARE(caption, QStringLiteral("Select output folder"));
    QCOMPARE(QSettings().value(settings_keys::output_dir.key).toString(), chosen.path());
    QCOMPARE(window->findChild<vel::line_edit*>()->text(), chosen.path());
}



void test_main_window::texts_are_german_with_german_translations()
{
    {
        const auto translators = install_translators(QStringLiteral("de"));
        make_window();
        QStringList labels;
        for (const QLabel* label : window->findChildren<QLabel*>())
            labels << label->text();
        QVERIFY2(labels.contains(QStringLiteral("Ausgabeordner")), qPrintable(labels.join(QLatin1Char('|'))));
        QVERIFY(button_with_tip(QStringLiteral("Einstellungen anzeigen")));
        // The toolkit's texts come from its own translation.
        QCOMPARE(vel::about_dialog(window.get()).windowTitle(), QStringLiteral("Über Stylewright"));
        window.reset();
    }
    // The translators are gone with their owner: English again.
    make_window();
    QVERIFY(button_with_tip(QStringLiteral("Show settings dialog")));
}



void test_main_window::help_button_opens_the_help_page_of_the_language()
{
    QSettings().setValue(QStringLiteral("lang"), QStringLiteral("de"));
    make_window();
    button_with_tip(QStringLiteral("Display the help page for this program"))->click();
    QCOMPARE(browser.opened.size(), 1);
    QVERIFY(browser.opened.first().toLocalFile().endsWith(QStringLiteral("/stylewright_help_de.html")));
    QFile page(browser.opened.first().toLocalFile());
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    QVERIFY(text.contains(QStringLiteral("Einstellungen")));
    QVERIFY(!text.contains(QStringLiteral("CtXrl")));
    QVERIFY(!text.contains(QStringLiteral("StXrg")));
}

void test_main_window::language_change_in_settings_asks_for_a_restart()
{
    QSettings().setValue(QStringLiteral("lang"), QStringLiteral("en"));
    open_window();
    QString question;
    gui_test::modal_answer answers(
        [&](QWidget* modal) {
            if (auto* settings = qobject_cast<dialog_settings*>(modal)) {
                const auto boxes = settings->findChildren<vel::combo_box*>();
                boxes.last()->setCurrentIndex(boxes.last()->findData(QStringLiteral("de")));
                settings->close();
            } else if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                question = box->windowTitle();
                box->button(QMessageBox::Yes)->click();
            }
        },
        2);
    button_with_tip(QStringLiteral("Show settings dialog"))->click();
    QVERIFY(answers.answered());
    QCOMPARE(question, QStringLiteral("Application language changed"));
    QCOMPARE(QSettings().value(QStringLiteral("lang")).toString(), QStringLiteral("de"));
    QVERIFY(window->isVisible());
}

void test_main_window::cancelled_preset_dialog_changes_nothing()
{
    open_window();
    QString caption;
    gui_test::modal_answer answer([&](QWidget* dialog) {
        caption = dialog->windowTitle();
        static_cast<QDialog*>(dialog)->reject();
    });
    button_with_tip(QStringLiteral("Load Lightroom preset(s) and convert to Capture One."))->click();
    QVERIFY(answer.answered());
    QCOMPARE(caption, QStringLiteral("Load Lightroom Template"));
    QVERIFY(!QSettings().contains(settings_keys::input_dir.key));
}

STYLEWRIGHT_GUI_TEST_MAIN(test_main_window)
#include "test_main_window.moc"
