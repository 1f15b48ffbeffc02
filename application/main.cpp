// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/application_identity.h"
#include "application/application_look.h"
#include "application/main_window.h"
#include "application/settings_keys.h"
#include "application/translation_loader.h"
#include "vel_toolkit/component_versions.h"
#include "vel_toolkit/crash_handler.h"
#include "vel_toolkit/language.h"
#include "vel_toolkit/processor_features.h"
#include "vel_toolkit/qt_message_handler.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    vel::install_crash_handler();
    vel::install_qt_message_handler(true, false);

    // Before anything reads the stored settings: they are found by these names.
    set_application_identity();

    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, true);
    // Icons and pictures come with @2x twins; let Qt use them on such screens.
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, true);

    QApplication application(argc, argv);

    apply_application_look();

    const auto translators = install_translators(vel::get_language_suffix(settings_keys::lang));

    int result = 0;
    {
        MainWindow window(nullptr);
        // Logged once the window collects the log, so the report is in it.
        vel::log_component_versions();
        vel::log_processor_features();
        window.show();
        result = QApplication::exec();
    }
    return result;
}
