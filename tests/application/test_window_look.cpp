// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/gui_test_main.h"

#include "application/dialog_settings.h"
#include "application/main_window.h"
#include "vel_toolkit/dark_palette.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFileDialog>
#include <QMessageBox>
#include <QProgressDialog>
#include <QSettings>
#include <QToolTip>
#include <QtTest>

#include <memory>

// Every window the program opens, as the dark look leaves it: the text of each
// visible widget against the ground it is drawn on reads at WCAG AA (4.5:1).
class test_window_look : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void the_palette_keeps_every_text_readable();
    void every_window_the_program_opens_is_readable();

private:
    static QStringList unreadable(QWidget* top);
};

void test_window_look::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, true);
    QSettings().clear();
    vel::apply_dark_palette();
}

void test_window_look::the_palette_keeps_every_text_readable()
{
    const QPalette palette = vel::dark_palette();
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
        {QPalette::WindowText, QPalette::Window}, {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase}, {QPalette::ButtonText, QPalette::Button},
        {QPalette::ToolTipText, QPalette::ToolTipBase}, {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::Link, QPalette::Base}};
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        for (const auto& [text, ground] : pairs)
            QVERIFY2(vel::contrast_ratio(palette.color(group, text), palette.color(group, ground)) >= 4.5,
                     qPrintable(QStringLiteral("roles %1 on %2").arg(text).arg(ground)));
    }
    QVERIFY(vel::contrast_ratio(QToolTip::palette().color(QPalette::ToolTipText),
                                QToolTip::palette().color(QPalette::ToolTipBase)) >= 4.5);
}

QStringList test_window_look::unreadable(QWidget* top)
{
    QStringList found;
    QList<QWidget*> widgets = top->findChildren<QWidget*>();
    widgets.prepend(top);
    for (QWidget* widget : widgets) {
        if (!widget->isVisible())
            continue;
        widget->ensurePolished();
        const QPalette& palette = widget->palette();
        const auto* view = qobject_cast<QAbstractItemView*>(widget);
        const QColor text = palette.color(view ? QPalette::Text : widget->foregroundRole());
        const QColor ground = palette.color(view ? QPalette::Base : widget->backgroundRole());
        const double ratio = vel::contrast_ratio(text, ground);
        if (ratio < 4.5)
            found << QStringLiteral("%1 %2: %3 on %4 (%5:1)")
                         .arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName(),
                              text.name(), ground.name())
                         .arg(ratio, 0, 'f', 1);
    }
    return found;
}

void test_window_look::every_window_the_program_opens_is_readable()
{
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(unreadable(&window), QStringList());

    // Children of the main window take its style sheet, light text included.
    QFileDialog files(&window, QStringLiteral("Open"), QDir::tempPath());
    files.show();
    QCOMPARE(unreadable(&files), QStringList());
    files.hide();

    QProgressDialog progress(QStringLiteral("Converting preset 1 of 2:"), QStringLiteral("Cancel"), 0, 2, &window);
    progress.show();
    QCOMPARE(unreadable(&progress), QStringList());
    progress.hide();

    QMessageBox box(QMessageBox::Question, QStringLiteral("Title"), QStringLiteral("Übergang Ölig"),
                    QMessageBox::Yes | QMessageBox::No, &window);
    box.show();
    QCOMPARE(unreadable(&box), QStringList());
    box.hide();

    QSettings settings;
    dialog_settings dialog(&settings, &window);
    dialog.show();
    QCOMPARE(unreadable(&dialog), QStringList());
    auto* box_list = dialog.findChild<QComboBox*>();
    QVERIFY(box_list);
    box_list->showPopup();
    QCOMPARE(unreadable(box_list->view()), QStringList());
    box_list->hidePopup();
}

STYLEWRIGHT_GUI_TEST_MAIN(test_window_look)
#include "test_window_look.moc"
