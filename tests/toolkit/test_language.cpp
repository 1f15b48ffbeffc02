// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/gui_test_main.h"
#include "support/modal_answer.h"

#include "vel_toolkit/language.h"

#include <QEventLoop>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QTimer>

#include <cstdio>

// Prints the suffix for "lang" in a process of its own: the system language is
// read from the environment at start, so each system language needs one.
int print_language_suffix(int argc, char** argv)
{
    gui_test::set_identity();
    QCoreApplication application(argc, argv);
    std::printf("%s\n", qPrintable(vel::get_language_suffix("lang")));
    return 0;
}

class test_language : public QObject {
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }

    void suffix_is_the_stored_or_a_supported_system_language_data()
    {
        QTest::addColumn<QString>("system");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("suffix");
        QTest::newRow("German stored, Korean system") << "ko_KR.UTF-8" << "de" << "de";
        QTest::newRow("English stored, German system") << "de_DE.UTF-8" << "en" << "en";
        QTest::newRow("unknown code stored") << "de_DE.UTF-8" << "xx" << "xx";
        QTest::newRow("German system") << "de_DE.UTF-8" << "" << "de";
        QTest::newRow("Austrian German system") << "de_AT.UTF-8" << "" << "de";
        QTest::newRow("English system") << "en_GB.UTF-8" << "" << "en";
        // Korean has a code but no translation.
        QTest::newRow("Korean system") << "ko_KR.UTF-8" << "" << "en";
        QTest::newRow("French system") << "fr_FR.UTF-8" << "" << "en";
        QTest::newRow("C locale") << "C" << "" << "en";
    }
    void suffix_is_the_stored_or_a_supported_system_language()
    {
        QFETCH(QString, system);
        QFETCH(QString, stored);
        QFETCH(QString, suffix);
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
        QTest::addColumn<int>("answer"); // 0 closes the box
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
            QStringList visible;
            for (QAbstractButton* button : box->buttons())
                if (button->isVisible())
                    visible << button->text();
            visible.sort();
            shown << box->windowTitle() << box->text() << box->defaultButton()->text() << visible;
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
        // A full run of the application's loop clears the request.
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
        QCOMPARE(quit_requested, quits);

        QCOMPARE(reply.seen, answer >= 0);
        if (reply.seen)
            QCOMPARE(shown, QStringList({"Application language changed",
                                         "The application language has been changed.<br/>The application needs to "
                                         "be restarted to use the new language.",
                                         "Continue working", "Continue working", "Quit now"}));
    }
};

STYLEWRIGHT_GUI_TEST_SUITE(test_language)
#include "test_language.moc"
