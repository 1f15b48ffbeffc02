// SPDX-License-Identifier: GPL-3.0-or-later
// Renders the program's windows to PNG files for a visual check:
//   take_screenshots <folder> <language code>
// Run it under a real X server (xvfb-run) to see the windows as the X11
// build draws them. Uses private settings; never the user's.
#include "application/application_icon.h"
#include "application/dialog_settings.h"
#include "application/main_window.h"
#include "application/translation_loader.h"
#include "vel_toolkit/about_dialog.h"
#include "vel_toolkit/component_versions.h"
#include "vel_toolkit/dark_button.h"
#include "vel_toolkit/information_box.h"
#include "vel_toolkit/message_box.h"
#include "vel_toolkit/processor_features.h"
#include "vel_toolkit/proxy_style.h"
#include "vel_toolkit/qt_message_handler.h"

#include "support/gui_test_main.h"

#include <QApplication>
#include <QDebug>
#include <QPixmap>
#include <QScreen>
#include <QSettings>
#include <QTextEdit>
#include <QTest>

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

} // namespace

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
    auto* style = new vel::proxy_style();
    style->set_tool_tip_wake_up_delay(2000);
    QApplication::setStyle(style);
    QApplication::setWindowIcon(application_icon());

    QSettings().setValue(QStringLiteral("lang"), language);
    QSettings().setValue(QStringLiteral("output_dir"), QStringLiteral("/home/anna/Pictures/Capture One Styles"));
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

    QSettings settings;
    dialog_settings settings_dialog(&settings, &window);
    settings_dialog.show();
    save(&settings_dialog, folder, QStringLiteral("settings_") + language);
    settings_dialog.hide();

    vel::about_dialog about(&window);
    about.show();
    save(&about, folder, QStringLiteral("about_") + language);
    about.hide();

    vel::information_box information(&window);
    information.show();
    save(&information, folder, QStringLiteral("information_") + language);
    information.hide();

    vel::message_box question(QMessageBox::Question, QStringLiteral("White balance modified by preset"),
                              QStringLiteral("Your preset <font color=\"white\"><b>Übergang Ölig ẾẶ Йё</b></font> contains "
                                             "values for the white balance."),
                              QMessageBox::Yes | QMessageBox::No | QMessageBox::YesToAll | QMessageBox::NoToAll,
                              &window);
    question.button(QMessageBox::Yes)->setText(QStringLiteral("Convert"));
    question.button(QMessageBox::No)->setText(QStringLiteral("Skip"));
    question.button(QMessageBox::YesToAll)->setText(QStringLiteral("Convert All"));
    question.button(QMessageBox::NoToAll)->setText(QStringLiteral("Skip All"));
    question.show();
    save(&question, folder, QStringLiteral("question_") + language);
    question.hide();

    vel::message_box warning(QMessageBox::Warning, QStringLiteral("Preset conversion failed"),
                             QStringLiteral("The preset <font color=\"white\"><b>Broken.xmp</b></font> could not be "
                                            "converted to Capture One format."),
                             QMessageBox::Ok, &window);
    warning.show();
    save(&warning, folder, QStringLiteral("warning_") + language);
    warning.hide();

    vel::message_box critical(QMessageBox::Critical, QStringLiteral("Can't read preset"),
                              QStringLiteral("Your preset <font color=\"white\"><b>Odd.lrtemplate</b></font> can't "
                                             "be processed by Stylewright."),
                              QMessageBox::Ok, &window);
    critical.show();
    save(&critical, folder, QStringLiteral("critical_") + language);
    critical.hide();

    if (QScreen* screen = QApplication::primaryScreen())
        screen->grabWindow(0).save(folder + QStringLiteral("/screen_") + language + QStringLiteral(".png"));
    return 0;
}
