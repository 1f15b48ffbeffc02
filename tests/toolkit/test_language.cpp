#include "gui_test_main.h"
#include "modal_answer.h"

#include "vel_toolkit/language.h"

#include <QEventLoop>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QtTest>

#include <cstdio>

namespace {

// Run with this argument, the test program prints the language suffix for
// "lang" and exits: the system language is read from the environment at
// start, so each system language needs a process of its own.
const char* const print_suffix_argument = "--print-language-suffix";

} // namespace

class test_language : public QObject {
    Q_OBJECT

private slots:
    void init();
    void stored_language_is_returned_unchanged_data();
    void stored_language_is_returned_unchanged();
    void system_language_counts_only_when_supported_data();
    void system_language_counts_only_when_supported();
    void unchanged_language_asks_nothing();
    void changed_language_quits_only_on_quit_now_data();
    void changed_language_quits_only_on_quit_now();
    void restart_question_wording();

private:
    // The suffix a fresh process finds with the given system locale.
    static QString suffix_on_system(const QString& locale);
    // Runs the restart check inside an event loop of its own and tells
    // whether it asked the application to quit.
    static bool restart_check_quits(const QString& previous_suffix);
};

void test_language::init()
{
    QSettings().clear();
}

void test_language::stored_language_is_returned_unchanged_data()
{
    QTest::addColumn<QString>("system");
    QTest::addColumn<QString>("stored");
    QTest::newRow("German stored, Korean system") << "ko_KR.UTF-8" << "de";
    QTest::newRow("German stored, English system") << "en_US.UTF-8" << "de";
    QTest::newRow("English stored, German system") << "de_DE.UTF-8" << "en";
    // Whatever is stored is the answer, even a code without translations.
    QTest::newRow("unknown code stored") << "de_DE.UTF-8" << "xx";
}

void test_language::stored_language_is_returned_unchanged()
{
    QFETCH(QString, system);
    QFETCH(QString, stored);
    QSettings().setValue(QStringLiteral("lang"), stored);
    QSettings().sync();
    QCOMPARE(suffix_on_system(system), stored);
}

void test_language::system_language_counts_only_when_supported_data()
{
    QTest::addColumn<QString>("system");
    QTest::addColumn<QString>("expected");
    QTest::newRow("German system") << "de_DE.UTF-8" << "de";
    QTest::newRow("Austrian German system") << "de_AT.UTF-8" << "de";
    QTest::newRow("English system") << "en_GB.UTF-8" << "en";
    // Korean has a code but no translation: English.
    QTest::newRow("Korean system") << "ko_KR.UTF-8" << "en";
    QTest::newRow("French system") << "fr_FR.UTF-8" << "en";
    QTest::newRow("C locale") << "C" << "en";
}

void test_language::system_language_counts_only_when_supported()
{
    QFETCH(QString, system);
    QFETCH(QString, expected);
    QCOMPARE(suffix_on_system(system), expected);
}

QString test_language::suffix_on_system(const QString& locale)
{
    QProcess probe;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), locale);
    probe.setProcessEnvironment(environment);
    probe.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(print_suffix_argument)});
    if (!probe.waitForFinished(30000))
        return QStringLiteral("<no answer>");
    return QString::fromUtf8(probe.readAllStandardOutput()).trimmed();
}

bool test_language::restart_check_quits(const QString& previous_suffix)
{
    QEventLoop loop;
    bool quit_requested = false;
    QTimer::singleShot(0, &loop, [&] {
        vel::ask_for_application_restart_if_language_changed(nullptr, previous_suffix);
        // quit() ends every running event loop, this one included.
        quit_requested = !loop.isRunning();
        loop.exit();
    });
    loop.exec();
    if (quit_requested) {
        // A quit request makes every later event loop return at once, so
        // later boxes would never show; a full run of the application's
        // loop clears the request.
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
    }
    return quit_requested;
}

void test_language::unchanged_language_asks_nothing()
{
    QSettings().setValue(QStringLiteral("lang"), QStringLiteral("de"));
    gui_test::modal_answer answer([](QWidget* box) { box->close(); });
    QVERIFY(!restart_check_quits(QStringLiteral("de")));
    QVERIFY(!answer.seen);
}

void test_language::changed_language_quits_only_on_quit_now_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("quits");
    QTest::newRow("Continue working") << int(QMessageBox::Yes) << false;
    QTest::newRow("Quit now") << int(QMessageBox::No) << true;
    QTest::newRow("box closed") << int(QMessageBox::Cancel) << false;
}

void test_language::changed_language_quits_only_on_quit_now()
{
    QFETCH(int, answer);
    QFETCH(bool, quits);
    QSettings().setValue(QStringLiteral("lang"), QStringLiteral("de"));
    gui_test::modal_answer reply([answer](QWidget* widget) {
        auto* box = static_cast<QMessageBox*>(widget);
        if (answer == QMessageBox::Cancel)
            box->close();
        else
            box->button(QMessageBox::StandardButton(answer))->click();
    });
    QCOMPARE(restart_check_quits(QStringLiteral("en")), quits);
    QVERIFY(reply.seen);
}

void test_language::restart_question_wording()
{
    QSettings().setValue(QStringLiteral("lang"), QStringLiteral("en"));
    QString title;
    QString text;
    QString yes;
    QString no;
    QString default_text;
    gui_test::modal_answer reply([&](QWidget* widget) {
        auto* box = static_cast<QMessageBox*>(widget);
        title = box->windowTitle();
        text = box->text();
        yes = box->button(QMessageBox::Yes)->text();
        no = box->button(QMessageBox::No)->text();
        default_text = box->defaultButton()->text();
        box->button(QMessageBox::Yes)->click();
    });
    QVERIFY(!restart_check_quits(QStringLiteral("de")));
    QCOMPARE(title, QStringLiteral("Application language changed"));
    QCOMPARE(text, QStringLiteral("The application language has been changed.<br/>"
                                  "The application needs to be restarted to use the new language."));
    QCOMPARE(yes, QStringLiteral("Continue working"));
    QCOMPARE(no, QStringLiteral("Quit now"));
    QCOMPARE(default_text, QStringLiteral("Continue working"));
}

int main(int argc, char** argv)
{
    if (argc == 2 && qstrcmp(argv[1], print_suffix_argument) == 0) {
        gui_test::set_identity();
        QCoreApplication application(argc, argv);
        std::printf("%s\n", qPrintable(vel::get_language_suffix(QStringLiteral("lang"))));
        return 0;
    }
    return gui_test::run<test_language>(argc, argv);
}

#include "test_language.moc"
