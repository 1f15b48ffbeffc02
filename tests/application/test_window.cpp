// SPDX-License-Identifier: GPL-3.0-or-later
// The real window, driven as a person would: Qt's own dialogs are filled in,
// boxes answered, files dropped, and the files on disk and the texts shown
// are checked.
#include "support/gui_test_main.h"
#include "support/modal_answer.h"
#include "support/url_catcher.h"
#include "support/conversion_fixtures.h"
#include "support/dng_writer.h"

#include "application/dialog_settings.h"
#include "application/main_window.h"
#include "application/run_account.h"
#include "conversion/conversion_messages.h"
#include "conversion/output_format.h"
#include "vel_toolkit/message_box.h"
#include "application/settings_keys.h"
#include "application/translation_loader.h"
#include "vel_toolkit/about_dialog.h"
#include "vel_toolkit/dark_button.h"
#include "vel_toolkit/dark_palette.h"
#include "vel_toolkit/line_edit.h"
#include "vel_toolkit/qt_message_handler.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QHeaderView>
#include <QTreeWidget>
#include <QAbstractItemView>
#include <QLibraryInfo>
#include <QToolTip>
#include <QComboBox>
#include <QDesktopServices>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalBlocker>
#include <QTextEdit>
#include <QtTest>

#include <iostream>
#include <memory>

namespace {

using answers = QList<QMessageBox::StandardButton>;

QByteArray xmp(const QString& name, const QString& attributes = QString())
{
    return QStringLiteral("<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
                          "xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"><rdf:Description "
                          "xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\" crs:Exposure2012=\"+0.50\" %2>"
                          "<crs:Name><rdf:Alt><rdf:li xml:lang=\"x-default\">%1</rdf:li></rdf:Alt></crs:Name>"
                          "</rdf:Description></rdf:RDF></x:xmpmeta>")
        .arg(name, attributes)
        .toUtf8();
}

const QByteArray nested_template = "s = {\n\ttitle = \"A from template\",\n\tvalue = {\n\t\tsettings = {\n"
                                   "\t\t\tExposure2012 = 0.35,\n\t\t},\n\t},\n}\n";

// The presets a test may choose; the names tell what each one raises.
const QMap<QString, QByteArray>& presets()
{
    static const QMap<QString, QByteArray> all = {
        {QStringLiteral("plain.xmp"), xmp(QStringLiteral("Plain"))},
        {QStringLiteral("Mobile.dng"), dng::make(xmp(QStringLiteral("Mobile")))},
        {QStringLiteral("photo.dng"), dng::make(QByteArray(), {dng::byte_order::big, dng::packet_type::byte, true, true})},
        {QStringLiteral("a.xmp"), xmp(QStringLiteral("A from XMP"))},
        {QStringLiteral("b.xmp"), xmp(QStringLiteral("B"))},
        {QStringLiteral("My.Look.xmp"), xmp(QStringLiteral("My Look"))},
        {QStringLiteral("wb.xmp"), xmp(QStringLiteral("Warm"), QStringLiteral("crs:Temperature=\"5500\""))},
        {QStringLiteral("wb_cal_1.xmp"), xmp(QStringLiteral("Warm Cal"), QStringLiteral("crs:Tint=\"+4\" crs:RedHue=\"+10\""))},
        {QStringLiteral("wb_cal_2.xmp"), xmp(QStringLiteral("Cal Too"), QStringLiteral("crs:Tint=\"+4\" crs:BlueSaturation=\"-8\""))},
        {QStringLiteral("dehaze.xmp"), xmp(QStringLiteral("Hazy &lt;&amp;&gt;"), QStringLiteral("crs:Dehaze=\"+12\""))},
        {QStringLiteral("a.lrtemplate"), nested_template},
        {QStringLiteral("broken.lrtemplate"), "s = { title = \"Broken\" }"},
        {QStringLiteral("notes.txt"), "not a preset"},
        {QStringLiteral("empty.xmp"), ""},
        {QStringLiteral("blocked.xmp"), xmp(QStringLiteral("Blocked"))},
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

// Types names into a file dialog's name field and accepts it. Completion is
// kept quiet: it would select names in the list, which hands them back in its
// own order.
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

// What the person at the window does, and what the window showed.
struct session {
    QStringList chosen;        // typed into the open dialog; none cancels it
    answers replies;           // one per box; Cancel closes a question box
    QString pack_name;         // typed into the style-pack dialog; empty cancels it
    bool cancel_progress = false;

    QStringList boxes;         // "<icon>: <title>: <text>"
    QStringList open_dialog;   // caption, start folder, filters
    QStringList save_dialog;   // the same for the style-pack dialog
    QString progress_label;    // the progress dialog's text when it was cancelled
};

// The text of each visible widget against its ground, where below WCAG AA.
QStringList unreadable(QWidget* top)
{
    QStringList found;
    QList<QWidget*> widgets = top->findChildren<QWidget*>();
    widgets.prepend(top);
    for (QWidget* widget : widgets) {
        if (!widget->isVisible())
            continue;
        widget->ensurePolished();
        const auto* view = qobject_cast<QAbstractItemView*>(widget);
        const QColor text = widget->palette().color(view ? QPalette::Text : widget->foregroundRole());
        const QColor ground = widget->palette().color(view ? QPalette::Base : widget->backgroundRole());
        if (vel::contrast_ratio(text, ground) < 4.5)
            found << QStringLiteral("%1: %2 on %3").arg(QLatin1String(widget->metaObject()->className()),
                                                        text.name(), ground.name());
    }
    return found;
}

} // namespace

Q_DECLARE_METATYPE(answers)

class test_window : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void choices_are_shown_as_stored_and_one_change_stores_all_data();
    void choices_are_shown_as_stored_and_one_change_stores_all();
    void every_window_the_program_opens_is_readable();
    void log_shows_lines_written_before_it_was_first_opened();
    void texts_qt_dialogs_and_help_speak_german();
    void chosen_output_folder_is_stored_and_shown();
    void a_run_writes_what_the_answers_allow_data();
    void a_run_writes_what_the_answers_allow();
    void dropped_files_and_folders_start_a_run();
    void context_menus_lead_to_lightroom_and_capture_one();
    void progress_dialog_cancel_stops_after_the_current_preset();

private:
    void make_window(const QString& format = output_format_name(output_format::separate));
    vel::dark_button* button_with_tip(const QString& tip) const;
    void run(session& person);
    void drop(const QStringList& paths);
    void account_speaks_german();

    std::unique_ptr<QTemporaryDir> root;
    QString input;
    QString output;
    std::unique_ptr<MainWindow> window;
    QtMessageHandler framework_handler = nullptr;
    gui_test::url_catcher browser;
};

void test_window::initTestCase()
{
    // The tests fill in Qt's own dialogs; a platform's native one could not be reached.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, true);
    vel::apply_dark_palette();
    framework_handler = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(framework_handler);
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &browser, "open");
}

void test_window::init()
{
    QSettings().clear();
    browser.opened.clear();
    root = std::make_unique<QTemporaryDir>();
    input = root->path() + QStringLiteral("/in");
    output = root->path() + QStringLiteral("/out");
    QDir().mkpath(output);
    for (auto it = presets().cbegin(); it != presets().cend(); ++it)
        write_file(input + QLatin1Char('/') + it.key(), it.value());
}

void test_window::cleanup()
{
    window.reset();
    root.reset();
    qInstallMessageHandler(framework_handler);
}

void test_window::make_window(const QString& format)
{
    QSettings settings;
    settings.setValue(settings_keys::input_dir.key, input);
    settings.setValue(settings_keys::output_dir.key, output);
    settings.setValue(settings_keys::format.key, format);
    // Each window hands the standard streams back to the one before it.
    window.reset();
    window = std::make_unique<MainWindow>();
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

vel::dark_button* test_window::button_with_tip(const QString& tip) const
{
    for (vel::dark_button* button : window->findChildren<vel::dark_button*>()) {
        if (button->toolTip() == tip)
            return button;
    }
    return nullptr;
}

void test_window::run(session& person)
{
    gui_test::modal_answer answers(
        [&person](QWidget* modal) {
            if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
                const bool opening = dialog->acceptMode() == QFileDialog::AcceptOpen;
                (opening ? person.open_dialog : person.save_dialog) =
                    QStringList{dialog->windowTitle(), dialog->directory().absolutePath(),
                                dialog->nameFilters().join(QLatin1Char(';'))};
                const QString typed = opening && !person.chosen.isEmpty()
                    ? QLatin1Char('"') + person.chosen.join(QStringLiteral("\" \"")) + QLatin1Char('"')
                    : opening ? QString() : person.pack_name;
                if (typed.isEmpty())
                    dialog->reject();
                else
                    type_and_accept(dialog, typed);
            } else if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                const char* icons[] = {"none", "information", "warning", "critical", "question"};
                person.boxes << QStringLiteral("%1: %2: %3").arg(QLatin1String(icons[box->icon()]),
                                                                 box->windowTitle(), box->text());
                const auto reply = person.replies.isEmpty() ? QMessageBox::Ok : person.replies.takeFirst();
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
        },
        1000);
    vel::dark_button* convert = button_with_tip(QStringLiteral("Load Lightroom preset(s) and convert to Capture One."));
    QVERIFY(convert);
    // The whole run happens inside the click, boxes and dialogs included.
    convert->click();
    QVERIFY(convert->isEnabled());
}

void test_window::choices_are_shown_as_stored_and_one_change_stores_all_data()
{
    QTest::addColumn<int>("box");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    const QString pack_category = QStringLiteral("Stylepack with Category");
    QTest::newRow("no format") << 0 << QString() << "Separate Styles";
    QTest::newRow("stylepack") << 0 << "stylepack" << "Stylepack";
    QTest::newRow("stylepack_category") << 0 << "stylepack_category" << pack_category;
    // Any other format shows as the category pack, case differences included.
    QTest::newRow("SEPARATE") << 0 << "SEPARATE" << pack_category;
    QTest::newRow("unknown format") << 0 << "zip" << pack_category;
    QTest::newRow("no colour space") << 1 << QString() << "RAW";
    QTest::newRow("srgb") << 1 << "srgb" << "JPG/TIF/etc. sRGB";
    QTest::newRow("sRGB") << 1 << "sRGB" << "RAW";
    // The tests run without a German system language.
    QTest::newRow("no language") << 2 << QString() << "English";
    QTest::newRow("de") << 2 << "de" << "Deutsch";
    QTest::newRow("DE") << 2 << "DE" << "English";
}

void test_window::choices_are_shown_as_stored_and_one_change_stores_all()
{
    QFETCH(int, box);
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    const QString keys[] = {settings_keys::format.key, settings_keys::colour_space.key, settings_keys::lang};
    QSettings settings;
    if (!stored.isNull())
        settings.setValue(keys[box], stored);
    dialog_settings dialog(&settings);
    const auto boxes = dialog.findChildren<QComboBox*>();
    QCOMPARE(boxes.at(box)->currentText(), shown);
    dialog.show();
    dialog.close();
    // Showing is not storing.
    QCOMPARE(settings.allKeys().size(), stored.isNull() ? 0 : 1);

    // One change stores all three choices as shown.
    QComboBox* other = boxes.at((box + 1) % 3);
    other->setCurrentIndex((other->currentIndex() + 1) % other->count());
    for (int i = 0; i < 3; ++i)
        QCOMPARE(settings.value(keys[i]).toString(), boxes.at(i)->currentData().toString());
}

void test_window::every_window_the_program_opens_is_readable()
{
    make_window();
    QCOMPARE(unreadable(window.get()), QStringList());
    // Children of the main window take its style sheet, light text included.
    QFileDialog files(window.get(), QStringLiteral("Open"), input);
    QProgressDialog progress(QStringLiteral("Converting preset 1 of 2:"), QStringLiteral("Cancel"), 0, 2, window.get());
    QMessageBox box(QMessageBox::Question, QStringLiteral("Title"), QStringLiteral("Übergang"), QMessageBox::Yes,
                    window.get());
    QSettings settings;
    dialog_settings dialog(&settings, window.get());
    for (QWidget* shown : std::initializer_list<QWidget*>{&files, &progress, &box, &dialog}) {
        shown->show();
        QCOMPARE(unreadable(shown), QStringList());
    }
    auto* list = dialog.findChild<QComboBox*>();
    list->showPopup();
    QCOMPARE(unreadable(list->view()), QStringList());
    const QPalette tip = QToolTip::palette();
    QVERIFY(vel::contrast_ratio(tip.color(QPalette::ToolTipText), tip.color(QPalette::ToolTipBase)) >= 4.5);
}

void test_window::log_shows_lines_written_before_it_was_first_opened()
{
    vel::install_qt_message_handler(true, false);
    make_window();
    qDebug() << "logged before opening";
    std::cerr << "written to standard error" << std::endl;
    QTest::qWait(250);
    QTextEdit* log = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->windowTitle() == QLatin1String("Application Log"))
            log = qobject_cast<QTextEdit*>(widget);
    }
    QVERIFY(log && !log->isVisible() && log->toPlainText().isEmpty());
    QTest::keyClick(window.get(), Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(log->isVisible());
    QVERIFY(log->toPlainText().contains(QStringLiteral("Debug: logged before opening\nwritten to standard error\n")));
}

void test_window::texts_qt_dialogs_and_help_speak_german()
{
    QSettings().setValue(settings_keys::lang, QStringLiteral("de"));
    {
        const auto translators = install_translators(QStringLiteral("de"));
        make_window();
        QStringList labels;
        for (const QLabel* label : window->findChildren<QLabel*>())
            labels << label->text();
        QVERIFY2(labels.contains(QStringLiteral("Ausgabeordner")), qPrintable(labels.join(QLatin1Char('|'))));
        // The toolkit's texts come from its own translation, Qt's from Qt's.
        QCOMPARE(vel::about_dialog(window.get()).windowTitle(), QStringLiteral("Über Stylewright"));
        if (QFile::exists(QLibraryInfo::location(QLibraryInfo::TranslationsPath) + QStringLiteral("/qtbase_de.qm"))) {
            QFileDialog files(window.get());
            QCOMPARE(files.findChild<QLabel*>(QStringLiteral("lookInLabel"))->text(), QStringLiteral("Suchen in:"));
        }
        // Every question box's buttons hold their German labels whole, at 1x
        // and (as test_window_2x) at 2x.
        const question_labels answers_de = conversion_messages::translated_labels();
        QCOMPARE(answers_de.skip_all, QStringLiteral("Alle überspringen"));
        QStringList clipped;
        gui_test::modal_answer look([&](QWidget* box) {
            for (const QPushButton* button : box->findChildren<QPushButton*>()) {
                // The dark buttons' sheet pads the label by 14 pixels a side.
                if (button->isVisible() &&
                    button->fontMetrics().horizontalAdvance(button->text()) + 2 * 14 > button->width())
                    clipped << QStringLiteral("%1 (%2 px)").arg(button->text()).arg(button->width());
            }
            qobject_cast<QDialog*>(box)->reject();
        });
        vel::message_box::question(window.get(), QStringLiteral("Titel"), QStringLiteral("Text"), answers_de.convert,
                                   answers_de.skip, answers_de.convert_all, answers_de.skip_all, QMessageBox::Yes);
        QVERIFY(look.answered());
        QVERIFY2(clipped.isEmpty(), qPrintable(clipped.join(QStringLiteral(", "))));

        // The run's account speaks German too.
        account_speaks_german();

        button_with_tip(QStringLiteral("Hilfeseite zu diesem Programm anzeigen"))->click();
        QCOMPARE(browser.opened.size(), 1);
        QFile page(browser.opened.first().toLocalFile());
        QVERIFY(page.fileName().endsWith(QStringLiteral("/stylewright_help_de.html")) && page.open(QIODevice::ReadOnly));
        QVERIFY(page.readAll().contains("Einstellungen"));
        window.reset();
    }
    // The translators are gone with their owner: English again.
    make_window();
    QVERIFY(button_with_tip(QStringLiteral("Show settings dialog")));
}

// A stored folder that is gone: the chooser starts in its nearest existing
// parent with an empty name field; the folder chosen is stored and shown.
void test_window::chosen_output_folder_is_stored_and_shown()
{
    make_window();
    QSettings().setValue(settings_keys::output_dir.key, output + QStringLiteral("/gone/deeper"));
    QString seen;
    const QString chosen = root->path() + QStringLiteral("/chosen");
    QDir().mkpath(chosen);
    gui_test::modal_answer answer([&](QWidget* widget) {
        auto* dialog = qobject_cast<QFileDialog*>(widget);
        seen = dialog->windowTitle() + QLatin1Char('|') + dialog->directory().absolutePath() + QLatin1Char('|')
            + dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
        // Entering the folder with nothing selected in it chooses the folder itself.
        dialog->setDirectory(chosen);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    button_with_tip(QStringLiteral("Select the folder where the converted Lightroom presets will be saved."))->click();
    QCOMPARE(seen, QStringLiteral("Select output folder|%1|").arg(output));
    QCOMPARE(QSettings().value(settings_keys::output_dir.key).toString(), chosen);
    // Shown as the system writes paths; stored as Qt does.
    QCOMPARE(window->findChild<vel::line_edit*>()->text(), QDir::toNativeSeparators(chosen));
}

void test_window::a_run_writes_what_the_answers_allow_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("output_below_root"); // a folder other than "out", made or refused first
    QTest::addColumn<QStringList>("chosen");
    QTest::addColumn<answers>("replies");
    QTest::addColumn<QString>("pack_name");
    QTest::addColumn<QStringList>("boxes"); // how each box's "<icon>: <title>: <text>" begins
    QTest::addColumn<QStringList>("written"); // files in the output folder; pack entries after a colon
    // The account the window shows after the run: its line, the pack's line
    // (if any) and one line per preset; the temporary folders as IN and OUT.
    QTest::addColumn<QStringList>("account");

    const QString white_balance = QStringLiteral("question: White balance modified by preset: ");
    const QString calibration = QStringLiteral("question: Camera calibration modified by preset: ");
    const QStringList none;
    const QString separate = output_format_name(output_format::separate);
    const QString stylepack = output_format_name(output_format::stylepack);
    const QString stylepack_category = output_format_name(output_format::stylepack_category);
    QTest::newRow("separate styles named after their files; the later \"a\" wins")
        << separate << QString() << QStringList{"My.Look.xmp", "a.xmp", "a.lrtemplate"} << answers{} << QString()
        << none << QStringList{"My.Look.costyle", "a.costyle:A from template"}
        << QStringList{"2 converted, 1 lost to a later style of the same name, 0 skipped, 0 failed",
                       "My Look – IN/My.Look.xmp: converted into OUT/My.Look.costyle",
                       "A from XMP – IN/a.xmp: lost: replaced by the style of IN/a.lrtemplate (same file name)",
                       "A from template – IN/a.lrtemplate: converted into OUT/a.costyle"};
    QTest::newRow("a style from before the run is written over, and says so")
        << separate << QString() << QStringList{"a.xmp"} << answers{} << QString() << none << QStringList{"a.costyle"}
        << QStringList{"1 converted, 0 skipped, 0 failed",
                       "A from XMP – IN/a.xmp: converted into OUT/a.costyle, written over an earlier file"};
    QTest::newRow("open dialog cancelled") << separate << QString() << none << answers{} << QString() << none << none << QStringList{};
    QTest::newRow("Skip All silences that question, whatever else a preset raises")
        << separate << QString() << QStringList{"wb.xmp", "wb_cal_1.xmp", "plain.xmp"} << answers{QMessageBox::NoToAll}
        << QString() << QStringList{white_balance} << QStringList{"plain.costyle"}
        << QStringList{"1 converted, 2 skipped, 0 failed",
                       "Warm – IN/wb.xmp: skipped: White balance modified by preset",
                       "Warm Cal – IN/wb_cal_1.xmp: skipped (Skip All): White balance modified by preset",
                       "Plain – IN/plain.xmp: converted into OUT/plain.costyle"};
    QTest::newRow("Convert All leaves the other questions")
        << separate << QString() << QStringList{"wb_cal_1.xmp", "wb_cal_2.xmp"}
        << answers{QMessageBox::YesToAll, QMessageBox::Yes, QMessageBox::Yes} << QString()
        << QStringList{white_balance, calibration, calibration} << QStringList{"wb_cal_1.costyle", "wb_cal_2.costyle"}
        << QStringList{"2 converted, 0 skipped, 0 failed",
                       "Warm Cal – IN/wb_cal_1.xmp: converted into OUT/wb_cal_1.costyle; leaves out camera calibration",
                       "    Camera calibration: RedHue",
                       "Cal Too – IN/wb_cal_2.xmp: converted into OUT/wb_cal_2.costyle; leaves out camera calibration",
                       "    Camera calibration: BlueSaturation"};
    QTest::newRow("a closed box converts") << separate << QString() << QStringList{"wb.xmp"} << answers{QMessageBox::Cancel}
                                           << QString() << QStringList{white_balance} << QStringList{"wb.costyle"}
        << QStringList{"1 converted, 0 skipped, 0 failed",
                       "Warm – IN/wb.xmp: converted into OUT/wb.costyle"};
    QTest::newRow("dehaze, the name escaped")
        << separate << QString() << QStringList{"dehaze.xmp"} << answers{QMessageBox::Yes} << QString()
        << QStringList{"question: Unsupported parameters in preset: Your selected preset <font color=\"white\"><b>Hazy "
                       "&lt;&amp;&gt;</b></font> contains the following parameters, which can't be mapped in Capture "
                       "One:<br/>- Dehaze<br/><br/>These parameters will be ignored."}
        << QStringList{"dehaze.costyle"}
        << QStringList{"1 converted, 0 skipped, 0 failed",
                       "Hazy <&> – IN/dehaze.xmp: converted into OUT/dehaze.costyle; leaves out dehaze",
                       "    Dehaze: Dehaze"};
    QTest::newRow("unknown suffix and unreadable preset, the run goes on")
        << separate << QString() << QStringList{"notes.txt", "broken.lrtemplate", "plain.xmp"} << answers{} << QString()
        << QStringList{"critical: Unsupported preset format: Your preset <font color=\"white\"><b>notes.txt</b></font> "
                       "is in a format Stylewright can't convert.",
                       "critical: Can't read preset: Your preset <font color=\"white\"><b>broken.lrtemplate</b></font> "
                       "can't be processed by Stylewright."}
        << QStringList{"plain.costyle"}
        << QStringList{"1 converted, 0 skipped, 2 failed",
                       "IN/notes.txt: failed: Unsupported preset format",
                       "IN/broken.lrtemplate: failed: Can't read preset: Unexpected token type found. Expected token_type::comma, got token_type::rbrace",
                       "Plain – IN/plain.xmp: converted into OUT/plain.costyle"};
    QTest::newRow("a DNG preset converts; a DNG photo opens no box, its row says why")
        << separate << QString() << QStringList{"Mobile.dng", "photo.dng"} << answers{} << QString() << none
        << QStringList{"Mobile.costyle"}
        << QStringList{"1 converted, 0 skipped, 1 failed",
                       "Mobile – IN/Mobile.dng: converted into OUT/Mobile.costyle",
                       "IN/photo.dng: failed: Not a DNG preset: it holds no develop settings"};
    QTest::newRow("a missing output folder is made with its parents")
        << separate << "gone/deeper" << QStringList{"a.xmp"} << answers{} << QString() << none << QStringList{"a.costyle"}
        << QStringList{"1 converted, 0 skipped, 0 failed",
                       "A from XMP – IN/a.xmp: converted into OUT/a.costyle"};
    QTest::newRow("a folder below a file: one box, nothing read")
        << separate << "file/styles" << QStringList{"a.xmp", "broken.lrtemplate"} << answers{} << QString()
        << QStringList{"warning: Output folder can't be used: "} << none << QStringList{};
    QTest::newRow("pack entries in name order") << stylepack << QString() << QStringList{"b.xmp", "a.xmp"} << answers{}
                                                << "Looks.costylepack" << none
                                                << QStringList{"Looks.costylepack:a.costyle b.costyle"}
        << QStringList{"2 converted, 0 skipped, 0 failed",
                       "Style pack: OUT/Looks.costylepack",
                       "B – IN/b.xmp: converted into the pack as b.costyle",
                       "A from XMP – IN/a.xmp: converted into the pack as a.costyle"};
    QTest::newRow("pack with category, name typed without suffix")
        << stylepack_category << QString() << QStringList{"b.xmp", "a.xmp"} << answers{} << "Summer Looks" << none
        << QStringList{"Summer Looks.costylepack:Summer Looks/a.costyle Summer Looks/b.costyle"}
        << QStringList{"2 converted, 0 skipped, 0 failed",
                       "Style pack: OUT/Summer Looks.costylepack",
                       "B – IN/b.xmp: converted into the pack as b.costyle",
                       "A from XMP – IN/a.xmp: converted into the pack as a.costyle"};
    QTest::newRow("an empty file makes an empty style; a style that cannot be written fails quietly")
        << separate << QString() << QStringList{"empty.xmp", "blocked.xmp"} << answers{} << QString() << none
        << QStringList{"empty.costyle"}
        << QStringList{"1 converted, 0 skipped, 1 failed",
                       "IN/empty.xmp: converted into OUT/empty.costyle; empty style",
                       "Blocked – IN/blocked.xmp: failed: Can't write style: Filename refers to a directory"};
    // No file can be made in /proc, not even by root.
    const QString unwritable = QStringLiteral("/proc/Looks.costylepack");
    QTest::newRow("a pack that cannot be saved says where and why")
        << stylepack << QString() << QStringList{"a.xmp"} << answers{} << unwritable << none << none
        << QStringList{"0 converted, 1 not saved, 0 skipped, 0 failed",
                       "The style pack /proc/Looks.costylepack could not be written: "
                       "Failure to create temporary file: No such file or directory",
                       "A from XMP – IN/a.xmp: not saved: Failure to create temporary file: No such file or directory"};
    QTest::newRow("pack dialog cancelled") << stylepack << QString() << QStringList{"a.xmp"} << answers{} << QString()
                                           << none << none
        << QStringList{"0 converted, 1 not saved, 0 skipped, 0 failed",
                       "The style pack was not saved.",
                       "A from XMP – IN/a.xmp: not saved: the style pack was cancelled"};
}

void test_window::a_run_writes_what_the_answers_allow()
{
    QFETCH(QString, format);
    QFETCH(QString, output_below_root);
    QFETCH(QStringList, chosen);
    QFETCH(answers, replies);
    QFETCH(QString, pack_name);
    QFETCH(QStringList, boxes);
    QFETCH(QStringList, written);
    QFETCH(QStringList, account);

    write_file(root->path() + QStringLiteral("/file"), "not a folder");
    write_file(output + QStringLiteral("/a.costyle"), "an old style");
    // A folder where blocked.xmp's style would go: it cannot be written.
    if (chosen.contains(QStringLiteral("blocked.xmp")))
        QDir().mkpath(output + QStringLiteral("/blocked.costyle"));
    if (!output_below_root.isEmpty())
        output = root->path() + QLatin1Char('/') + output_below_root;
    make_window(format);
    session person;
    person.chosen = chosen;
    person.replies = replies;
    person.pack_name = pack_name;
    run(person);

    QCOMPARE(person.open_dialog, (QStringList{"Load Lightroom Template", input,
                                              "Lightroom Templates(*.lrtemplate *.xmp);All Presets and Archives(*.lrtemplate *.xmp *.dng *.zip);Zip Archives of Presets(*.zip)"}));
    QCOMPARE(person.save_dialog.isEmpty(), format == output_format_name(output_format::separate) || chosen.isEmpty());
    QCOMPARE(person.boxes.size(), boxes.size());
    for (int i = 0; i < boxes.size(); ++i)
        QVERIFY2(person.boxes.at(i).startsWith(boxes.at(i)), qPrintable(person.boxes.at(i)));
    QStringList found;
    for (const QString& file : files_in(output)) {
        QFile content(output + QLatin1Char('/') + file);
        QVERIFY(content.open(QIODevice::ReadOnly));
        const QByteArray text = content.readAll();
        if (text == "an old style")
            continue;
        QString entry = file;
        if (file.endsWith(QLatin1String(".costylepack"))) {
            entry += QLatin1Char(':') + fixtures::zip_entries(content.fileName()).join(QLatin1Char(' '));
        } else if (text.contains("A from template")) {
            entry += QStringLiteral(":A from template");
        }
        found << entry;
    }
    QCOMPARE(found, written);

    const auto* shown = window->findChild<run_account*>();
    QStringList told;
    // Paths as the system writes them, read back with '/' to compare.
    if (shown->isVisible())
        told = QDir::fromNativeSeparators(shown->plain_text()).replace(root->path() + QStringLiteral("/in"), QStringLiteral("IN"))
                   .replace(output, QStringLiteral("OUT")).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(told, account);
}

void test_window::dropped_files_and_folders_start_a_run()
{
    const QString folder = root->path() + QStringLiteral("/dropped");
    write_file(folder + QStringLiteral("/deep/inside/x.xmp"), xmp(QStringLiteral("X")));
    write_file(folder + QStringLiteral("/y.LRTemplate"), nested_template);
    write_file(folder + QStringLiteral("/._y.xmp"), "a companion file, not a preset");
    write_file(folder + QStringLiteral("/readme.txt"), "not a preset");
    make_window();

    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(folder), QUrl::fromLocalFile(input + QStringLiteral("/b.xmp"))});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);

    // The dropped folder's tree is mirrored; the dropped file is written flat.
    QTRY_COMPARE(files_in(output), (QStringList{QStringLiteral("b.costyle"), QStringLiteral("y.costyle")}));
    QVERIFY(QFileInfo::exists(output + QStringLiteral("/deep/inside/x.costyle")));
    QCOMPARE(QSettings().value(settings_keys::input_dir.key).toString(), folder + QStringLiteral("/deep/inside"));

    // The account's buttons: the folder opens in the file manager, the text
    // goes to the clipboard as it reads.
    auto* account = window->findChild<run_account*>();
    QTRY_VERIFY(account->isVisible());
    QCOMPARE(account->summary(), QStringLiteral("3 converted, 0 skipped, 0 failed"));
    QVERIFY(button_with_tip(QStringLiteral("Show the folder the styles were written to"))->isEnabled());
    button_with_tip(QStringLiteral("Show the folder the styles were written to"))->click();
    QCOMPARE(browser.opened, QList<QUrl>{QUrl::fromLocalFile(output)});
    button_with_tip(QStringLiteral("Copy this account as plain text"))->click();
    QCOMPARE(QApplication::clipboard()->text(), account->plain_text());
    QVERIFY(account->plain_text().startsWith(QStringLiteral("3 converted, 0 skipped, 0 failed\n")));

    // Two dropped folders that each hold a Vintage: the second does not
    // replace the first, it gets its folder's name.
    write_file(root->path() + QStringLiteral("/Film 1/Vintage.xmp"), xmp(QStringLiteral("One")));
    write_file(root->path() + QStringLiteral("/Film 2/Vintage.xmp"), xmp(QStringLiteral("Two")));
    this->drop({root->path() + QStringLiteral("/Film 1"), root->path() + QStringLiteral("/Film 2")});
    QTRY_COMPARE(account->summary(), QStringLiteral("2 converted, 0 skipped, 0 failed"));
    QVERIFY(QFileInfo::exists(output + QStringLiteral("/Vintage.costyle")));
    QVERIFY(QFileInfo::exists(output + QStringLiteral("/Vintage (Film 2).costyle")));

    // A folder holding a zip with a zip inside: read like folders named
    // after the archives.
    const QString packs = root->path() + QStringLiteral("/Packs");
    QDir().mkpath(packs);
    const QString inner = fixtures::write_file(root->path(), QStringLiteral("inner/Deep.xmp"), xmp(QStringLiteral("Deep")));
    fixtures::make_zip(packs + QStringLiteral("/Pack.zip"),
                       {{QStringLiteral("Top.xmp"), xmp(QStringLiteral("Top"))},
                        {QStringLiteral("More/Inner.zip"),
                         fixtures::zip_bytes({{QStringLiteral("Looks/Deep.xmp"), fixtures::read_file(inner)}})}});
    this->drop({packs});
    QTRY_VERIFY(QFileInfo::exists(output + QStringLiteral("/Pack/More/Inner/Looks/Deep.costyle")));
    QVERIFY(QFileInfo::exists(output + QStringLiteral("/Pack/Top.costyle")));
    QTRY_COMPARE(account->outcomes().size(), 2);

    // A new run clears the last one's counts at once and fills them in as
    // it goes: nothing at the first question, one preset at the next.
    QStringList counts_at_questions;
    {
        gui_test::modal_answer answers(
            [&](QWidget* modal) {
                if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                    counts_at_questions << account->summary();
                    box->button(QMessageBox::Yes)->click();
                }
            },
            1000);
        this->drop({input + QStringLiteral("/wb.xmp"), input + QStringLiteral("/wb_cal_1.xmp")});
        QTRY_COMPARE(counts_at_questions.size(), 3);
        QTRY_COMPARE(account->outcomes().size(), 2);
    }
    QCOMPARE(counts_at_questions, (QStringList{QString(), QStringLiteral("1 converted, 0 skipped, 0 failed"),
                                               QStringLiteral("1 converted, 0 skipped, 0 failed")}));

    // The list sorts by a click on a column's header, the other way round
    // at the next, and the copied text keeps the run's order.
    auto* list = account->findChild<QTreeWidget*>(QStringLiteral("account_list"));
    QVERIFY(list);
    const auto column_texts = [list](int column) {
        QStringList texts;
        for (int row = 0; row < list->topLevelItemCount(); ++row)
            texts << list->topLevelItem(row)->text(column);
        return texts;
    };
    QCOMPARE(column_texts(3), (QStringList{QStringLiteral("wb.xmp"), QStringLiteral("wb_cal_1.xmp")}));
    QHeaderView* header = list->header();
    const auto click_header = [header](int column) {
        QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(header->sectionViewportPosition(column) + 5, header->height() / 2));
    };
    click_header(0);
    const QStringList ascending = column_texts(0);
    click_header(0);
    QCOMPARE(column_texts(0), (QStringList{QStringLiteral("Warm Cal"), QStringLiteral("Warm")}));
    QCOMPARE(ascending, (QStringList{QStringLiteral("Warm"), QStringLiteral("Warm Cal")}));
    QVERIFY(account->plain_text().indexOf(QStringLiteral("wb.xmp")) < account->plain_text().indexOf(QStringLiteral("wb_cal_1.xmp")));

    // A folder without presets: said so, nothing else; files of known kinds
    // that are no presets are named.
    QDir().mkpath(root->path() + QStringLiteral("/nothing"));
    this->drop({root->path() + QStringLiteral("/nothing")});
    QTRY_COMPARE(account->summary(), QStringLiteral("No presets found"));
    QVERIFY(account->outcomes().isEmpty());
    write_file(root->path() + QStringLiteral("/luts/Film.cube"), "LUT_3D_SIZE 2");
    this->drop({root->path() + QStringLiteral("/luts")});
    QTRY_COMPARE(account->summary(), QStringLiteral("No preset found in this folder, only files Stylewright does not "
                                                    "convert: 1 LUT (.cube)."));
}

namespace {

// What a context menu offered (each entry's text, whether it could be
// chosen, and its tip), choosing the entry named choose.
struct menu_entry {
    QString text;
    bool enabled;
    QString tip;
};

QVector<menu_entry> open_context_menu(QWidget* button, const QString& choose = QString())
{
    QVector<menu_entry> entries;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        poll.stop();
        QAction* chosen = nullptr;
        for (QAction* action : menu->actions()) {
            entries.append({action->text(), action->isEnabled(), action->toolTip()});
            if (action->text() == choose && action->isEnabled())
                chosen = action;
        }
        if (chosen) {
            menu->setActiveAction(chosen);
            QTest::keyClick(menu, Qt::Key_Return);
        } else {
            menu->close();
        }
    });
    poll.start(20);
    // As the menu key sends it.
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5));
    QApplication::sendEvent(button, &event);
    return entries;
}

} // namespace

void test_window::context_menus_lead_to_lightroom_and_capture_one()
{
    const QString home = root->path() + QStringLiteral("/home");
    const editor_folders mac = editor_folders_for(folder_layout::macos, {home, QString(), QString()});
    const auto make_window_with = [this](const editor_folders& folders) {
        QSettings settings;
        settings.setValue(settings_keys::output_dir.key, output);
        window.reset();
        window = std::make_unique<MainWindow>(folders);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    };
    vel::dark_button* convert = nullptr;
    vel::dark_button* folder = nullptr;
    const auto find_buttons = [&] {
        convert = button_with_tip(QStringLiteral("Load Lightroom preset(s) and convert to Capture One."));
        folder = button_with_tip(QStringLiteral("Select the folder where the converted Lightroom presets will be saved."));
        QVERIFY(convert && folder);
    };

    // Nothing found: both entries greyed, each saying where it looked.
    make_window_with(mac);
    find_buttons();
    const auto shown = [&home](const char* below) {
        return QDir::toNativeSeparators(home + QStringLiteral("/Library/Application Support") + QLatin1String(below));
    };
    QVector<menu_entry> offered = open_context_menu(convert);
    QCOMPARE(offered.size(), 1);
    QCOMPARE(offered[0].text, QStringLiteral("Convert Lightroom's presets"));
    QVERIFY(!offered[0].enabled);
    QCOMPARE(offered[0].tip, QStringLiteral("Not found: %1, %2")
                                 .arg(shown("/Adobe/CameraRaw/Settings"), shown("/Adobe/Lightroom/Develop Presets")));
    offered = open_context_menu(folder);
    QCOMPARE(offered.size(), 1);
    QCOMPARE(offered[0].text, QStringLiteral("Capture One's styles folder"));
    QVERIFY(!offered[0].enabled);
    QCOMPARE(offered[0].tip, QStringLiteral("Not found: %1").arg(shown("/Capture One/Styles")));
    make_window_with(editor_folders_for(folder_layout::none, {}));
    find_buttons();
    QCOMPARE(open_context_menu(convert).value(0).tip,
             QStringLiteral("Lightroom and Capture One run only on macOS and Windows; their folders are not looked for here."));

    // Found: the styles folder becomes the output folder, and Lightroom's
    // presets go into their groups' folders there.
    write_file(mac.lightroom_presets.at(0) + QStringLiteral("/Plain.xmp"),
               xmp(QStringLiteral("Plain"), QStringLiteral("crs:Contrast2012=\"10\"")).replace(
                   "</rdf:Description>", "<crs:Group><rdf:Alt><rdf:li xml:lang=\"x-default\">Film?</rdf:li></rdf:Alt></crs:Group></rdf:Description>"));
    write_file(mac.lightroom_presets.at(1) + QStringLiteral("/Old/Nested.lrtemplate"), nested_template);
    QDir().mkpath(mac.capture_one_styles);
    make_window_with(mac);
    find_buttons();
    QCOMPARE(open_context_menu(folder, QStringLiteral("Capture One's styles folder")).value(0).enabled, true);
    QCOMPARE(QSettings().value(settings_keys::output_dir.key).toString(), mac.capture_one_styles);
    QCOMPARE(window->findChild<vel::line_edit*>()->text(), QDir::toNativeSeparators(mac.capture_one_styles));
    open_context_menu(convert, QStringLiteral("Convert Lightroom's presets"));
    auto* account = window->findChild<run_account*>();
    QTRY_COMPARE(account->outcomes().size(), 2);
    QVERIFY(QFileInfo::exists(mac.capture_one_styles + QStringLiteral("/Film%3F/Plain.costyle")));
    QVERIFY(QFileInfo::exists(mac.capture_one_styles + QStringLiteral("/Old/Nested.costyle")));
    QCOMPARE(account->closing_line(), QStringLiteral("Restart Capture One to see the new styles."));
    QVERIFY(account->plain_text().endsWith(QStringLiteral("Restart Capture One to see the new styles.\n")));

    // Into any other folder, the folders the presets were found in, and no restart.
    QSettings().setValue(settings_keys::output_dir.key, output);
    make_window_with(mac);
    find_buttons();
    open_context_menu(convert, QStringLiteral("Convert Lightroom's presets"));
    account = window->findChild<run_account*>();
    QTRY_COMPARE(account->outcomes().size(), 2);
    QVERIFY(QFileInfo::exists(output + QStringLiteral("/Plain.costyle")));
    QVERIFY(QFileInfo::exists(output + QStringLiteral("/Old/Nested.costyle")));
    QVERIFY(account->closing_line().isEmpty());
}

void test_window::account_speaks_german()
{
    QDir().mkpath(root->path() + QStringLiteral("/leer"));
    drop({root->path() + QStringLiteral("/leer")});
    QCOMPARE(window->findChild<run_account*>()->summary(), QStringLiteral("Keine Presets gefunden"));
    drop({input + QStringLiteral("/plain.xmp"), input + QStringLiteral("/empty.xmp")});
    auto* account = window->findChild<run_account*>();
    QTRY_COMPARE(account->summary(), QStringLiteral("2 konvertiert, 0 übersprungen, 0 fehlgeschlagen"));
    QVERIFY2(account->plain_text().contains(QStringLiteral("konvertiert in ")) &&
                 account->plain_text().contains(QStringLiteral("leerer Stil")),
             qPrintable(account->plain_text()));
    QVERIFY(unreadable(window.get()).isEmpty());
}

void test_window::drop(const QStringList& paths)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls << QUrl::fromLocalFile(path);
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    QDropEvent drop(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);
}

void test_window::progress_dialog_cancel_stops_after_the_current_preset()
{
    session person;
    for (int i = 0; i < 600; ++i) {
        person.chosen << QStringLiteral("many/%1.xmp").arg(i, 3, 10, QLatin1Char('0'));
        write_file(input + QLatin1Char('/') + person.chosen.last(), xmp(QStringLiteral("Plain")));
    }
    make_window();
    person.cancel_progress = true;
    run(person);

    // "Converting preset <n> of 600:\n<file>": the n-th preset was being
    // converted when Cancel was pressed; it is the last one written.
    const QRegularExpressionMatch match =
        QRegularExpression(QStringLiteral("^Converting preset (\\d+) of 600:\\n(\\d{3})\\.xmp$")).match(person.progress_label);
    QVERIFY2(match.hasMatch(), qPrintable(person.progress_label));
    const int current = match.captured(1).toInt();
    QVERIFY(current < 600 && match.captured(2).toInt() == current - 1);
    QCOMPARE(files_in(output).size(), current);
    QCOMPARE(files_in(output).last(), QStringLiteral("%1.costyle").arg(current - 1, 3, 10, QLatin1Char('0')));
}

STYLEWRIGHT_GUI_TEST_MAIN(test_window)
#include "test_window.moc"
