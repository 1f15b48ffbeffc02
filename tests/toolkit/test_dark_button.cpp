#include "gui_test_main.h"

#include "vel_toolkit/clickable_label.h"
#include "vel_toolkit/dark_button.h"
#include "vel_toolkit/icon_loader.h"
#include "vel_toolkit/proxy_style.h"

#include <QSignalSpy>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QtTest>

class test_dark_button : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void highlight_brightens_and_keeps_transparency();
    void double_resolution_names();
    void icon_holds_both_resolutions();
    void icon_lights_up_while_the_pointer_is_over_the_button();
    void icon_fits_the_button();
    void clickable_label_reports_clicks_released_on_it();
    void proxy_style_answers_tool_tip_delays();

private:
    QTemporaryDir pictures;
    QString icon_path;
};

void test_dark_button::initTestCase()
{
    // A 16 x 16 icon and its 32 x 32 twin, mid grey.
    icon_path = pictures.filePath(QStringLiteral("icon.png"));
    QImage small(16, 16, QImage::Format_ARGB32);
    small.fill(QColor(100, 120, 110));
    QVERIFY(small.save(icon_path));
    QImage large(32, 32, QImage::Format_ARGB32);
    large.fill(QColor(100, 120, 110));
    QVERIFY(large.save(pictures.filePath(QStringLiteral("icon@2x.png"))));
}

void test_dark_button::highlight_brightens_and_keeps_transparency()
{
    QImage image(3, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(100, 50, 0, 255));
    image.setPixel(1, 0, qRgba(0, 0, 0, 0));
    image.setPixel(2, 0, qRgba(250, 250, 250, 255));
    const QImage lighter = vel::highlighted(image).convertToFormat(QImage::Format_ARGB32);

    const QRgb coloured = lighter.pixel(0, 0);
    QVERIFY(qRed(coloured) > 100 && qGreen(coloured) > 50 && qBlue(coloured) > 0);
    QVERIFY(qRed(coloured) > qGreen(coloured) && qGreen(coloured) > qBlue(coloured));
    QCOMPARE(qAlpha(coloured), 255);
    QCOMPARE(qAlpha(lighter.pixel(1, 0)), 0);
    QCOMPARE(lighter.pixel(2, 0), qRgba(255, 255, 255, 255));
}

void test_dark_button::double_resolution_names()
{
    QCOMPARE(vel::double_resolution_name(QStringLiteral(":/images/icon_open.png")),
             QStringLiteral(":/images/icon_open@2x.png"));
    QCOMPARE(vel::double_resolution_name(QStringLiteral("/a.b/logo.small.png")),
             QStringLiteral("/a.b/logo.small@2x.png"));
    QCOMPARE(vel::double_resolution_name(QStringLiteral("noext")), QStringLiteral("noext@2x"));
}

void test_dark_button::icon_holds_both_resolutions()
{
    const QList<QSize> sizes = vel::load_icon(icon_path).availableSizes();
    QVERIFY(sizes.contains(QSize(16, 16)));
    QVERIFY(sizes.contains(QSize(32, 32)));

    const QPixmap sharp = vel::load_pixmap(icon_path, 2.0);
    QCOMPARE(sharp.size(), QSize(32, 32));
    QCOMPARE(sharp.devicePixelRatio(), 2.0);
    QCOMPARE(vel::load_pixmap(icon_path, 1.0).size(), QSize(16, 16));
}

void test_dark_button::icon_lights_up_while_the_pointer_is_over_the_button()
{
    vel::dark_button button(QStringLiteral("header"));
    QCOMPARE(button.type(), QStringLiteral("header"));
    button.set_icon_path(icon_path);
    const QImage normal = button.icon().pixmap(16, 16).toImage();

    QEvent enter(QEvent::Enter);
    QApplication::sendEvent(&button, &enter);
    QVERIFY(button.is_highlighted());
    const QImage lit = button.icon().pixmap(16, 16).toImage();
    QVERIFY(qGray(lit.pixel(8, 8)) > qGray(normal.pixel(8, 8)));

    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&button, &leave);
    QVERIFY(!button.is_highlighted());
    QCOMPARE(button.icon().pixmap(16, 16).toImage().pixel(8, 8), normal.pixel(8, 8));

    // A disabled button does not light up.
    button.setEnabled(false);
    QApplication::sendEvent(&button, &enter);
    QVERIFY(!button.is_highlighted());
}

void test_dark_button::icon_fits_the_button()
{
    vel::dark_button roomy;
    roomy.setFixedSize(88, 54);
    roomy.set_icon_path(icon_path);
    // Never enlarged beyond its own size.
    QCOMPARE(roomy.iconSize(), QSize(16, 16));

    vel::dark_button tight;
    tight.setFixedSize(14, 12);
    tight.set_icon_path(icon_path, 3);
    QCOMPARE(tight.iconSize(), QSize(6, 6));
}

void test_dark_button::clickable_label_reports_clicks_released_on_it()
{
    vel::clickable_label label(QStringLiteral("settings file"));
    label.resize(100, 20);
    QSignalSpy clicks(&label, &vel::clickable_label::clicked);

    QTest::mouseClick(&label, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    QCOMPARE(clicks.count(), 1);

    QTest::mouseClick(&label, Qt::RightButton, Qt::NoModifier, QPoint(10, 10));
    QCOMPARE(clicks.count(), 1);

    // Pressed on the label, released beside it: no click.
    QTest::mousePress(&label, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    QTest::mouseRelease(&label, Qt::LeftButton, Qt::NoModifier, QPoint(150, 10));
    QCOMPARE(clicks.count(), 1);
}

void test_dark_button::proxy_style_answers_tool_tip_delays()
{
    QStyle* platform = QStyleFactory::create(QStringLiteral("fusion"));
    const int platform_fall_asleep = platform->styleHint(QStyle::SH_ToolTip_FallAsleepDelay);
    const int platform_blink = platform->styleHint(QStyle::SH_Widget_ShareActivation);

    vel::proxy_style style(platform);
    QCOMPARE(style.styleHint(QStyle::SH_ToolTip_FallAsleepDelay), platform_fall_asleep);
    style.set_tool_tip_wake_up_delay(2000);
    QCOMPARE(style.styleHint(QStyle::SH_ToolTip_WakeUpDelay), 2000);
    QCOMPARE(style.styleHint(QStyle::SH_ToolTip_FallAsleepDelay), platform_fall_asleep);
    QCOMPARE(style.styleHint(QStyle::SH_Widget_ShareActivation), platform_blink);
}

STYLEWRIGHT_GUI_TEST_MAIN(test_dark_button)
#include "test_dark_button.moc"
