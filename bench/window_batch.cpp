// SPDX-License-Identifier: GPL-3.0-or-later
// Times one conversion run of the window over many presets: the presets of the
// corpus that raise no question, repeated into a temporary folder under numbered
// names, are dropped onto the main window in "separate" mode, and the time from
// the drop to the end of the run is reported with the processor time it took
// and the machine's load. Aim (Release build): 1,000 presets in under 2.5 s.
//
//   window_batch [count]            (default 1000)
//   WORK_ROOT=/dev/shm window_batch # keeps the disk's sync cost out of the figure
//
// Runs under the off-screen platform unless QT_QPA_PLATFORM says otherwise, with
// private settings folders: the user's settings are never touched.

#include "application/main_window.h"
#include "application/settings_keys.h"
#include "conversion/output_format.h"
#include "conversion/preset_reading.h"
#include "importer/lightroom_importer.h"
#include "vel_toolkit/qt_message_handler.h"
#include "writer/costyle_writer.h"

#include <QApplication>
#include <QDirIterator>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QFile>
#include <QMimeData>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

// Presets that would stop the run with a question or a box are left out: the
// figure is the run's own speed, not the user's.
QStringList presets_without_questions(const QString& corpus)
{
    QStringList found;
    const costyle_writer writer;
    QDirIterator it(corpus, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (preset_format_of(path) == preset_format::unsupported)
            continue;
        try {
            lightroom_importer record;
            read_preset(path, record);
            bool white_balance = false, dehaze = false, lut = false, calibration = false;
            writer.check_costyle(white_balance, dehaze, lut, calibration, record);
            if (!white_balance && !dehaze && !lut && !calibration)
                found.append(path);
        } catch (const std::exception&) {
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

double processor_seconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

QString load_average()
{
    QFile file(QStringLiteral("/proc/loadavg"));
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()).section(QLatin1Char(' '), 0, 2)
                                          : QStringLiteral("unknown");
}

QElapsedTimer clock_since_drop;
qint64 run_milliseconds = -1;
QtMessageHandler program_handler = nullptr;

// The program's own handler does the logging, as in the real program; this one
// only notices the line that ends a run.
void noticing_handler(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (run_milliseconds < 0 && message.startsWith(QLatin1String("Conversion run:"))) {
        run_milliseconds = clock_since_drop.elapsed();
        QTimer::singleShot(0, &QCoreApplication::quit);
    }
    program_handler(type, context, message);
}

} // namespace

int main(int argc, char** argv)
{
    const int count = argc > 1 ? std::atoi(argv[1]) : 1000;
    const QByteArray work_root = qgetenv("WORK_ROOT");
    QTemporaryDir work(work_root.isEmpty() ? QDir::tempPath() + QStringLiteral("/window_batch")
                                           : QString::fromLocal8Bit(work_root) + QStringLiteral("/window_batch"));
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(name, (work.path() + QStringLiteral("/private")).toLocal8Bit());
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");

    QCoreApplication::setOrganizationName(QStringLiteral("Quillmark"));
    QCoreApplication::setApplicationName(QStringLiteral("Stylewright"));
    QApplication application(argc, argv);

    // Choosing the presets reads them all; what the readers log then is no
    // part of the run.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QStringList sources = presets_without_questions(QStringLiteral(STYLEWRIGHT_CORPUS_DIR));
    vel::install_qt_message_handler(true, false);
    program_handler = qInstallMessageHandler(noticing_handler);
    if (sources.isEmpty()) {
        std::fprintf(stderr, "no presets without questions in %s\n", STYLEWRIGHT_CORPUS_DIR);
        return 2;
    }
    const QString input = work.path() + QStringLiteral("/in");
    const QString output = work.path() + QStringLiteral("/out");
    QDir().mkpath(input);
    QDir().mkpath(output);
    for (int i = 0; i < count; ++i) {
        const QFileInfo source(sources.at(i % sources.size()));
        QFile::copy(source.filePath(),
                    QStringLiteral("%1/%2-%3").arg(input).arg(i, 5, 10, QLatin1Char('0')).arg(source.fileName()));
    }
    QSettings settings;
    settings.setValue(settings_keys::output_dir.key, output);
    settings.setValue(settings_keys::format.key, output_format_name(output_format::separate));
    settings.sync();

    MainWindow window;
    window.show();
    QCoreApplication::processEvents();

    const QString load_before = load_average();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(input)});
    QDragEnterEvent enter(QPoint(40, 40), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    QDropEvent drop(QPoint(40, 40), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    const double processor_before = processor_seconds();
    clock_since_drop.start();
    QApplication::sendEvent(&window, &drop);
    QApplication::exec();
    const double processor = processor_seconds() - processor_before;

    const int written = QDir(output).entryList({QStringLiteral("*.costyle")}, QDir::Files).size();
    std::printf("presets: %d (from %d corpus presets without questions)\n", count, int(sources.size()));
    std::printf("styles written: %d\n", written);
    std::printf("wall time: %.3f s, processor time: %.3f s\n", run_milliseconds / 1000.0, processor);
    std::printf("load average before: %s, after: %s\n", qPrintable(load_before), qPrintable(load_average()));
    std::printf("work folder: %s\n", qPrintable(work.path()));
    return written == count && run_milliseconds >= 0 ? 0 : 1;
}
