// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of a conversion run for a visual check:
//   take_run_screenshots <folder> <preset folder> <language code> [count]
// Drops <count> presets (default 200, the presets of <preset folder> repeated
// under numbered names) onto the main window and saves the screen with the
// first question box in front of the progress dialog, and the progress
// dialog alone further into the run, and the window with the run's account
// at its end. Questions are answered "Convert All",
// failure boxes with OK. Run it under xvfb-run; uses private settings.
#include "application/application_look.h"
#include "application/main_window.h"
#include "application/settings_keys.h"
#include "conversion/output_format.h"
#include "application/translation_loader.h"
#include "vel_toolkit/qt_message_handler.h"

#include "support/gui_test_main.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDirIterator>
#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressDialog>
#include <QScreen>
#include <QSettings>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace {

void save_screen(const QString& folder, const QString& name)
{
    // Time for the window system to map and paint what was just shown.
    QTest::qWait(400);
    const QString file = folder + QLatin1Char('/') + name + QStringLiteral(".png");
    QScreen* screen = QApplication::primaryScreen();
    const QPixmap picture = screen ? screen->grabWindow(0) : QPixmap();
    if (!picture.save(file))
        std::fprintf(stderr, "could not save %s (%dx%d)\n", qPrintable(file), picture.width(), picture.height());
}

// The presets of the folder repeated into a new folder until there are count.
QString make_presets(const QString& source, const QString& target, int count)
{
    QStringList presets;
    QDirIterator it(source, {QStringLiteral("*.xmp"), QStringLiteral("*.dng"), QStringLiteral("*.lrtemplate")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext())
        presets << it.next();
    std::sort(presets.begin(), presets.end());
    if (presets.isEmpty())
        return QString();
    QDir().mkpath(target);
    for (int i = 0; i < count; ++i) {
        const QFileInfo preset(presets.at(i % presets.size()));
        QFile::copy(preset.filePath(),
                    QStringLiteral("%1/%2-%3").arg(target).arg(i, 3, 10, QLatin1Char('0')).arg(preset.fileName()));
    }
    return target;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4) {
        std::fprintf(stderr, "usage: take_run_screenshots <folder> <preset folder> <language code> [count]\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const QString source = QString::fromLocal8Bit(argv[2]);
    const QString language = QString::fromLocal8Bit(argv[3]);
    const int count = argc > 4 ? std::atoi(argv[4]) : 200;

    QTemporaryDir private_root;
    gui_test::use_private_folders(private_root.path());
    vel::install_qt_message_handler(true, false);
    gui_test::set_identity();
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, true);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, true);
    QApplication application(argc, argv);
    apply_application_look();

    const QString presets = make_presets(source, private_root.path() + QStringLiteral("/presets"), count);
    if (presets.isEmpty()) {
        std::fprintf(stderr, "no presets in %s\n", qPrintable(source));
        return 2;
    }
    QSettings().setValue(settings_keys::lang, language);
    QSettings().setValue(settings_keys::output_dir.key, private_root.path() + QStringLiteral("/styles"));
    // Separate styles: the run ends without a dialog, in its account.
    QSettings().setValue(settings_keys::format.key, output_format_name(output_format::separate));
    QDir().mkpath(private_root.path() + QStringLiteral("/styles"));
    const auto translators = install_translators(language);

    MainWindow window;
    window.move(80, 80);
    window.show();

    // The convert button: the one large button of the window.
    QAbstractButton* convert = nullptr;
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        if (button->minimumSize() == QSize(88, 54))
            convert = button;
    }
    if (!convert) {
        std::fprintf(stderr, "no convert button\n");
        return 2;
    }
    bool running = false;
    bool question_taken = false;
    bool progress_taken = false;
    QTimer watcher;
    watcher.setInterval(50);
    QObject::connect(&watcher, &QTimer::timeout, [&] {
        // The button is disabled while the run goes on; enabled again, the run
        // is over and the main loop can end.
        if (!convert->isEnabled())
            running = true;
        else if (running)
            QCoreApplication::quit();
        QWidget* modal = QApplication::activeModalWidget();
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            if (!box->isVisible())
                return;
            if (box->icon() == QMessageBox::Question) {
                if (!question_taken) {
                    question_taken = true; // the timer ticks on while the picture is taken
                    save_screen(folder, QStringLiteral("run_question_") + language);
                }
                box->button(QMessageBox::YesToAll)->click();
            } else {
                box->button(QMessageBox::Ok)->click();
            }
        } else if (auto* progress = qobject_cast<QProgressDialog*>(modal)) {
            if (!progress_taken && progress->value() >= count / 3) {
                progress_taken = true;
                save_screen(folder, QStringLiteral("run_progress_") + language);
            }
        }
    });
    watcher.start();

    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(presets)});
    // A drop reaches only the widget that accepted the drag entering it.
    QDragEnterEvent enter(QPoint(40, 40), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    QDropEvent drop(QPoint(40, 40), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    QApplication::exec();
    // The window after the run, with its account of what the run did.
    QCoreApplication::processEvents();
    save_screen(folder, QStringLiteral("run_account_") + language);

    if (!question_taken || !progress_taken)
        std::fprintf(stderr, "missing: %s%s\n", question_taken ? "" : "question ", progress_taken ? "" : "progress");
    return question_taken && progress_taken ? 0 : 1;
}
