// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/gui_test_main.h"

#include "vel_toolkit/crash_handler.h"
#include "vel_toolkit/qt_message_handler.h"

#include <QFileInfo>
#include <QProcess>

#include <csignal>

// The crashing child: installs the handlers and dies the way asked.
[[gnu::noinline]] int crash_child(const char* how)
{
    vel::install_crash_handler();
    vel::install_qt_message_handler(true, false);
    if (qstrcmp(how, "segfault") == 0)
        std::raise(SIGSEGV);
    else
        qFatal("no way on");
    return 0;
}

class test_crash_handler : public QObject {
    Q_OBJECT

private slots:
    void fatal_signal_prints_its_name_and_a_stack_trace_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<QString>("first_line");
        QTest::addColumn<QString>("headline");
        QTest::newRow("segmentation fault") << "segfault" << "Fatal signal SIGSEGV (segmentation fault), stack trace:"
                                            << "Fatal signal SIGSEGV (segmentation fault), stack trace:";
        // qFatal logs its line, then aborts.
        QTest::newRow("fatal message") << "fatal" << "Fatal: no way on" << "Fatal signal SIGABRT (abort), stack trace:";
    }
    void fatal_signal_prints_its_name_and_a_stack_trace()
    {
#if !defined(Q_OS_LINUX) && !defined(Q_OS_MACOS)
        QSKIP("stack traces are printed only where the C library offers backtrace()");
#endif
        QFETCH(QString, how);
        QFETCH(QString, first_line);
        QFETCH(QString, headline);
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {"--crash", how});
        QVERIFY(child.waitForFinished(30000));
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
        const QStringList lines = QString::fromLocal8Bit(child.readAllStandardError()).split('\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.value(0), first_line);
        // Frames follow the headline, this program's among them.
        const QStringList frames = lines.mid(lines.indexOf(headline) + 1);
        const QString program = QFileInfo(QCoreApplication::applicationFilePath()).fileName();
        QVERIFY2(lines.contains(headline) && frames.size() >= 3 && frames.join('\n').contains(program),
                 qPrintable(lines.join('\n')));
    }
};

STYLEWRIGHT_GUI_TEST_SUITE(test_crash_handler)
#include "test_crash_handler.moc"
