#include "gui_test_main.h"

#include "vel_toolkit/clickable_label.h"
#include "vel_toolkit/dark_button.h"
#include "vel_toolkit/icon_loader.h"
#include "vel_toolkit/proxy_style.h"

#include <QSignalSpy>
#include <QStyleFactory>

class test_dark_button : public QObject {
    Q_OBJECT

    QTemporaryDir pictures;

private slots:
    void highlight_brightens_keeps_transparency_and_clamps()
    {
        QImage image(3, 1, QImage::Format_ARGB32);
        image.setPixel(0, 0, qRgba(100, 50, 0, 255));
        image.setPixel(1, 0, qRgba(0, 0, 0, 0));
        image.setPixel(2, 0, qRgba(250, 250, 250, 255));
        const QImage lighter = vel::highlighted(image).convertToFormat(QImage::Format_ARGB32);
        const QRgb coloured = lighter.pixel(0, 0);
        QVERIFY(qRed(coloured) > 100 && qGreen(coloured) > 50 && qBlue(coloured) > 0 && qAlpha(coloured) == 255);
        QVERIFY(qRed(coloured) > qGreen(coloured) && qGreen(coloured) > qBlue(coloured));
        QCOMPARE(qAlpha(lighter.pixel(1, 0)), 0);
        QCOMPARE(lighter.pixel(2, 0), qRgba(255, 255, 255, 255));
    }

    void icons_come_in_two_resolutions_and_light_up_under_the_pointer()
    {
        QCOMPARE(vel::double_resolution_name("/a.b/logo.small.png"), QString("/a.b/logo.small@2x.png"));
        QCOMPARE(vel::double_resolution_name("noext"), QString("noext@2x"));
        // A 16 x 16 icon and its 32 x 32 twin, mid grey.
        const QString icon = pictures.filePath("icon.png");
        for (const int size : {16, 32}) {
            QImage image(size, size, QImage::Format_ARGB32);
            image.fill(QColor(100, 120, 110));
            QVERIFY(image.save(size == 16 ? icon : vel::double_resolution_name(icon)));
        }
        const QList<QSize> sizes = vel::load_icon(icon).availableSizes();
        QVERIFY(sizes.contains(QSize(16, 16)) && sizes.contains(QSize(32, 32)));
        QCOMPARE(vel::load_pixmap(icon, 1.0).size(), QSize(16, 16));
        const QPixmap sharp = vel::load_pixmap(icon, 2.0);
        QVERIFY(sharp.size() == QSize(32, 32) && sharp.devicePixelRatio() == 2.0);

        vel::dark_button button("header");
        QCOMPARE(button.type(), QString("header"));
        button.setFixedSize(88, 54);
        button.set_icon_path(icon);
        // Never enlarged beyond its own size.
        QCOMPARE(button.iconSize(), QSize(16, 16));
        const auto centre = [&] { return button.icon().pixmap(16, 16).toImage().pixel(8, 8); };
        const QRgb normal = centre();
        QEvent enter(QEvent::Enter);
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(&button, &enter);
        QVERIFY(button.is_highlighted() && qGray(centre()) > qGray(normal));
        QApplication::sendEvent(&button, &leave);
        QVERIFY(!button.is_highlighted() && centre() == normal);
        // A disabled button does not light up.
        button.setEnabled(false);
        QApplication::sendEvent(&button, &enter);
        QVERIFY(!button.is_highlighted());
        button.setFixedSize(14, 12);
        button.set_icon_path(icon, 3);
        QCOMPARE(button.iconSize(), QSize(6, 6));
    }

    void clickable_label_reports_left_clicks_released_on_it()
    {
        vel::clickable_label label("settings file");
        label.resize(100, 20);
        QSignalSpy clicks(&label, &vel::clickable_label::clicked);
        QTest::mouseClick(&label, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
        QTest::mouseClick(&label, Qt::RightButton, Qt::NoModifier, QPoint(10, 10));
        // Pressed on the label, released beside it.
        QTest::mousePress(&label, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
        QTest::mouseRelease(&label, Qt::LeftButton, Qt::NoModifier, QPoint(150, 10));
        QCOMPARE(clicks.count(), 1);
    }

    void proxy_style_answers_tool_tip_delays()
    {
        QStyle* platform = QStyleFactory::create("fusion");
        const int fall_asleep = platform->styleHint(QStyle::SH_ToolTip_FallAsleepDelay);
        const int share_activation = platform->styleHint(QStyle::SH_Widget_ShareActivation);
        vel::proxy_style style(platform);
        style.set_tool_tip_wake_up_delay(2000);
        QCOMPARE(style.styleHint(QStyle::SH_ToolTip_WakeUpDelay), 2000);
        QCOMPARE(style.styleHint(QStyle::SH_ToolTip_FallAsleepDelay), fall_asleep);
        QCOMPARE(style.styleHint(QStyle::SH_Widget_ShareActivation), share_activation);
    }
};

STYLEWRIGHT_GUI_TEST_SUITE(test_dark_button)
#include "test_dark_button.moc"
