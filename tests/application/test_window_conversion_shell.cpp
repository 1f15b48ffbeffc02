// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/gui_test_main.h"
#include "support/modal_answer.h"

#include "application/main_window.h"
#include "application/settings_keys.h"
#include "vel_toolkit/dark_button.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalBlocker>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest>

#include <memory>

// Conversion runs in the real window: the open dialog, the question and
// failure boxes, the style-pack dialog, drops and the progress dialog are
// answered as a person would, and the files on disk are checked.

namespace {

using answers = QList<QMessageBox::StandardButton>;

const QString convert_tip = QStringLiteral("Load Lightroom preset(s) and convert to Capture One.");

QByteArray xmp(const QString& name, const QString& attributes)
{
    return QStringLiteral("<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
                          "xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"><rdf:Description "
                          "xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\" crs:Exposure2012=\"+0.50\" %2>"
                          "<crs:Name><rdf:Alt><rdf:li xml:lang=\"x-default\">%1</rdf:li></rdf:Alt></crs:Name>"
                          "</rdf:Description></rdf:RDF></x:xmpmeta>")
        .arg(name, attributes)
        .toUtf8();
}

// The presets a test may choose: file name -> content. The names tell what
// each one raises.
const QMap<QString, QByteArray>& presets()
{
    static const QMap<QString, QByteArray> all = {
        {QStringLiteral("plain.xmp"), xmp(QStringLiteral("Plain"), QString())},
        {QStringLiteral("a.xmp"), xmp(QStringLiteral("A from XMP"), QString())},
        {QStringLiteral("b.xmp"), xmp(QStringLiteral("B"), QString())},
        {QStringLiteral("My.Look.xmp"), xmp(QStringLiteral("My Look"), QString())},
        {QStringLiteral("wb.xmp"), xmp(QStringLiteral("Warm"), QStringLiteral("crs:Temperature=\"5500\""))},
        {QStringLiteral("wb_cal_1.xmp"),
         xmp(QStringLiteral("Warm Calibrated"), QStringLiteral("crs:Tint=\"+4\" crs:RedHue=\"+10\""))},
        {QStringLiteral("wb_cal_2.xmp"),
         xmp(QStringLiteral("Warm Calibrated Too"), QStringLiteral("crs:Tint=\"+4\" crs:BlueSaturation=\"-8\""))},
        {QStringLiteral("dehaze.xmp"), xmp(QStringLiteral("Hazy"), QStringLiteral("crs:Dehaze=\"+12\""))},
        {QStringLiteral("a.lrtemplate"),
         "s = {\n\ttitle = \"A from template\",\n\tvalue = {\n\t\tsettings = {\n\t\t\tExposure2012 = 0.35,\n"
         "\t\t},\n\t},\n}\n"},
        {QStringLiteral("broken.lrtemplate"), "s = { title = \"Broken\" }"},
        {QStringLiteral("notes.txt"), "not a preset"},
    };
    return all;
}

void write_file(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QStringList files_in(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files, QDir::Name);
}

QString read_text(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString kind_of(const QMessageBox* box)
{
    if (box->icon() == QMessageBox::Question)
        return QStringLiteral("question");
    return box->icon() == QMessageBox::Critical ? QStringLiteral("critical") : QStringLiteral("other");
}

// Types names into a file dialog's name field and accepts it. The field's
// completion is kept quiet: it would select the names in the list, and the
// list hands them back in its own order rather than in the typed one.
void type_and_accept(QFileDialog* dialog, const QString& names)
{
    auto* field = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    QVERIFY(field);
    dialog->findChild<QListView*>(QStringLiteral("listView"))->clearSelection();
    {
        const QSignalBlocker quiet(field);
        field->setText(names);
    }
    QMetaObject::invokeMethod(dialog, "accept");
}

// What the person at the window does and what the window showed.
struct session {
    QStringList chosen;    // typed into the open dialog, in this order
    answers replies;       // one per message box; Cancel closes a question box
    QString pack_name;     // typed into the style-pack dialog; empty cancels it
    bool cancel_progress = false;

    QStringList boxes; // "question: <title>", "critical: <title>", ...
    QStringList texts;
    QStringList open_dialog;  // caption, start folder, filters
    QStringList save_dialog;  // the same for the style-pack dialog
    QString progress_label;   // the progress dialog's text when it was cancelled
};

} // namespace

Q_DECLARE_METATYPE(answers)

class test_window_conversion_shell : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void separate_styles_are_named_after_their_files_and_overwritten();
    void boxes_and_answers_decide_what_is_written_data();
    void boxes_and_answers_decide_what_is_written();
    void stylepack_entries_are_in_name_order_data();
    void stylepack_entries_are_in_name_order();
    void dropped_files_and_folders_start_a_run();
    void progress_dialog_cancel_stops_after_the_current_preset();
    void output_folder_is_made_or_refused_before_anything_is_read();
    void pack_name_without_suffix_gets_it();

private:
    void make_window(const QString& format);
    void run(session& person);
    void handle(QWidget* modal, session& person);

    std::unique_ptr<QTemporaryDir> root;
    QString input;
    QString output;
    std::unique_ptr<MainWindow> window;
};

void test_window_conversion_shell::initTestCase()
{
    // The tests fill in Qt's own dialogs; a platform's native one could not be reached.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, true);
}

void test_window_conversion_shell::init()
{
    QSettings().clear();
    root = std::make_unique<QTemporaryDir>();
    input = root->path() + QStringLiteral("/in");
    output = root->path() + QStringLiteral("/out");
    QDir().mkpath(output);
    for (auto it = presets().cbegin(); it != presets().cend(); ++it)
        write_file(input + QLatin1Char('/') + it.key(), it.value());
}

void test_window_conversion_shell::cleanup()
{
    window.reset();
    root.reset();
}

void test_window_conversion_shell::make_window(const QString& format)
{
    QSettings settings;
    settings.setValue(settings_keys::input_dir.key, input);
    settings.setValue(settings_keys::output_dir.key, output);
    settings.setValue(QStringLiteral("format"), format);
    // Each window hands the standard streams back to the one before it.
    window.reset();
    window = std::make_unique<MainWindow>();
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

void test_window_conversion_shell::handle(QWidget* modal, session& person)
{
    if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
        const QStringList seen{dialog->windowTitle(), dialog->directory().absolutePath(),
                               dialog->nameFilters().join(QLatin1Char(';'))};
        if (dialog->acceptMode() == QFileDialog::AcceptOpen) {
            person.open_dialog = seen;
            type_and_accept(dialog, QLatin1Char('"') + person.chosen.join(QStringLiteral("\" \"")) +
                                        QLatin1Char('"'));
        } else {
            person.save_dialog = seen;
            if (person.pack_name.isEmpty())
                dialog->reject();
            else
                type_and_accept(dialog, person.pack_name);
        }
    } else if (auto* box = qobject_cast<QMessageBox*>(modal)) {
        person.boxes << kind_of(box) + QStringLiteral(": ") + box->windowTitle();
        person.texts << box->text();
        const QMessageBox::StandardButton reply =
            person.replies.isEmpty() ? QMessageBox::Ok : person.replies.takeFirst();
        if (reply == QMessageBox::Cancel)
            box->close(); // the window's close control
        else
            box->button(reply)->click();
    } else if (auto* progress = qobject_cast<QProgressDialog*>(modal)) {
        if (person.cancel_progress && person.progress_label.isEmpty()) {
            person.progress_label = progress->labelText();
            progress->findChild<QPushButton*>()->click();
        }
    }
}

void test_window_conversion_shell::run(session& person)
{
    gui_test::modal_answer answers([&](QWidget* modal) { handle(modal, person); }, 1000);
    vel::dark_button* convert = nullptr;
    for (vel::dark_button* button : window->findChildren<vel::dark_button*>()) {
        if (button->toolTip() == convert_tip)
            convert = button;
    }
    QVERIFY(convert);
    // The whole run happens inside the click, boxes and dialogs included.
    convert->click();
    QVERIFY(convert->isEnabled());
}

void test_window_conversion_shell::separate_styles_are_named_after_their_files_and_overwritten()
{
    write_file(output + QStringLiteral("/a.costyle"), "an old style");
    make_window(QStringLiteral("separate"));
    session person;
    person.chosen = QStringList{QStringLiteral("My.Look.xmp"), QStringLiteral("a.xmp"), QStringLiteral("a.lrtemplate")};
    run(person);

    QCOMPARE(person.open_dialog,
             (QStringList{QStringLiteral("Load Lightroom Template"), input,
                          QStringLiteral("Lightroom Templates(*.lrtemplate *.xmp)")}));
    QCOMPARE(person.boxes, QStringList());
    QVERIFY(person.save_dialog.isEmpty());
    QCOMPARE(files_in(output), (QStringList{QStringLiteral("My.Look.costyle"), QStringLiteral("a.costyle")}));
    // The later of the two presets named "a" wins, without a question.
    const QString a = read_text(output + QStringLiteral("/a.costyle"));
    QVERIFY2(a.contains(QStringLiteral("A from template")), qPrintable(a));
    QVERIFY(read_text(output + QStringLiteral("/My.Look.costyle")).contains(QStringLiteral("My Look")));
    QCOMPARE(QSettings().value(settings_keys::input_dir.key).toString(), input);
}

void test_window_conversion_shell::boxes_and_answers_decide_what_is_written_data()
{
    QTest::addColumn<QStringList>("chosen");
    QTest::addColumn<answers>("replies");
    QTest::addColumn<QStringList>("boxes");
    QTest::addColumn<QStringList>("written");
    QTest::addColumn<QStringList>("text_starts"); // how the boxes' texts begin, where it matters

    const QString white_balance = QStringLiteral("question: White balance modified by preset");
    const QString calibration = QStringLiteral("question: Camera calibration modified by preset");
    QTest::newRow("Skip All silences that question, whatever else a preset raises")
        << QStringList{QStringLiteral("wb.xmp"), QStringLiteral("wb_cal_1.xmp"), QStringLiteral("plain.xmp")}
        << answers{QMessageBox::NoToAll} << QStringList{white_balance} << QStringList{QStringLiteral("plain.costyle")}
        << QStringList();
    QTest::newRow("Convert All leaves the other questions")
        << QStringList{QStringLiteral("wb_cal_1.xmp"), QStringLiteral("wb_cal_2.xmp")}
        << answers{QMessageBox::YesToAll, QMessageBox::Yes, QMessageBox::Yes}
        << QStringList{white_balance, calibration, calibration}
        << QStringList{QStringLiteral("wb_cal_1.costyle"), QStringLiteral("wb_cal_2.costyle")} << QStringList();
    QTest::newRow("a closed box converts") << QStringList{QStringLiteral("wb.xmp")} << answers{QMessageBox::Cancel}
                                           << QStringList{white_balance} << QStringList{QStringLiteral("wb.costyle")}
                                           << QStringList();
    QTest::newRow("dehaze alone") << QStringList{QStringLiteral("dehaze.xmp")} << answers{QMessageBox::Yes}
                                  << QStringList{QStringLiteral("question: Unsupported parameters in preset")}
                                  << QStringList{QStringLiteral("dehaze.costyle")}
                                  << QStringList{QStringLiteral(
                                         "Your selected preset <font color=\"white\"><b>Hazy</b></font> contains the "
                                         "following parameters, which can't be mapped in Capture One:<br/>- Dehaze"
                                         "<br/><br/>These parameters will be ignored.")};
    QTest::newRow("unknown suffix and unreadable preset, the run goes on")
        << QStringList{QStringLiteral("notes.txt"), QStringLiteral("broken.lrtemplate"), QStringLiteral("plain.xmp")}
        << answers{QMessageBox::Ok, QMessageBox::Ok}
        << QStringList{QStringLiteral("critical: Unsupported preset format"),
                       QStringLiteral("critical: Can't read preset")}
        << QStringList{QStringLiteral("plain.costyle")}
        << QStringList{QStringLiteral("Your preset <font color=\"white\"><b>notes.txt</b></font> is in a format "
                                      "Stylewright can't convert."),
                       QStringLiteral("Your preset <font color=\"white\"><b>broken.lrtemplate</b></font> can't be "
                                      "processed by Stylewright.")};
}

void test_window_conversion_shell::boxes_and_answers_decide_what_is_written()
{
    QFETCH(QStringList, chosen);
    QFETCH(answers, replies);
    QFETCH(QStringList, boxes);
    QFETCH(QStringList, written);
    QFETCH(QStringList, text_starts);

    make_window(QStringLiteral("separate"));
    session person;
    person.chosen = chosen;
    person.replies = replies;
    run(person);

    QCOMPARE(person.boxes, boxes);
    QCOMPARE(files_in(output), written);
    for (int i = 0; i < text_starts.size(); ++i)
        QVERIFY2(person.texts.at(i).startsWith(text_starts.at(i)), qPrintable(person.texts.at(i)));
}

void test_window_conversion_shell::stylepack_entries_are_in_name_order_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("pack_name");
    QTest::addColumn<QStringList>("entries");

    QTest::newRow("stylepack") << QStringLiteral("stylepack") << QStringLiteral("Looks.costylepack")
                               << QStringList{QStringLiteral("a.costyle"), QStringLiteral("b.costyle")};
    QTest::newRow("with category") << QStringLiteral("stylepack_category")
                                   << QStringLiteral("Summer Looks.costylepack")
                                   << QStringList{QStringLiteral("Summer Looks/a.costyle"),
                                                  QStringLiteral("Summer Looks/b.costyle")};
    QTest::newRow("save dialog cancelled") << QStringLiteral("stylepack") << QString() << QStringList();
}

void test_window_conversion_shell::stylepack_entries_are_in_name_order()
{
    QFETCH(QString, format);
    QFETCH(QString, pack_name);
    QFETCH(QStringList, entries);

    make_window(format);
    session person;
    person.chosen = QStringList{QStringLiteral("b.xmp"), QStringLiteral("a.xmp")};
    person.pack_name = pack_name;
    run(person);

    QCOMPARE(person.save_dialog, (QStringList{QStringLiteral("Name Capture One Stylepack"), output,
                                              QStringLiteral("Capture One Stylepack(*.costylepack)")}));
    if (pack_name.isEmpty()) {
        QCOMPARE(files_in(output), QStringList());
        return;
    }
    QCOMPARE(files_in(output), QStringList{pack_name});
    QProcess zipinfo;
    zipinfo.start(QStringLiteral("zipinfo"), {QStringLiteral("-1"), output + QLatin1Char('/') + pack_name});
    QVERIFY2(zipinfo.waitForFinished(), "zipinfo is part of the unzip package");
    QCOMPARE(QString::fromUtf8(zipinfo.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts),
             entries);
}

void test_window_conversion_shell::dropped_files_and_folders_start_a_run()
{
    const QString folder = root->path() + QStringLiteral("/dropped");
    write_file(folder + QStringLiteral("/deep/inside/x.xmp"), xmp(QStringLiteral("X"), QString()));
    write_file(folder + QStringLiteral("/y.LRTemplate"), presets().value(QStringLiteral("a.lrtemplate")));
    write_file(folder + QStringLiteral("/._y.xmp"), "a companion file, not a preset");
    write_file(folder + QStringLiteral("/readme.txt"), "not a preset");
    make_window(QStringLiteral("separate"));

    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(folder), QUrl::fromLocalFile(input + QStringLiteral("/b.xmp"))});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);
    QVERIFY(drop.isAccepted());

    // The dropped folder's tree is mirrored; the dropped file is written flat.
    QTRY_COMPARE(files_in(output), (QStringList{QStringLiteral("b.costyle"), QStringLiteral("y.costyle")}));
    QVERIFY(QFileInfo::exists(output + QStringLiteral("/deep/inside/x.costyle")));
    QCOMPARE(QSettings().value(settings_keys::input_dir.key).toString(), folder + QStringLiteral("/deep/inside"));
}

void test_window_conversion_shell::progress_dialog_cancel_stops_after_the_current_preset()
{
    const int count = 200;
    QStringList chosen;
    for (int i = 0; i < count; ++i) {
        const QString name = QStringLiteral("many/%1.xmp").arg(i, 3, 10, QLatin1Char('0'));
        write_file(input + QLatin1Char('/') + name, presets().value(QStringLiteral("plain.xmp")));
        chosen << name;
    }
    make_window(QStringLiteral("separate"));
    session person;
    person.chosen = chosen;
    person.cancel_progress = true;
    run(person);

    // "Converting preset <n> of 200:\n<file>": the n-th preset was being
    // converted when Cancel was pressed; it is the last one written.
    const QRegularExpression shown(QStringLiteral("^Converting preset (\\d+) of 200:\\n(\\d{3})\\.xmp$"));
    const QRegularExpressionMatch match = shown.match(person.progress_label);
    QVERIFY2(match.hasMatch(), qPrintable(person.progress_label));
    const int current = match.captured(1).toInt();
    QVERIFY(current < count);
    QCOMPARE(match.captured(2).toInt(), current - 1);
    QCOMPARE(files_in(output).size(), current);
    QCOMPARE(files_in(output).last(), QStringLiteral("%1.costyle").arg(current - 1, 3, 10, QLatin1Char('0')));
}

STYLEWRIGHT_GUI_TEST_MAIN(test_window_conversion_shell)
#include "test_window_conversion_shell.moc"

void test_window_conversion_shell::output_folder_is_made_or_refused_before_anything_is_read()
{
    // A folder that is gone is made again, with its parents, and the styles land in it.
    output = root->path() + QStringLiteral("/gone/deeper");
    make_window(QStringLiteral("separate"));
    session made;
    made.chosen = QStringList{QStringLiteral("a.xmp")};
    run(made);
    QCOMPARE(made.boxes, QStringList());
    QCOMPARE(files_in(output), QStringList{QStringLiteral("a.costyle")});

    // Below a file no folder can be: one box names it, and no preset is read.
    write_file(root->path() + QStringLiteral("/file"), "not a folder");
    output = root->path() + QStringLiteral("/file/styles");
    make_window(QStringLiteral("separate"));
    session refused;
    refused.chosen = QStringList{QStringLiteral("a.xmp"), QStringLiteral("broken.lrtemplate")};
    run(refused);
    QCOMPARE(refused.boxes, QStringList{QStringLiteral("other: Output folder can't be used")});
    QVERIFY(refused.texts.constFirst().contains(QStringLiteral("/file/styles")));
    QVERIFY(!QFileInfo::exists(output));
}

void test_window_conversion_shell::pack_name_without_suffix_gets_it()
{
    make_window(QStringLiteral("stylepack"));
    session person;
    person.chosen = QStringList{QStringLiteral("a.xmp")};
    person.pack_name = QStringLiteral("Summer Looks");
    run(person);
    QCOMPARE(files_in(output), QStringList{QStringLiteral("Summer Looks.costylepack")});
}
