// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/gui_test_main.h"

#include "application/dialog_settings.h"
#include "vel_toolkit/combo_box.h"

#include <QFormLayout>
#include <QLabel>
#include <QSettings>
#include <QtTest>

class test_dialog_settings : public QObject {
    Q_OBJECT

private slots:
    void init();
    void empty_store_shows_defaults_and_stores_nothing();
    void stored_format_is_shown_data();
    void stored_format_is_shown();
    void stored_colour_space_is_shown_data();
    void stored_colour_space_is_shown();
    void stored_language_is_shown_data();
    void stored_language_is_shown();
    void one_change_stores_all_three_choices();

private:
    struct boxes {
        vel::combo_box* format;
        vel::combo_box* colour_space;
        vel::combo_box* language;
    };
    static boxes boxes_of(const dialog_settings& dialog);
};

test_dialog_settings::boxes test_dialog_settings::boxes_of(const dialog_settings& dialog)
{
    const auto found = dialog.findChildren<vel::combo_box*>();
    return {found.value(0), found.value(1), found.value(2)};
}

void test_dialog_settings::init()
{
    QSettings().clear();
}

void test_dialog_settings::empty_store_shows_defaults_and_stores_nothing()
{
    QSettings settings;
    dialog_settings dialog(&settings);
    const boxes shown = boxes_of(dialog);
    QCOMPARE(shown.format->currentText(), QStringLiteral("Separate Styles"));
    QCOMPARE(shown.colour_space->currentText(), QStringLiteral("RAW"));
    // The test runs without a German system language.
    QCOMPARE(shown.language->currentText(), QStringLiteral("English"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Settings"));
    QCOMPARE(dialog.minimumSize(), dialog.maximumSize());

    dialog.show();
    dialog.close();
    QVERIFY(settings.allKeys().isEmpty());
}

void test_dialog_settings::stored_format_is_shown_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("separate") << "separate" << "Separate Styles";
    QTest::newRow("stylepack") << "stylepack" << "Stylepack";
    QTest::newRow("stylepack_category") << "stylepack_category" << "Stylepack with Category";
    // Anything else shows as the category pack, case differences included.
    QTest::newRow("SEPARATE") << "SEPARATE" << "Stylepack with Category";
    QTest::newRow("unknown") << "zip" << "Stylepack with Category";
    QTest::newRow("empty") << "" << "Stylepack with Category";
}

void test_dialog_settings::stored_format_is_shown()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    QSettings settings;
    settings.setValue(QStringLiteral("format"), stored);
    dialog_settings dialog(&settings);
    QCOMPARE(boxes_of(dialog).format->currentText(), shown);
    // Showing is not storing.
    QCOMPARE(settings.value(QStringLiteral("format")).toString(), stored);
    QVERIFY(!settings.contains(QStringLiteral("colorspace")));
}

void test_dialog_settings::stored_colour_space_is_shown_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("raw") << "raw" << "RAW";
    QTest::newRow("adobe") << "adobe" << "JPG/TIF/etc. Adobe RGB";
    QTest::newRow("srgb") << "srgb" << "JPG/TIF/etc. sRGB";
    QTest::newRow("prophoto") << "prophoto" << "JPG/TIF/etc. ProPhoto RGB";
    QTest::newRow("widegamut") << "widegamut" << "JPG/TIF/etc. Wide Gamut RGB";
    QTest::newRow("sRGB in other case") << "sRGB" << "RAW";
    QTest::newRow("unknown") << "cmyk" << "RAW";
}

void test_dialog_settings::stored_colour_space_is_shown()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    QSettings settings;
    settings.setValue(QStringLiteral("colorspace"), stored);
    dialog_settings dialog(&settings);
    QCOMPARE(boxes_of(dialog).colour_space->currentText(), shown);
}

void test_dialog_settings::stored_language_is_shown_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("de") << "de" << "Deutsch";
    QTest::newRow("en") << "en" << "English";
    QTest::newRow("kr") << "kr" << "English";
    QTest::newRow("DE") << "DE" << "English";
}

void test_dialog_settings::stored_language_is_shown()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    QSettings settings;
    settings.setValue(QStringLiteral("lang"), stored);
    dialog_settings dialog(&settings);
    QCOMPARE(boxes_of(dialog).language->currentText(), shown);
}

void test_dialog_settings::one_change_stores_all_three_choices()
{
    QSettings settings;
    settings.setValue(QStringLiteral("format"), QStringLiteral("SEPARATE"));
    dialog_settings dialog(&settings);
    const boxes shown = boxes_of(dialog);

    shown.colour_space->setCurrentIndex(shown.colour_space->findData(QStringLiteral("srgb")));

    // The unknown format is now stored as what the dialog showed.
    QCOMPARE(settings.value(QStringLiteral("format")).toString(), QStringLiteral("stylepack_category"));
    QCOMPARE(settings.value(QStringLiteral("colorspace")).toString(), QStringLiteral("srgb"));
    QCOMPARE(settings.value(QStringLiteral("lang")).toString(), QStringLiteral("en"));

    shown.format->setCurrentIndex(0);
    QCOMPARE(settings.value(QStringLiteral("format")).toString(), QStringLiteral("separate"));
    shown.language->setCurrentIndex(shown.language->findData(QStringLiteral("de")));
    QCOMPARE(settings.value(QStringLiteral("lang")).toString(), QStringLiteral("de"));
}


STYLEWRIGHT_GUI_TEST_MAIN(test_dialog_settings)
#include "test_dialog_settings.moc"
