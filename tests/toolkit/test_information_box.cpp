#include "gui_test_main.h"

#include "vel_toolkit/about_dialog.h"
#include "vel_toolkit/information_box.h"
#include "vel_toolkit/processor_features.h"

#include <QLabel>
#include <QSettings>
#include <QSysInfo>

#include <zip.h>
#include <zlib.h>

namespace {

QString label_texts(const QWidget& window)
{
    QStringList texts;
    for (const QLabel* label : window.findChildren<QLabel*>())
        texts << label->text();
    return texts.join('\n');
}

} // namespace

class test_information_box : public QObject {
    Q_OBJECT

private slots:
    void rows_name_program_libraries_system_and_settings()
    {
        QStringList labels;
        QStringList values;
        QStringList report;
        for (const auto& [label, value] : vel::information_box::rows()) {
            labels << label;
            values << value;
            report << label + ": " + value;
        }
        QCOMPARE(labels, QStringList({"Program", "Version", "Qt", "libzip", "zlib", "Operating system", "Processor",
                                      "Processor features", "Settings file"}));
        const QStringList features = vel::processor_features();
        QCOMPARE(values.mid(0, 2) + values.mid(3, 2) + values.mid(7),
                 QStringList({"Stylewright", "1.0.8", zip_libzip_version(), zlibVersion(),
                              features.isEmpty() ? "none detected" : features.join(' '), QSettings().fileName()}));
        QVERIFY(values[2].startsWith(qVersion()));
        QVERIFY(values[5].contains(QSysInfo::currentCpuArchitecture()));
        QVERIFY(!values[6].isEmpty());
#if defined(Q_PROCESSOR_X86_64)
        // Every x86-64 processor has SSE2.
        QVERIFY(features.contains("sse2"));
#endif
        QCOMPARE(vel::information_box::report_text(), report.join('\n') + '\n');
    }

    void boxes_show_the_rows_and_the_libraries_with_their_licences()
    {
        vel::information_box box;
        QCOMPARE(box.windowTitle(), QString("Application Information"));
        const QStringList shown = label_texts(box).split('\n');
        for (const auto& [label, value] : vel::information_box::rows())
            QVERIFY2(shown.contains(label) && shown.contains(value), qPrintable(label));

        QStringList names;
        for (const vel::library_info& library : vel::default_libraries()) {
            names << library.name;
            QVERIFY2(!library.version.isEmpty() && !library.licence.isEmpty(), qPrintable(library.name));
        }
        QCOMPARE(names, QStringList({"Qt", "libzip", "zlib", "FreeSans fonts"}));
        vel::about_dialog about;
        QCOMPARE(about.windowTitle(), QString("About Stylewright"));
        for (const char* text : {"GNU Lesser General Public License v3", "BSD 3-Clause License", "zlib License",
                                 "GNU General Public License v3 with font exception", zlibVersion(),
                                 "support@quillmark.example", "www.quillmark.example"})
            QVERIFY2(label_texts(about).contains(text), text);
    }
};

STYLEWRIGHT_GUI_TEST_SUITE(test_information_box)
#include "test_information_box.moc"
