// SPDX-License-Identifier: GPL-3.0-or-later
// Renders the program's windows to PNG files for a visual check:
//   take_screenshots <folder> <language code>
// Run it under a real X server (xvfb-run) to see the windows as the X11
// build draws them. Uses private settings; never the user's.
#include "application/application_look.h"
#include "conversion/conversion_messages.h"
#include "application/dialog_settings.h"
#include "application/main_window.h"
#include "application/settings_keys.h"
#include "application/translation_loader.h"
#include "vel_toolkit/about_dialog.h"
#include "vel_toolkit/clickable_label.h"
#include "vel_toolkit/component_versions.h"
#include "vel_toolkit/dark_button.h"
#include "vel_toolkit/information_box.h"
#include "vel_toolkit/message_box.h"
#include "vel_toolkit/processor_features.h"
#include "vel_toolkit/qt_message_handler.h"

#include "support/gui_test_main.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFile>
#include <QFileDialog>
#include <QHelpEvent>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolTip>
#include <QDebug>
#include <QPixmap>
#include <QScreen>
#include <QSettings>
#include <QTextEdit>
#include <QTest>

#include <functional>
#include <iostream>

namespace {

void save(QWidget* widget, const QString& folder, const QString& name)
{
    QTest::qWait(400);
    const QString file = folder + QLatin1Char('/') + name + QStringLiteral(".png");
    if (!widget->grab().save(file))
        std::fprintf(stderr, "could not save %s\n", qPrintable(file));
}

QWidget* top_level_titled(const QString& title)
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->windowTitle() == title)
            return widget;
    }
    return nullptr;
}

// Saves the next modal window once it shows, then lets act close it (or
// open the window after it, which is saved as next_name).
void shoot_next_modal(const QString& folder, const QString& name, const std::function<void(QWidget*)>& act)
{
    QTimer::singleShot(500, [folder, name, act] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal) {
            std::fprintf(stderr, "no window for %s\n", qPrintable(name));
            return;
        }
        save(modal, folder, name);
        act(modal);
    });
}

void close_window(QWidget* window)
{
    if (auto* dialog = qobject_cast<QDialog*>(window))
        dialog->reject();
    else
        window->close();
}

// The tool tip Qt shows for widget, as the pointer would bring it up.
void shoot_tool_tip(QWidget* widget, const QString& folder, const QString& name)
{
    QHelpEvent help(QEvent::ToolTip, widget->rect().center(), widget->mapToGlobal(widget->rect().center()));
    QApplication::sendEvent(widget, &help);
    QTest::qWait(300);
    for (QWidget* tip : QApplication::topLevelWidgets()) {
        if (tip->isVisible() && tip->inherits("QTipLabel"))
            save(tip, folder, name);
    }
    QToolTip::hideText();
}

} // namespace

// A button's context menu as the menu key opens it, alone and on the screen.
void shoot_context_menu(QWidget* button, const QString& folder, const QString& name)
{
    if (!button)
        return;
    QTimer::singleShot(400, [&folder, &name] {
        if (QWidget* menu = QApplication::activePopupWidget()) {
            save(menu, folder, name);
            if (QScreen* screen = QApplication::primaryScreen())
                screen->grabWindow(0).save(folder + QLatin1Char('/') + name + QStringLiteral("_screen.png"));
            menu->close();
        }
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5));
    QApplication::sendEvent(button, &event);
}

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: take_screenshots <folder> <language code>\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const QString language = QString::fromLocal8Bit(argv[2]);

    QTemporaryDir private_root;
    gui_test::use_private_folders(private_root.path());
    vel::install_qt_message_handler(true, false);
    gui_test::set_identity();
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, true);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, true);
    QApplication application(argc, argv);
    apply_application_look();

    QSettings().setValue(settings_keys::lang, language);
#ifdef Q_OS_WIN
    QSettings().setValue(settings_keys::output_dir.key, QStringLiteral("C:/Users/Anna/Pictures/Capture One Styles"));
#else
    QSettings().setValue(settings_keys::output_dir.key, QStringLiteral("/home/anna/Pictures/Capture One Styles"));
#endif
    const auto translators = install_translators(language);

    MainWindow window;
    vel::log_component_versions();
    vel::log_processor_features();
    qWarning() << "An example warning";
    qCritical() << "An example critical message";
    window.show();
    if (!QTest::qWaitForWindowExposed(&window))
        std::fprintf(stderr, "main window not shown\n");
    save(&window, folder, QStringLiteral("main_") + language);

    // The settings button under the pointer, to see its highlighted icon.
    const auto buttons = window.findChildren<vel::dark_button*>();
    for (vel::dark_button* button : buttons) {
        if (button->type() == QLatin1String("header")) {
            QEvent enter(QEvent::Enter);
            QApplication::sendEvent(button, &enter);
            break;
        }
    }
    save(&window, folder, QStringLiteral("main_hover_") + language);

    // The two context menus of the move from Lightroom.
    shoot_context_menu(window.findChild<QWidget*>(QStringLiteral("convert_button")), folder,
                       QStringLiteral("convert_menu_") + language);
    shoot_context_menu(window.findChild<QWidget*>(QStringLiteral("output_folder_button")), folder,
                       QStringLiteral("folder_menu_") + language);

    // Shortcuts need an active window; without a window manager nothing activates one.
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
        std::fprintf(stderr, "main window not active\n");
    QTest::keyClick(&window, Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QWidget* log = top_level_titled(QStringLiteral("Application Log"));
    if (log) {
        window.activateWindow();
        save(log, folder, QStringLiteral("log_") + language);
    }

    // Qt's own file dialogs as the window opens them: the open dialog, the
    // folder chooser, and the pack's save dialog with its question before a
    // file is replaced.
    QTemporaryDir presets;
    QFile(presets.filePath(QStringLiteral("Übergang Ölig.lrtemplate"))).open(QIODevice::WriteOnly);
    QFile(presets.filePath(QStringLiteral("Summer.costylepack"))).open(QIODevice::WriteOnly);
    QSettings().setValue(settings_keys::input_dir.key, presets.path());
    QSettings().setValue(settings_keys::output_dir.key, presets.path());
    shoot_next_modal(folder, QStringLiteral("open_dialog_") + language, close_window);
    QMetaObject::invokeMethod(&window, "on_button_convert_clicked");
    shoot_next_modal(folder, QStringLiteral("folder_dialog_") + language, close_window);
    QMetaObject::invokeMethod(&window, "on_button_output_folder_clicked");
    {
        QFileDialog save_dialog(&window, QStringLiteral("Name Capture One Stylepack"), presets.path(),
                                QStringLiteral("Capture One Stylepack(*.costylepack)"));
        save_dialog.setAcceptMode(QFileDialog::AcceptSave);
        save_dialog.selectFile(QStringLiteral("Summer.costylepack"));
        shoot_next_modal(folder, QStringLiteral("save_dialog_") + language, [&](QWidget*) {
            shoot_next_modal(folder, QStringLiteral("replace_question_") + language, [&](QWidget* question) {
                close_window(question);
                save_dialog.reject();
            });
            QMetaObject::invokeMethod(&save_dialog, "accept");
        });
        save_dialog.exec();
    }

    QSettings settings;
    dialog_settings settings_dialog(&settings, &window);
    settings_dialog.show();
    save(&settings_dialog, folder, QStringLiteral("settings_") + language);
    if (auto* list = settings_dialog.findChild<QComboBox*>()) {
        list->showPopup();
        save(list->view()->window(), folder, QStringLiteral("settings_list_") + language);
        list->hidePopup();
    }
    settings_dialog.hide();

    vel::about_dialog about(&window);
    about.show();
    save(&about, folder, QStringLiteral("about_") + language);
    about.hide();

    vel::information_box information(&window);
    information.show();
    save(&information, folder, QStringLiteral("information_") + language);
    if (auto* link = information.findChild<vel::clickable_label*>()) {
        shoot_tool_tip(link, folder, QStringLiteral("information_tip_") + language);
    }
    information.hide();

    // The boxes a run shows, with the program's own (translated) messages.
    const question_labels labels = conversion_messages::translated_labels();
    const conversion_question asked = conversion_messages::white_balance_question(
        QStringLiteral("Übergang.xmp"), QStringLiteral("Übergang Ölig ẾẶ Йё"), labels);
    vel::message_box question(QMessageBox::Question, asked.title, asked.text,
                              QMessageBox::Yes | QMessageBox::No | QMessageBox::YesToAll | QMessageBox::NoToAll,
                              &window);
    question.button(QMessageBox::Yes)->setText(labels.convert);
    question.button(QMessageBox::No)->setText(labels.skip);
    question.button(QMessageBox::YesToAll)->setText(labels.convert_all);
    question.button(QMessageBox::NoToAll)->setText(labels.skip_all);
    question.show();
    save(&question, folder, QStringLiteral("question_") + language);
    question.hide();

    const conversion_failure failed = conversion_messages::conversion_failed(QStringLiteral("Broken.xmp"));
    vel::message_box warning(QMessageBox::Warning, failed.title, failed.text, QMessageBox::Ok, &window);
    warning.show();
    save(&warning, folder, QStringLiteral("warning_") + language);
    warning.hide();

    const conversion_failure unreadable = conversion_messages::unreadable_preset(
        QStringLiteral("Odd.lrtemplate"), QStringLiteral("Unexpected token type found."));
    vel::message_box critical(QMessageBox::Critical, unreadable.title, unreadable.text, QMessageBox::Ok, &window);
    critical.show();
    save(&critical, folder, QStringLiteral("critical_") + language);
    critical.hide();

    if (QScreen* screen = QApplication::primaryScreen())
        screen->grabWindow(0).save(folder + QStringLiteral("/screen_") + language + QStringLiteral(".png"));
    return 0;
}
