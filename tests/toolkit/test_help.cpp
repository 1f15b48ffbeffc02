// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/gui_test_main.h"
#include "support/url_catcher.h"

#include "vel_toolkit/help.h"

#include <QDesktopServices>
#include <QSettings>
#include <QTextBrowser>

using vel::shortcut_key_names;

class test_help : public QObject {
    Q_OBJECT

    QTemporaryDir pages;
    gui_test::url_catcher browser;

    QString page_template() const { return pages.filePath("index_%1.html"); }
    void write_page(const QString& code, const QString& text) const
    {
        QFile page(page_template().arg(code));
        QVERIFY(page.open(QIODevice::WriteOnly));
        page.write(text.toUtf8());
    }

private slots:
    void initTestCase() { QDesktopServices::setUrlHandler("file", &browser, "open"); }
    void cleanupTestCase() { QDesktopServices::unsetUrlHandler("file"); }

    void shortcut_names_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("on_macos");
        QTest::addColumn<QString>("elsewhere");
        QTest::newRow("English shortcut") << "Ctrl+Shift+L" << "Cmd+Shift+L" << "Ctrl+Shift+L";
        QTest::newRow("German shortcut") << "Strg+S" << "Cmd+S" << "Strg+S";
        QTest::newRow("real Control key") << "CtXrl+Click" << "Ctrl+Click" << "Ctrl+Click";
        // The German escape becomes "Ctrl" too, on purpose.
        QTest::newRow("real Control key, German page") << "StXrg+Klick" << "Ctrl+Klick" << "Ctrl+Klick";
        QTest::newRow("mixed") << "Ctrl+G, Strg+G, CtXrl, StXrg" << "Cmd+G, Cmd+G, Ctrl, Ctrl"
                               << "Ctrl+G, Strg+G, Ctrl, Ctrl";
        QTest::newRow("no shortcut") << "Grün übernommen" << "Grün übernommen" << "Grün übernommen";
    }
    void shortcut_names()
    {
        QFETCH(QString, page);
        QFETCH(QString, on_macos);
        QFETCH(QString, elsewhere);
        QCOMPARE(vel::replace_shortcut_names(page, shortcut_key_names::command_key), on_macos);
        QCOMPARE(vel::replace_shortcut_names(page, shortcut_key_names::control_key), elsewhere);
    }

    void page_of_the_language_opens_as_a_utf8_copy_replaced_on_reopening()
    {
        QSettings().setValue("lang", "de");
        write_page("en", "<p>English</p>");
        const QUrl copy = QUrl::fromLocalFile(QDir::tempPath() + "/stylewright_help_de.html");
        for (const char* text : {"<p>StXrg+Umschalt+L öffnet das Protokoll</p>", "<p>zweite</p>"}) {
            write_page("de", text);
            vel::open_help(page_template());
            QFile shown(copy.toLocalFile());
            QVERIFY(shown.open(QIODevice::ReadOnly));
            QCOMPARE(QString::fromUtf8(shown.readAll()), QString(text).replace("StXrg", "Ctrl"));
        }
        QCOMPARE(browser.opened, QList<QUrl>({copy, copy}));
    }

    void without_a_browser_the_page_shows_in_a_window_of_its_own()
    {
        QSettings().setValue("lang", "en");
        write_page("en", "<p>Press Ctrl+Shift+L.</p><a href=\"https://quillmark.example\">Web</a>");
        vel::open_help(page_template(), [](const QUrl&) { return false; });
        QTextBrowser* shown = nullptr;
        for (QWidget* top : QApplication::topLevelWidgets())
            shown = shown ? shown : qobject_cast<QTextBrowser*>(top);
        QVERIFY(shown && shown->isVisible());
        QVERIFY(shown->openExternalLinks());
        QVERIFY(shown->toPlainText().contains("Press Ctrl+Shift+L."));
        shown->close();
    }

    void missing_page_is_logged_and_nothing_opens()
    {
        QSettings().setValue("lang", "kr");
        browser.opened.clear();
        QTest::ignoreMessage(QtWarningMsg, qPrintable(QString("Could not open help file for language \"kr\" with "
                                                              "template \"%1\" resulting in \"%2\"")
                                                          .arg(page_template(), page_template().arg("kr"))));
        vel::open_help(page_template());
        QVERIFY(browser.opened.isEmpty());
    }
};

STYLEWRIGHT_GUI_TEST_SUITE(test_help)
#include "test_help.moc"
