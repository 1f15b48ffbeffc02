// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/gui_test_main.h"

#include "vel_toolkit/qt_message_handler.h"

#include <iostream>
#include <sstream>

namespace {

// Catches what is written to std::cout and std::cerr while it lives.
struct captured_streams {
    std::stringstream output;
    std::stringstream error;
    std::streambuf* saved_output = std::cout.rdbuf(output.rdbuf());
    std::streambuf* saved_error = std::cerr.rdbuf(error.rdbuf());
    ~captured_streams()
    {
        std::cout.rdbuf(saved_output);
        std::cerr.rdbuf(saved_error);
    }
};

} // namespace

class test_qt_message_handler : public QObject {
    Q_OBJECT

    QtMessageHandler framework_handler = nullptr;

private slots:
    // The test framework's own handler, put back after every case.
    void initTestCase()
    {
        framework_handler = qInstallMessageHandler(nullptr);
        qInstallMessageHandler(framework_handler);
    }
    void cleanup() { qInstallMessageHandler(framework_handler); }

    void each_level_has_its_line_and_stream_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<bool>("with_context");
        QTest::addColumn<bool>("located");
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("to_error");
        // Release builds log without a source position.
        QTest::newRow("debug") << int(QtDebugMsg) << true << false << "Debug: über (:0, )" << false;
        QTest::newRow("info") << int(QtInfoMsg) << false << true << "Info: über" << false;
        QTest::newRow("warning") << int(QtWarningMsg) << true << true
                                 << "Warning: über (main_window.cpp:42, void MainWindow::setup_layout())" << false;
        QTest::newRow("critical") << int(QtCriticalMsg) << false << true << "Critical: über" << true;
        QTest::newRow("fatal") << int(QtFatalMsg) << false << false << "Fatal: über" << true;
    }
    void each_level_has_its_line_and_stream()
    {
        QFETCH(int, level);
        QFETCH(bool, with_context);
        QFETCH(bool, located);
        QFETCH(QString, line);
        QFETCH(bool, to_error);
        const QMessageLogContext position("main_window.cpp", 42, "void MainWindow::setup_layout()", "default");
        const QMessageLogContext none;
        const QMessageLogContext& context = located ? position : none;
        QCOMPARE(vel::format_log_line(QtMsgType(level), context, "über", with_context), line);
        if (level == QtFatalMsg)
            return;
        captured_streams streams;
        vel::install_qt_message_handler(true, with_context);
        qt_message_output(QtMsgType(level), context, "über");
        QCOMPARE(QString::fromStdString((to_error ? streams.error : streams.output).str()), line + '\n');
        QVERIFY((to_error ? streams.output : streams.error).str().empty());
    }

    void removing_restores_the_default_handler()
    {
        captured_streams streams;
        vel::install_qt_message_handler(true, false);
        vel::install_qt_message_handler(false, false);
        // Qt's default handler writes to the process's standard error, not through std::cerr.
        qWarning("expected on standard error: written by the default handler");
        QVERIFY(streams.output.str().empty() && streams.error.str().empty());
    }
};

STYLEWRIGHT_GUI_TEST_SUITE(test_qt_message_handler)
#include "test_qt_message_handler.moc"
