#include "gui_test_main.h"

#include "vel_toolkit/about_dialog.h"
#include "vel_toolkit/information_box.h"
#include "vel_toolkit/processor_features.h"

#include <QLabel>
#include <QSettings>

namespace {

QStringList label_texts(const QWidget& window)
{
    QStringList texts;
    for (const QLabel* label : window.findChildren<QLabel*>())
        texts << label->text();
    return texts;
}

} // namespace

class test_information_box : public QObject {
    Q_OBJECT

private slots:
    void support_information_is_shown_and_copied_one_row_a_line()
    {
        const vel::information_box box;
        QCOMPARE(box.windowTitle(), QString("Application Information"));
        QStringList labels;
        QString report;
        for (const auto& [label, value] : vel::information_box::rows()) {
            QVERIFY2(label_texts(box).contains(label) && label_texts(box).contains(value), qPrintable(label));
            labels << label;
            report += label + ": " + value + '\n';
        }
        QCOMPARE(labels, QStringList({"Program", "Version", "Qt", "libzip", "zlib", "Operating system", "Processor",
                                      "Processor features", "Settings file"}));
        QCOMPARE(vel::information_box::report_text(), report);
        QVERIFY(report.startsWith("Program: Stylewright\nVersion: 1.0.8\n"));
        QVERIFY(report.endsWith("\nSettings file: " + QSettings().fileName() + '\n'));
#if defined(Q_PROCESSOR_X86_64)
        // Every x86-64 processor has SSE2.
        QVERIFY(vel::processor_features().contains("sse2"));
#endif
    }

    void about_box_names_the_libraries_with_their_licences()
    {
        const vel::about_dialog about;
        QCOMPARE(about.windowTitle(), QString("About Stylewright"));
        const QString shown = label_texts(about).join('\n');
        QStringList names;
        for (const vel::library_info& library : vel::default_libraries()) {
            names << library.name;
            QVERIFY2(shown.contains(library.version) && shown.contains(library.licence), qPrintable(library.name));
        }
        QCOMPARE(names, QStringList({"Qt", "libzip", "zlib", "FreeSans fonts"}));
        for (const char* text : {"GNU Lesser General Public License v3", "BSD 3-Clause License", "zlib License",
                                 "GNU General Public License v3 with font exception", "support@quillmark.example",
                                 "www.quillmark.example"})
            QVERIFY2(shown.contains(text), text);
    }
};

STYLEWRIGHT_GUI_TEST_SUITE(test_information_box)
#include "test_information_box.moc"
