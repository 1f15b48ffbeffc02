#include "gui_test_main.h"

#include "vel_toolkit/qt_message_handler.h"

#include <QtTest>

#include <iostream>
#include <sstream>

// Catches what is written to std::cout and std::cerr while it lives.
class captured_streams {
public:
    captured_streams()
        : saved_output(std::cout.rdbuf(output.rdbuf()))
        , saved_error(std::cerr.rdbuf(error.rdbuf()))
    {
    }
    ~captured_streams()
    {
        std::cout.rdbuf(saved_output);
        std::cerr.rdbuf(saved_error);
    }

    std::stringstream output;
    std::stringstream error;

private:
    std::streambuf* saved_output;
    std::streambuf* saved_error;
};

class test_qt_message_handler : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void each_level_goes_to_its_stream_data();
    void each_level_goes_to_its_stream();
    void context_follows_the_message_when_asked_for();
    void fatal_lines_are_formatted_like_critical_ones();
    void removing_restores_the_default_handler();

private:
    QtMessageHandler test_framework_handler = nullptr;
};

void test_qt_message_handler::initTestCase()
{
    // The test framework's own handler, put back after every case.
    test_framework_handler = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(test_framework_handler);
}

void test_qt_message_handler::cleanup()
{
    qInstallMessageHandler(test_framework_handler);
}

void test_qt_message_handler::each_level_goes_to_its_stream_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("standard_output");
    QTest::addColumn<QString>("standard_error");
    QTest::newRow("debug") << int(QtDebugMsg) << "Debug: über 1\n" << "";
    QTest::newRow("info") << int(QtInfoMsg) << "Info: über 1\n" << "";
    QTest::newRow("warning") << int(QtWarningMsg) << "Warning: über 1\n" << "";
    QTest::newRow("critical") << int(QtCriticalMsg) << "" << "Critical: über 1\n";
}

void test_qt_message_handler::each_level_goes_to_its_stream()
{
    QFETCH(int, level);
    QFETCH(QString, standard_output);
    QFETCH(QString, standard_error);

    captured_streams streams;
    vel::install_qt_message_handler(true, false);
    const QString message = QStringLiteral("über %1").arg(1);
    switch (level) {
    case QtDebugMsg:
        qDebug().noquote() << message;
        break;
    case QtInfoMsg:
        qInfo().noquote() << message;
        break;
    case QtWarningMsg:
        qWarning().noquote() << message;
        break;
    default:
        qCritical().noquote() << message;
        break;
    }
    QCOMPARE(QString::fromStdString(streams.output.str()), standard_output);
    QCOMPARE(QString::fromStdString(streams.error.str()), standard_error);
}

void test_qt_message_handler::context_follows_the_message_when_asked_for()
{
    const QMessageLogContext context("main_window.cpp", 42, "void MainWindow::setup_layout()", "default");
    QCOMPARE(vel::format_log_line(QtWarningMsg, context, QStringLiteral("text"), true),
             QStringLiteral("Warning: text (main_window.cpp:42, void MainWindow::setup_layout())"));
    QCOMPARE(vel::format_log_line(QtWarningMsg, context, QStringLiteral("text"), false),
             QStringLiteral("Warning: text"));

    // Release builds log without a source position.
    const QMessageLogContext empty;
    QCOMPARE(vel::format_log_line(QtDebugMsg, empty, QStringLiteral("text"), true),
             QStringLiteral("Debug: text (:0, )"));

    captured_streams streams;
    vel::install_qt_message_handler(true, true);
    const int line = __LINE__ + 1;
    qInfo("located");
    const QString written = QString::fromStdString(streams.output.str());
    QVERIFY2(written.startsWith(QStringLiteral("Info: located (")), qPrintable(written));
    QVERIFY2(written.contains(QStringLiteral("test_qt_message_handler.cpp:%1, ").arg(line)), qPrintable(written));
    QVERIFY2(written.contains(QStringLiteral("context_follows_the_message_when_asked_for")), qPrintable(written));
}

void test_qt_message_handler::fatal_lines_are_formatted_like_critical_ones()
{
    QCOMPARE(vel::format_log_line(QtFatalMsg, QMessageLogContext(), QStringLiteral("out of memory"), false),
             QStringLiteral("Fatal: out of memory"));
    QCOMPARE(vel::format_log_line(QtCriticalMsg, QMessageLogContext(), QStringLiteral("x"), false),
             QStringLiteral("Critical: x"));
}

void test_qt_message_handler::removing_restores_the_default_handler()
{
    captured_streams streams;
    vel::install_qt_message_handler(true, false);
    vel::install_qt_message_handler(false, false);
    // Qt's default handler writes to the process's standard error, not through std::cerr.
    qWarning("expected on standard error: written by the default handler");
    QVERIFY(streams.output.str().empty());
    QVERIFY(streams.error.str().empty());
}

STYLEWRIGHT_GUI_TEST_MAIN(test_qt_message_handler)
#include "test_qt_message_handler.moc"
