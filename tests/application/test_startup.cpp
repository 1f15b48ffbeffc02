// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/gui_test_main.h"

#include <QProcess>
#include <QSettings>
#include <QtTest>

// Starts the real program and lets it run for a moment: it must come up,
// stay up and not touch anything but its private settings.
class test_startup : public QObject {
    Q_OBJECT

private slots:
    void program_starts_and_keeps_running();
};

void test_startup::program_starts_and_keeps_running()
{
    QProcess program;
    // The test's environment: private settings folders and the platform to draw on.
    program.setProcessEnvironment(QProcessEnvironment::systemEnvironment());
    program.start(QStringLiteral(STYLEWRIGHT_PROGRAM), QStringList());
    QVERIFY2(program.waitForStarted(10000), qPrintable(program.errorString()));

    // Long enough to build the window and run the event loop for a while.
    QVERIFY(!program.waitForFinished(3000));
    QCOMPARE(program.state(), QProcess::Running);

    program.terminate();
    QVERIFY(program.waitForFinished(10000));
    const QString errors = QString::fromLocal8Bit(program.readAllStandardError());
    QVERIFY2(!errors.contains(QStringLiteral("Fatal signal")), qPrintable(errors));
}

STYLEWRIGHT_GUI_TEST_MAIN(test_startup)
#include "test_startup.moc"
