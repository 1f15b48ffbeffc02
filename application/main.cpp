// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/application_icon.h"
#include "application/application_identity.h"
#include "application/main_window.h"
#include "application/settings_keys.h"
#include "application/translation_loader.h"
#include "vel_toolkit/component_versions.h"
#include "vel_toolkit/crash_handler.h"
#include "vel_toolkit/dark_palette.h"
#include "vel_toolkit/language.h"
#include "vel_toolkit/processor_features.h"
#include "vel_toolkit/proxy_style.h"
#include "vel_toolkit/qt_message_handler.h"

#include <QApplication>

namespace {

// Tool tips appear only after the pointer has rested this long: the window
// is small and every control has one, so quick tips would flicker constantly.
constexpr int tool_tip_wake_up_delay_ms = 2000;

} // namespace

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

    auto* style = new vel::proxy_style();
    style->set_tool_tip_wake_up_delay(tool_tip_wake_up_delay_ms);
    QApplication::setStyle(style);
    vel::apply_dark_palette();
    QApplication::setWindowIcon(application_icon());

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
