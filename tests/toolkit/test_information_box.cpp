#include "gui_test_main.h"

#include "vel_toolkit/about_dialog.h"
#include "vel_toolkit/information_box.h"
#include "vel_toolkit/processor_features.h"

#include <QLabel>
#include <QSettings>
#include <QSysInfo>
#include <QtTest>

#include <zip.h>
#include <zlib.h>

class test_information_box : public QObject {
    Q_OBJECT

private slots:
    void rows_name_program_libraries_system_and_settings();
    void box_shows_every_row();
    void report_text_has_one_line_per_row();
    void about_box_lists_the_libraries_with_their_licences();
};

namespace {

QString value_of(const QString& label)
{
    for (const auto& [row_label, value] : vel::information_box::rows()) {
        if (row_label == label)
            return value;
    }
    return QStringLiteral("<missing>");
}

} // namespace

void test_information_box::rows_name_program_libraries_system_and_settings()
{
    QStringList labels;
    for (const auto& row : vel::information_box::rows())
        labels << row.first;
    QCOMPARE(labels, QStringList({"Program", "Version", "Qt", "libzip", "zlib", "Operating system", "Processor",
                                  "Processor features", "Settings file"}));

    QCOMPARE(value_of(QStringLiteral("Program")), QStringLiteral("Stylewright"));
    QCOMPARE(value_of(QStringLiteral("Version")), QStringLiteral("1.0.8"));
    QVERIFY(value_of(QStringLiteral("Qt")).startsWith(QString::fromLatin1(qVersion())));
    QCOMPARE(value_of(QStringLiteral("libzip")), QString::fromLatin1(zip_libzip_version()));
    QCOMPARE(value_of(QStringLiteral("zlib")), QString::fromLatin1(zlibVersion()));
    QVERIFY(value_of(QStringLiteral("Operating system")).contains(QSysInfo::currentCpuArchitecture()));
    QVERIFY(!value_of(QStringLiteral("Processor")).isEmpty());
    QCOMPARE(value_of(QStringLiteral("Settings file")), QSettings().fileName());

    const QStringList features = vel::processor_features();
#if defined(Q_PROCESSOR_X86_64)
    // Every x86-64 processor has SSE2.
    QVERIFY(features.contains(QStringLiteral("sse2")));
#endif
    QCOMPARE(value_of(QStringLiteral("Processor features")),
             features.isEmpty() ? QStringLiteral("none detected") : features.join(QLatin1Char(' ')));
}

void test_information_box::box_shows_every_row()
{
    vel::information_box box;
    QStringList shown;
    for (const QLabel* label : box.findChildren<QLabel*>())
        shown << label->text();
    for (const auto& [label, value] : vel::information_box::rows()) {
        QVERIFY2(shown.contains(label), qPrintable(label));
        QVERIFY2(shown.contains(value), qPrintable(value));
    }
    QCOMPARE(box.windowTitle(), QStringLiteral("Application Information"));
}

void test_information_box::report_text_has_one_line_per_row()
{
    const QStringList lines = vel::information_box::report_text().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), vel::information_box::rows().size());
    QCOMPARE(lines.first(), QStringLiteral("Program: Stylewright"));
    QCOMPARE(lines.last(), QStringLiteral("Settings file: ") + QSettings().fileName());
}

void test_information_box::about_box_lists_the_libraries_with_their_licences()
{
    const QVector<vel::library_info> libraries = vel::default_libraries();
    QStringList names;
    for (const vel::library_info& library : libraries) {
        names << library.name;
        QVERIFY2(!library.version.isEmpty(), qPrintable(library.name));
        QVERIFY2(!library.licence.isEmpty(), qPrintable(library.name));
    }
    QCOMPARE(names, QStringList({"Qt", "libzip", "zlib", "FreeSans fonts"}));

    vel::about_dialog about;
    QCOMPARE(about.windowTitle(), QStringLiteral("About Stylewright"));
    QString shown;
    for (const QLabel* label : about.findChildren<QLabel*>())
        shown += label->text();
    for (const char* text : {"GNU Lesser General Public License v3", "BSD 3-Clause License", "zlib License",
                             "GNU General Public License v3 with font exception", zlibVersion(),
                             "support@quillmark.example", "www.quillmark.example"})
        QVERIFY2(shown.contains(QLatin1String(text)), text);
}

STYLEWRIGHT_GUI_TEST_MAIN(test_information_box)
#include "test_information_box.moc"
