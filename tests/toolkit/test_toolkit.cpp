// SPDX-License-Identifier: GPL-3.0-or-later
// The toolkit's widgets and services: message boxes, the language, help, the
// crash handler and the information box.
#include "support/gui_test_main.h"
#include "support/modal_answer.h"
#include "support/url_catcher.h"

#include "vel_toolkit/clickable_label.h"
#include "vel_toolkit/crash_handler.h"
#include "vel_toolkit/help.h"
#include "vel_toolkit/private_folder.h"
#include "vel_toolkit/information_box.h"
#include "vel_toolkit/language.h"
#include "vel_toolkit/message_box.h"
#include "vel_toolkit/qt_message_handler.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QHelpEvent>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QTextBrowser>
#include <QTimer>

#include <csignal>
#include <cstring>

namespace {

// Child processes this program starts from itself: the system language is
// read at start, and a crash ends the process.
int child(int argc, char** argv)
{
    gui_test::set_identity();
    gui_test::use_private_settings();
    QCoreApplication application(argc, argv);
    if (std::strcmp(argv[1], "--print-language-suffix") == 0) {
        std::printf("%s\n", qPrintable(vel::get_language_suffix(QStringLiteral("lang"))));
        return 0;
    }
    vel::install_crash_handler();
    vel::install_qt_message_handler(true, false);
    if (std::strcmp(argv[2], "segfault") == 0) {
        // Read through a volatile, so the compiler cannot know it is null.
        volatile int* volatile nowhere = nullptr;
        *nowhere = 1;
    }
    qFatal("no way on");
}

// The rows of ink in a widget's picture: light text on the dark ground.
std::pair<int, int> ink_rows(QWidget* widget)
{
    const QImage picture = widget->grab().toImage();
    int top = -1, bottom = -1;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (qGray(picture.pixel(x, y)) > 140) {
                top = top < 0 ? y : top;
                bottom = y;
            }
    return {top, bottom};
}

} // namespace

class test_toolkit : public QObject {
    Q_OBJECT

    QTemporaryDir pages;
    gui_test::url_catcher browser;
    QtMessageHandler framework_handler = nullptr;

    QString page_template() const { return pages.filePath(QStringLiteral("index_%1.html")); }
    void write_page(const QString& code, const QString& text) const
    {
        QFile page(page_template().arg(code));
        QVERIFY(page.open(QIODevice::WriteOnly));
        page.write(text.toUtf8());
    }

private slots:
    void initTestCase()
    {
        QDesktopServices::setUrlHandler(QStringLiteral("file"), &browser, "open");
        framework_handler = qInstallMessageHandler(nullptr);
        qInstallMessageHandler(framework_handler);
    }
    void init() { QSettings().clear(); }
    void cleanup() { qInstallMessageHandler(framework_handler); }

    void question_returns_the_button_pressed_or_cancel_data()
    {
        QTest::addColumn<int>("action"); // a button to press; 0 closes the window, -1 presses Escape
        QTest::addColumn<int>("result");
        QTest::newRow("Convert") << int(QMessageBox::Yes) << int(QMessageBox::Yes);
        QTest::newRow("Skip All") << int(QMessageBox::NoToAll) << int(QMessageBox::NoToAll);
        QTest::newRow("window closed") << 0 << int(QMessageBox::Cancel);
        QTest::newRow("Escape pressed") << -1 << int(QMessageBox::Cancel);
    }
    void question_returns_the_button_pressed_or_cancel()
    {
        QFETCH(int, action);
        QFETCH(int, result);
        QStringList shown;
        gui_test::modal_answer answer([&](QWidget* widget) {
            auto* box = static_cast<QMessageBox*>(widget);
            for (auto which : {QMessageBox::Yes, QMessageBox::No, QMessageBox::YesToAll, QMessageBox::NoToAll})
                shown << box->button(which)->text();
            shown << box->defaultButton()->text() << box->text() << QString::number(box->icon());
            if (action == 0)
                box->close();
            else if (action < 0)
                QTest::keyClick(box, Qt::Key_Escape);
            else
                box->button(QMessageBox::StandardButton(action))->click();
        });
        QCOMPARE(int(vel::message_box::question(nullptr, "White balance", "Convert\n<b>it</b>?", "Convert", "Skip",
                                                "Convert All", "Skip All", QMessageBox::Yes)),
                 result);
        QCOMPARE(shown, QStringList({"Convert", "Skip", "Convert All", "Skip All", "Convert", "Convert<br/><b>it</b>?",
                                     QString::number(QMessageBox::Question)}));
    }

    // Accents stacked above capitals (Ế, Й) rise above the font's ascent; the
    // first line of a box has room for them, its text unchanged.
    void boxes_make_room_above_every_line()
    {
        vel::message_box box(QMessageBox::Warning, "T", QString::fromUtf8("ẾẶ Йё"), QMessageBox::Ok);
        box.show();
        QCOMPARE(box.text(), QString::fromUtf8("ẾẶ Йё"));
        auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        label->setStyleSheet(QStringLiteral("color: white; background: black;"));

        const auto [top, bottom] = ink_rows(label);
        QVERIFY2(top > 0 && bottom < label->height() - 1, qPrintable(QStringLiteral("%1..%2").arg(top).arg(bottom)));
    }

    void language_is_the_stored_one_or_a_supported_system_language_data()
    {
        QTest::addColumn<QString>("system");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("suffix");
        QTest::newRow("German stored, Korean system") << "ko_KR.UTF-8" << "de" << "de";
        QTest::newRow("unknown code stored") << "de_DE.UTF-8" << "xx" << "xx";
        QTest::newRow("Austrian German system") << "de_AT.UTF-8" << "" << "de";
        QTest::newRow("Korean: a code but no translation") << "ko_KR.UTF-8" << "" << "en";
        QTest::newRow("C locale") << "C" << "" << "en";
    }
    void language_is_the_stored_one_or_a_supported_system_language()
    {
        QFETCH(QString, system);
        QFETCH(QString, stored);
        QFETCH(QString, suffix);
#ifdef Q_OS_WIN
        if (stored.isEmpty() && suffix != QLatin1String("en"))
            QSKIP("Windows takes the system language from the user's settings, not from LC_ALL");
#endif
        if (!stored.isEmpty())
            QSettings().setValue("lang", stored);
        QProcess probe;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LC_ALL", system);
        probe.setProcessEnvironment(environment);
        probe.start(QCoreApplication::applicationFilePath(), {"--print-language-suffix"});
        QVERIFY(probe.waitForFinished(30000));
        QCOMPARE(QString::fromUtf8(probe.readAllStandardOutput()).trimmed(), suffix);
    }

    void changed_language_offers_a_restart_data()
    {
        QTest::addColumn<QString>("previous");
        QTest::addColumn<int>("answer"); // 0 closes the box, -1: no box expected
        QTest::addColumn<bool>("quits");
        QTest::newRow("unchanged: no box") << "de" << -1 << false;
        QTest::newRow("Continue working") << "en" << int(QMessageBox::Yes) << false;
        QTest::newRow("Quit now") << "en" << int(QMessageBox::No) << true;
        QTest::newRow("box closed") << "en" << 0 << false;
    }
    void changed_language_offers_a_restart()
    {
        QFETCH(QString, previous);
        QFETCH(int, answer);
        QFETCH(bool, quits);
        QSettings().setValue("lang", "de");
        QStringList shown;
        gui_test::modal_answer reply([&](QWidget* widget) {
            auto* box = static_cast<QMessageBox*>(widget);
            shown << box->windowTitle() << box->text() << box->defaultButton()->text();
            if (answer == 0)
                box->close();
            else
                box->button(QMessageBox::StandardButton(answer))->click();
        });
        vel::ask_for_application_restart_if_language_changed(nullptr, previous);
        // A quit request makes the next event loop return at once, with -1.
        QEventLoop probe;
        QTimer::singleShot(0, &probe, [&] { probe.exit(0); });
        const bool quit_requested = probe.exec() == -1;
        QTimer::singleShot(0, qApp, &QCoreApplication::quit); // clears the request
        QCoreApplication::exec();
        QCOMPARE(quit_requested, quits);
        QCOMPARE(reply.seen, answer >= 0);
        if (reply.seen)
            QCOMPARE(shown, QStringList({"Application language changed",
                                         "The application language has been changed.<br/>The application needs to "
                                         "be restarted to use the new language.",
                                         "Continue working"}));
    }

    void help_opens_the_page_of_the_language_with_its_shortcut_names()
    {
        QCOMPARE(vel::replace_shortcut_names(QStringLiteral("Ctrl+G, Strg+G, CtXrl, StXrg+Klick"),
                                             vel::shortcut_key_names::command_key),
                 QStringLiteral("Cmd+G, Cmd+G, Ctrl, Ctrl+Klick"));
        QCOMPARE(vel::replace_shortcut_names(QStringLiteral("Ctrl+G, Strg+G, CtXrl, StXrg+Klick"),
                                             vel::shortcut_key_names::control_key),
                 QStringLiteral("Ctrl+G, Strg+G, Ctrl, Ctrl+Klick"));
        QSettings().setValue("lang", "de");
        write_page("en", "<p>English</p>");
        const QUrl copy = QUrl::fromLocalFile(vel::private_folder() + "/stylewright_help_de.html");
        QVERIFY(!vel::private_folder().isEmpty());
        // A link planted under the copy's name is replaced, not written through.
        const QString victim = QDir::tempPath() + "/victim.txt";
        QFile planted(victim);
        QVERIFY(planted.open(QIODevice::WriteOnly) && planted.write("keep") == 4);
        planted.close();
        QVERIFY(QFile::link(victim, copy.toLocalFile()));
        browser.opened.clear();
        // A UTF-8 copy of the page, replaced on opening again.
        for (const char* text : {"<p>StXrg+Umschalt+L öffnet das Protokoll</p>", "<p>zweite</p>"}) {
            write_page("de", QString::fromUtf8(text));
            vel::open_help(page_template());
            QFile shown(copy.toLocalFile());
            QVERIFY(shown.open(QIODevice::ReadOnly));
            QCOMPARE(QString::fromUtf8(shown.readAll()), QString::fromUtf8(text).replace("StXrg", "Ctrl"));
        }
        QCOMPARE(browser.opened, QList<QUrl>({copy, copy}));
        QVERIFY(!QFileInfo(copy.toLocalFile()).isSymLink());
        QVERIFY(planted.open(QIODevice::ReadOnly) && planted.readAll() == "keep");
        // A language without a page: a warning, nothing opens.
        QSettings().setValue("lang", "kr");
        QTest::ignoreMessage(QtWarningMsg, qPrintable(QString("Could not open help file for language \"kr\" with "
                                                              "template \"%1\" resulting in \"%2\"")
                                                          .arg(page_template(), page_template().arg("kr"))));
        vel::open_help(page_template());
        QCOMPARE(browser.opened.size(), 2);
    }

    void without_a_browser_the_page_shows_in_a_window_of_its_own()
    {
        QSettings().setValue("lang", "en");
        write_page("en", "<p>Press Ctrl+Shift+L.</p><a href=\"https://quillmark.example\">Web</a>");
        vel::open_help(page_template(), [](const QUrl&) { return false; });
        QTextBrowser* shown = nullptr;
        for (QWidget* top : QApplication::topLevelWidgets())
            shown = shown ? shown : qobject_cast<QTextBrowser*>(top);
        QVERIFY(shown && shown->isVisible() && shown->openExternalLinks());
        QVERIFY(shown->toPlainText().contains("Press Ctrl+Shift+L."));
        shown->close();
    }

    // The settings file's tip shows above its line, not over the buttons below.
    void information_box_tip_leaves_the_buttons_free()
    {
        vel::information_box box;
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        auto* link = box.findChild<vel::clickable_label*>();
        QHelpEvent help(QEvent::ToolTip, link->rect().center(), link->mapToGlobal(link->rect().center()));
        QApplication::sendEvent(link, &help);
        QWidget* tip = nullptr;
        for (QWidget* top : QApplication::topLevelWidgets())
            tip = top->isVisible() && top->inherits("QTipLabel") ? top : tip;
        QVERIFY(tip);
        QVERIFY(tip->geometry().bottom() < link->mapToGlobal(QPoint(0, 0)).y());
        for (QAbstractButton* button : box.findChild<QDialogButtonBox*>()->buttons())
            QVERIFY(!tip->geometry().intersects(QRect(button->mapToGlobal(QPoint(0, 0)), button->size())));
    }

    void fatal_signal_prints_its_name_and_a_stack_trace_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<QString>("first_line");
        QTest::addColumn<QString>("headline");
#ifdef Q_OS_WIN
        QTest::newRow("segmentation fault") << "segfault" << "Fatal exception 0xC0000005 (access violation) at "
                                            << "Fatal exception 0xC0000005 (access violation) at ";
#else
        QTest::newRow("segmentation fault") << "segfault" << "Fatal signal SIGSEGV (segmentation fault), stack trace:"
                                            << "Fatal signal SIGSEGV (segmentation fault), stack trace:";
        // qFatal logs its line, then aborts; on Windows abort() ends the
        // program without an exception to report.
        QTest::newRow("fatal message") << "fatal" << "Fatal: no way on" << "Fatal signal SIGABRT (abort), stack trace:";
#endif
    }
    void fatal_signal_prints_its_name_and_a_stack_trace()
    {
#if !defined(Q_OS_LINUX) && !defined(Q_OS_MACOS) && !defined(Q_OS_WIN)
        QSKIP("stack traces are printed only where the C library offers backtrace()");
#endif
        QFETCH(QString, how);
        QFETCH(QString, first_line);
        QFETCH(QString, headline);
        QProcess crashing;
        crashing.start(QCoreApplication::applicationFilePath(), {"--crash", how});
        QVERIFY(crashing.waitForFinished(30000));
        QCOMPARE(crashing.exitStatus(), QProcess::CrashExit);
        const QStringList lines = QString::fromLocal8Bit(crashing.readAllStandardError()).split('\n', Qt::SkipEmptyParts);
        QVERIFY2(lines.value(0).startsWith(first_line), qPrintable(lines.join('\n')));
        // Frames follow the headline, this program's own among them.
        int headline_at = 0;
        while (headline_at < lines.size() && !lines.at(headline_at).startsWith(headline))
            ++headline_at;
        const QStringList frames = lines.mid(headline_at + 1);
        QVERIFY2(headline_at < lines.size() && frames.size() >= 3
                     && frames.join('\n').contains(QFileInfo(QCoreApplication::applicationFilePath()).fileName()),
                 qPrintable(lines.join('\n')));
    }
};

int main(int argc, char** argv)
{
    if (argc >= 2 && (std::strcmp(argv[1], "--crash") == 0 || std::strcmp(argv[1], "--print-language-suffix") == 0))
        return child(argc, argv);
    return gui_test::run<test_toolkit>(argc, argv);
}

#include "test_toolkit.moc"
