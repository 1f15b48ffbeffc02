#include "gui_test_main.h"
#include "url_catcher.h"

#include "vel_toolkit/help.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest>

using vel::shortcut_key_names;

class test_help : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void shortcut_names_data();
    void shortcut_names();
    void page_of_the_current_language_opens_as_a_utf8_copy();
    void reopening_overwrites_the_same_copy();
    void missing_page_is_logged_and_nothing_opens();

private:
    QString write_page(const QString& code, const QByteArray& content);
    static QString read_file(const QString& name);

    QTemporaryDir pages;
    gui_test::url_catcher browser;
};

void test_help::initTestCase()
{
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &browser, "open");
}

void test_help::cleanupTestCase()
{
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
}

void test_help::init()
{
    QSettings().clear();
    browser.opened.clear();
}

QString test_help::write_page(const QString& code, const QByteArray& content)
{
    QFile page(pages.filePath(QStringLiteral("index_%1.html").arg(code)));
    page.open(QIODevice::WriteOnly);
    page.write(content);
    return pages.filePath(QStringLiteral("index_%1.html"));
}

QString test_help::read_file(const QString& name)
{
    QFile file(name);
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
}

void test_help::shortcut_names_data()
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

void test_help::shortcut_names()
{
    QFETCH(QString, page);
    QFETCH(QString, on_macos);
    QFETCH(QString, elsewhere);
    QCOMPARE(vel::replace_shortcut_names(page, shortcut_key_names::command_key), on_macos);
    QCOMPARE(vel::replace_shortcut_names(page, shortcut_key_names::control_key), elsewhere);
}

void test_help::page_of_the_current_language_opens_as_a_utf8_copy()
{
    QSettings().setValue(QStringLiteral("lang"), QStringLiteral("de"));
    write_page(QStringLiteral("en"), "<p>English</p>");
    const QString path_template =
        write_page(QStringLiteral("de"), QStringLiteral("<p>Strg+Umschalt+L öffnet das Protokoll</p>").toUtf8());

    vel::open_help(path_template);

    const QString copy = QDir::tempPath() + QStringLiteral("/stylewright_help_de.html");
    QCOMPARE(browser.opened, QList<QUrl>({QUrl::fromLocalFile(copy)}));
    QCOMPARE(read_file(copy), vel::replace_shortcut_names(QStringLiteral("<p>Strg+Umschalt+L öffnet das Protokoll</p>"),
                                                          vel::platform_shortcut_key_names()));
}

void test_help::reopening_overwrites_the_same_copy()
{
    QSettings().setValue(QStringLiteral("lang"), QStringLiteral("en"));
    const QString path_template = write_page(QStringLiteral("en"), "<p>first</p>");
    vel::open_help(path_template);
    write_page(QStringLiteral("en"), "<p>second</p>");
    vel::open_help(path_template);

    QCOMPARE(browser.opened.size(), 2);
    QCOMPARE(browser.opened[0], browser.opened[1]);
    QCOMPARE(read_file(browser.opened[1].toLocalFile()), QStringLiteral("<p>second</p>"));
}

void test_help::missing_page_is_logged_and_nothing_opens()
{
    QSettings().setValue(QStringLiteral("lang"), QStringLiteral("kr"));
    const QString path_template = pages.filePath(QStringLiteral("index_%1.html"));
    const QString resolved = pages.filePath(QStringLiteral("index_kr.html"));
    QTest::ignoreMessage(QtWarningMsg, qPrintable(QStringLiteral("Could not open help file for language \"kr\" "
                                                                 "with template \"%1\" resulting in \"%2\"")
                                                      .arg(path_template, resolved)));
    vel::open_help(path_template);
    QVERIFY(browser.opened.isEmpty());
}

STYLEWRIGHT_GUI_TEST_MAIN(test_help)
#include "test_help.moc"
