#include "gui_test_main.h"

#include "vel_toolkit/crash_handler.h"
#include "vel_toolkit/qt_message_handler.h"

#include <QProcess>
#include <QtTest>

#include <csignal>

namespace {

// Run with this argument and a way to die, the test program installs the
// handlers and crashes, for the test to read what it printed.
const char* const crash_argument = "--crash";

[[gnu::noinline]] void crash_by(const char* how)
{
    if (qstrcmp(how, "segfault") == 0)
        std::raise(SIGSEGV);
    else if (qstrcmp(how, "fatal") == 0)
        qFatal("no way on");
}

} // namespace

class test_crash_handler : public QObject {
    Q_OBJECT

private slots:
    void fatal_signal_prints_its_name_and_a_stack_trace_data();
    void fatal_signal_prints_its_name_and_a_stack_trace();
};

void test_crash_handler::fatal_signal_prints_its_name_and_a_stack_trace_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("first_line");
    QTest::addColumn<QString>("headline");
    QTest::newRow("segmentation fault")
        << "segfault" << "" << "Fatal signal SIGSEGV (segmentation fault), stack trace:";
    // qFatal logs its line, then aborts.
    QTest::newRow("fatal message") << "fatal" << "Fatal: no way on" << "Fatal signal SIGABRT (abort), stack trace:";
}

void test_crash_handler::fatal_signal_prints_its_name_and_a_stack_trace()
{
#if !defined(Q_OS_LINUX) && !defined(Q_OS_MACOS)
    QSKIP("stack traces are printed only where the C library offers backtrace()");
#endif
    QFETCH(QString, how);
    QFETCH(QString, first_line);
    QFETCH(QString, headline);

    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(crash_argument), how});
    QVERIFY(child.waitForFinished(30000));
    QCOMPARE(child.exitStatus(), QProcess::CrashExit);

    const QStringList lines =
        QString::fromLocal8Bit(child.readAllStandardError()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const int headline_at = lines.indexOf(headline);
    QVERIFY2(headline_at >= 0, qPrintable(lines.join(QLatin1Char('\n'))));
    if (!first_line.isEmpty())
        QCOMPARE(lines.first(), first_line);
    // Frames follow the headline, the crashing function among them.
    const QStringList frames = lines.mid(headline_at + 1);
    QVERIFY(frames.size() >= 3);
    QVERIFY2(frames.join(QLatin1Char('\n')).contains(QStringLiteral("test_crash_handler")),
             qPrintable(frames.join(QLatin1Char('\n'))));
}

int main(int argc, char** argv)
{
    if (argc == 3 && qstrcmp(argv[1], crash_argument) == 0) {
        vel::install_crash_handler();
        vel::install_qt_message_handler(true, false);
        crash_by(argv[2]);
        return 0;
    }
    return gui_test::run<test_crash_handler>(argc, argv);
}

#include "test_crash_handler.moc"
