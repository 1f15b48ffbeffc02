#include "gui_test_main.h"

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

    void lines_carry_the_level_and_the_context_when_asked_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<bool>("with_context");
        QTest::addColumn<bool>("located");
        QTest::addColumn<QString>("line");
        QTest::newRow("with context") << int(QtWarningMsg) << true << true
                                      << "Warning: text (main_window.cpp:42, void MainWindow::setup_layout())";
        QTest::newRow("without context") << int(QtWarningMsg) << false << true << "Warning: text";
        // Release builds log without a source position.
        QTest::newRow("empty context") << int(QtDebugMsg) << true << false << "Debug: text (:0, )";
        QTest::newRow("critical") << int(QtCriticalMsg) << false << false << "Critical: text";
        QTest::newRow("fatal") << int(QtFatalMsg) << false << false << "Fatal: text";
    }
    void lines_carry_the_level_and_the_context_when_asked()
    {
        QFETCH(int, level);
        QFETCH(bool, with_context);
        QFETCH(bool, located);
        QFETCH(QString, line);
        const QMessageLogContext position("main_window.cpp", 42, "void MainWindow::setup_layout()", "default");
        const QMessageLogContext none;
        QCOMPARE(vel::format_log_line(QtMsgType(level), located ? position : none, "text", with_context), line);
    }

    void each_level_goes_to_its_stream_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<QString>("output");
        QTest::addColumn<QString>("error");
        QTest::newRow("debug") << int(QtDebugMsg) << "Debug: über 1\n" << "";
        QTest::newRow("info") << int(QtInfoMsg) << "Info: über 1\n" << "";
        QTest::newRow("warning") << int(QtWarningMsg) << "Warning: über 1\n" << "";
        QTest::newRow("critical") << int(QtCriticalMsg) << "" << "Critical: über 1\n";
    }
    void each_level_goes_to_its_stream()
    {
        QFETCH(int, level);
        QFETCH(QString, output);
        QFETCH(QString, error);
        captured_streams streams;
        vel::install_qt_message_handler(true, false);
        qt_message_output(QtMsgType(level), QMessageLogContext(), QStringLiteral("über %1").arg(1));
        QCOMPARE(QString::fromStdString(streams.output.str()), output);
        QCOMPARE(QString::fromStdString(streams.error.str()), error);
    }

    void installed_handler_gives_the_position_when_asked_and_can_be_removed()
    {
        captured_streams streams;
        vel::install_qt_message_handler(true, true);
        const int line = __LINE__ + 1;
        qInfo("located");
        const QString written = QString::fromStdString(streams.output.str());
        QVERIFY2(written.startsWith("Info: located (") &&
                     written.contains(QStringLiteral("test_qt_message_handler.cpp:%1, ").arg(line)) &&
                     written.contains("installed_handler_gives_the_position_when_asked_and_can_be_removed"),
                 qPrintable(written));
        streams.output.str("");
        vel::install_qt_message_handler(false, false);
        // Qt's default handler writes to the process's standard error, not through std::cerr.
        qWarning("expected on standard error: written by the default handler");
        QVERIFY(streams.output.str().empty() && streams.error.str().empty());
    }
};

STYLEWRIGHT_GUI_TEST_SUITE(test_qt_message_handler)
#include "test_qt_message_handler.moc"
