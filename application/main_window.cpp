// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/main_window.h"

#include "conversion/conversion_run.h"
#include "application/dialog_settings.h"
#include "conversion/conversion_messages.h"
#include "application/dropped_presets.h"
#include "conversion/preset_outcome.h"
#include "application/run_account.h"
#include "application/settings_keys.h"
#include "conversion/output_folder.h"
#include "conversion/stylepack_writer.h"
#include "application/window_conversion_shell.h"
#include "vel_toolkit/about_dialog.h"
#include "vel_toolkit/app_nap.h"
#include "vel_toolkit/dark_button.h"
#include "vel_toolkit/dark_style.h"
#include "vel_toolkit/help.h"
#include "vel_toolkit/icon_loader.h"
#include "vel_toolkit/information_box.h"
#include "vel_toolkit/language.h"
#include "vel_toolkit/line_edit.h"
#include "vel_toolkit/message_box.h"
#include "vel_toolkit/qt_message_handler.h"
#include "vel_toolkit/stk_layout.h"

#include <QApplication>
#include <QDebug>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QScopeGuard>
#include <QScrollBar>
#include <QShortcut>
#include <QStyle>
#include <QStyleFactory>
#include <QTextCursor>
#include <QTextEdit>

#include <algorithm>
#include <functional>
#include <iostream>

namespace {



// Header bar: a picture strip of this height, shifted down by the margin.
constexpr int header_height = 42;
constexpr int header_top_margin = 4;

constexpr QSize header_button_size(27, 26);
constexpr QSize logo_size(354, 27);
constexpr QSize open_button_size(23, 22);
constexpr QSize convert_button_size(88, 54);
constexpr int field_height = 22;
constexpr int field_minimum_width = 290;

constexpr int text_font_size = 12;
constexpr int bold_font_size = 14;
constexpr int bold_font_weight = 75;

// The window's sizes are in pixels. On macOS a font point is one pixel, so
// the sizes are points there; elsewhere (96 dots per inch) the same point
// size would be a third larger than the fields made for it, so the size is
// given in pixels for the same look.
void set_font_size(QFont& font, int size)
{
#ifdef Q_OS_MACOS
    font.setPointSize(size);
#else
    font.setPixelSize(size);
#endif
}

// The family name a font file registers, or the fallback when the file is
// missing. FreeSansBold.ttf registers as the bold face of "FreeSans".
QString register_font(const QString& resource, const QString& fallback_family)
{
    const int id = QFontDatabase::addApplicationFont(resource);
    const QStringList families = QFontDatabase::applicationFontFamilies(id);
    return families.isEmpty() ? fallback_family : families.first();
}

struct font_families {
    QString text;
    QString bold;
};

// The embedded fonts, registered once per process.
const font_families& embedded_fonts()
{
    static const font_families families{
        register_font(QStringLiteral(":/images/FreeSans.ttf"), QStringLiteral("FreeSans")),
        register_font(QStringLiteral(":/images/FreeSansBold.ttf"), QStringLiteral("FreeSansBold")),
    };
    return families;
}

} // namespace

MainWindow::MainWindow(QWidget* parent) : MainWindow(this_system_editor_folders(), parent) {}

MainWindow::MainWindow(const editor_folders& folders, QWidget* parent)
    : QMainWindow(parent), editors(folders)
{
    auto* log_shortcut = new QShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_L), this);
    log_shortcut->setContext(Qt::ApplicationShortcut);
    connect(log_shortcut, &QShortcut::activated, &log, &log_window::show);

    setup_fonts();
    setup_layout();

    auto* information_shortcut = new QShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_G), this);
    information_shortcut->setContext(Qt::ApplicationShortcut);
    connect(information_shortcut, &QShortcut::activated, this, [this] { vel::information_box::show_modal(this); });

    setWindowTitle(QCoreApplication::applicationName());
    setAcceptDrops(true);
    fit_height();
}

void MainWindow::fit_height()
{
    // Wider is fine, taller only adds empty space. The account of a run
    // makes the window taller while it is shown.
    centralWidget()->layout()->activate();
    setFixedHeight(sizeHint().height());
}

MainWindow::~MainWindow() = default;

void MainWindow::setup_fonts()
{
    text_font = QFont(embedded_fonts().text);
    set_font_size(text_font, text_font_size);
    bold_font = QFont(embedded_fonts().bold);
    bold_font.setWeight(bold_font_weight);
    set_font_size(bold_font, bold_font_size);
    QApplication::setFont(text_font);
}

void MainWindow::setup_layout()
{
    auto* central = new QWidget(this);
    auto* grid = new stk::qt::layout(central);
    setCentralWidget(central);
    setStyleSheet(QStringLiteral("MainWindow{background-color:rgb(47,47,47);} *{color:rgb(198,213,210);}"));

    setup_top_bar(grid);

    auto* body = grid->cell_layout(1, 0, new stk::qt::layout(nullptr, {10, 20, 10, 20}, {6, 5}));
    const QString folder_tip = tr("Select the folder where the converted Lightroom presets will be saved.");

    auto* label = body->cell(0, 1, new QLabel(tr("Output Folder"), central));
    label->setFont(bold_font);
    label->setToolTip(folder_tip);

    output_folder_field = body->cell(1, 1, new vel::line_edit(central));
    output_folder_field->setReadOnly(true);
    output_folder_field->setFixedHeight(field_height);
    output_folder_field->setMinimumWidth(field_minimum_width);
    output_folder_field->setText(QDir::toNativeSeparators(output_folder()));
    output_folder_field->setToolTip(folder_tip);

    auto* open_button = body->cell(1, 0, new vel::dark_button(QString(), central));
    open_button->setFixedSize(open_button_size);
    open_button->set_icon_path(QStringLiteral(":/images/icon_open.png"));
    open_button->setToolTip(folder_tip);
    connect(open_button, &QPushButton::clicked, this, &MainWindow::on_button_output_folder_clicked);
    output_folder_button = open_button;

    convert_button = body->cell(0, 2, new vel::dark_button(QString(), central), 2, 2);
    convert_button->setFixedSize(convert_button_size);
    convert_button->set_icon_path(QStringLiteral(":/images/icon_convert.png"));
    convert_button->setToolTip(tr("Load Lightroom preset(s) and convert to Capture One."));
    connect(convert_button, &QPushButton::clicked, this, &MainWindow::on_button_convert_clicked);

    // A left click does what it always did; the move from Lightroom is one
    // right click (or the menu key) away on the same buttons.
    convert_button->setAccessibleDescription(tr("Its context menu converts Lightroom's own presets."));
    open_button->setAccessibleDescription(tr("Its context menu chooses Capture One's styles folder."));
    for (vel::dark_button* button : {convert_button, open_button})
        button->setContextMenuPolicy(Qt::CustomContextMenu);
    convert_button->setObjectName(QStringLiteral("convert_button"));
    open_button->setObjectName(QStringLiteral("output_folder_button"));
    connect(convert_button, &QWidget::customContextMenuRequested, this, &MainWindow::show_convert_menu);
    connect(open_button, &QWidget::customContextMenuRequested, this, &MainWindow::show_output_folder_menu);

    account = body->cell(2, 0, new run_account(central), 1, 4);
    connect(account, &run_account::height_changed, this, &MainWindow::fit_height);
}

void MainWindow::setup_top_bar(QGridLayout* grid)
{
    auto* header = new QWidget(centralWidget());
    header->setObjectName(QStringLiteral("header"));
    header->setAttribute(Qt::WA_StyledBackground, true);
    header->setStyleSheet(QStringLiteral("#header{margin-top: %1px;background-image: "
                                         "url(:/images/head_small_dark_without_shadow.png);}")
                              .arg(header_top_margin));
    header->setFixedHeight(header_height);
    grid->addWidget(header, 0, 0);

    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(10, 4, 10, 0);
    row->setSpacing(8);

    auto add_header_button = [&](const QString& icon, const QString& tip, void (MainWindow::*slot)()) {
        auto* button = new vel::dark_button(QStringLiteral("header"), header);
        button->setFixedSize(header_button_size);
        button->set_icon_path(icon);
        button->setToolTip(tip);
        connect(button, &QPushButton::clicked, this, slot);
        row->addWidget(button);
    };

    add_header_button(QStringLiteral(":/images/icon_settings.png"), tr("Show settings dialog"),
                      &MainWindow::on_button_settings_clicked);

    auto* logo = new QLabel(header);
    logo->setFixedSize(logo_size);
    logo->setPixmap(vel::load_pixmap(QStringLiteral(":/images/logo_small.png"), devicePixelRatioF()));
    row->addWidget(logo);
    row->addStretch(1);

    add_header_button(QStringLiteral(":/images/icon_about.png"), tr("Show information about this program"),
                      &MainWindow::on_button_about_clicked);
    add_header_button(QStringLiteral(":/images/icon_help.png"), tr("Display the help page for this program"),
                      &MainWindow::on_button_help_clicked);
}

QString MainWindow::output_folder() const
{
    return settings.value(settings_keys::output_dir.key, settings_keys::output_dir.default_value).toString();
}

void MainWindow::set_output_folder(const QString& folder)
{
    settings.setValue(settings_keys::output_dir.key, folder);
    output_folder_field->setText(QDir::toNativeSeparators(folder));
}

bool MainWindow::output_is_capture_one() const
{
    if (editors.capture_one_styles.isEmpty())
        return false;
    const auto same = [](const QString& path) { return QDir::cleanPath(QFileInfo(path).absoluteFilePath()); };
    return same(output_folder()) == same(editors.capture_one_styles);
}

namespace {

// Where the program looked for folders of its own, for a greyed entry's tip.
QString looked_for(const editor_folders& folders, const QStringList& paths)
{
    if (folders.layout == folder_layout::none)
        return QCoreApplication::translate("MainWindow", "Lightroom and Capture One run only on macOS and Windows; "
                                                         "their folders are not looked for here.");
    QStringList shown;
    for (const QString& path : paths)
        shown << QDir::toNativeSeparators(path);
    return QCoreApplication::translate("MainWindow", "Not found: %1").arg(shown.join(QStringLiteral(", ")));
}

// A menu of one entry at the button, greyed with its reason when it can't be used.
void show_one_entry_menu(QWidget* button, const QPoint& where, const QString& text, bool usable,
                         const QString& reason, const std::function<void()>& action)
{
    QMenu menu(button);
    menu.setToolTipsVisible(true);
    // Dark like the window; a greyed entry must read as greyed at a glance.
    menu.setStyleSheet(QStringLiteral("QMenu{background-color:rgb(37,37,37);color:rgb(198,213,210);"
                                      "border:1px solid rgb(20,20,20);padding:3px;}"
                                      "QMenu::item{padding:4px 18px;}"
                                      "QMenu::item:selected{background-color:rgb(74,110,150);color:white;}"
                                      "QMenu::item:disabled{color:rgb(112,118,118);}"));
    QAction* entry = menu.addAction(text);
    entry->setEnabled(usable);
    if (!usable)
        entry->setToolTip(reason);
    QObject::connect(entry, &QAction::triggered, button, action);
    menu.exec(button->mapToGlobal(where));
}

} // namespace

void MainWindow::show_convert_menu(const QPoint& where)
{
    const QStringList found = editors.existing_lightroom_presets();
    show_one_entry_menu(convert_button, where, tr("Convert Lightroom's presets"), !found.isEmpty() && !converting,
                        looked_for(editors, editors.lightroom_presets), [this, found] {
                            const gathered_presets gathered = gather_presets(found);
                            report_archive_failures(gathered.archive_failures);
                            if (gathered.presets.isEmpty())
                                account->show_nothing_found();
                            else
                                convert_presets(gathered.presets);
                        });
}

void MainWindow::show_output_folder_menu(const QPoint& where)
{
    show_one_entry_menu(output_folder_button, where, tr("Capture One's styles folder"),
                        editors.capture_one_styles_exist(), looked_for(editors, {editors.capture_one_styles}),
                        [this] { set_output_folder(editors.capture_one_styles); });
}

namespace {

// The files of known kinds that are no presets, in every folder and archive
// that held no preset.
other_files others_in(const gathered_presets& gathered)
{
    other_files all;
    for (const empty_place& place : gathered.empty_folders) {
        for (auto it = place.others.cbegin(); it != place.others.cend(); ++it)
            all[it.key()] += it.value();
    }
    return all;
}

} // namespace

void MainWindow::on_button_convert_clicked()
{
    // A folder that is gone would leave its name typed into the dialog.
    const QString start_folder = nearest_existing_folder(
        settings.value(settings_keys::input_dir.key, settings_keys::input_dir.default_value).toString());
    // Presets of every kind and zip archives of them are further choices; an
    // archive converts as a dropped one does.
    const QStringList files = QFileDialog::getOpenFileNames(
        this, tr("Load Lightroom Template"), start_folder,
        tr("Lightroom Templates(*.lrtemplate *.xmp)") + QStringLiteral(";;") +
            tr("All Presets and Archives(*.lrtemplate *.xmp *.dng *.zip)") + QStringLiteral(";;") +
            tr("Zip Archives of Presets(*.zip)"));
    if (files.isEmpty())
        return;
    // The files stay flat; an archive gives its presets with their folders.
    const gathered_presets chosen = gather_picked_presets(files);
    report_archive_failures(chosen.archive_failures);
    if (chosen.presets.isEmpty()) {
        account->show_nothing_found(others_in(chosen));
        return;
    }
    convert_presets(chosen.presets);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (converting || !event->mimeData()->hasUrls())
        return;
    const QList<QUrl> urls = event->mimeData()->urls();
    if (std::any_of(urls.cbegin(), urls.cend(), [](const QUrl& url) { return url.isLocalFile(); }))
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    if (converting)
        return;
    const gathered_presets dropped = dropped_presets(event->mimeData()->urls());
    event->acceptProposedAction();
    if (dropped.presets.isEmpty() && dropped.archive_failures.isEmpty()) {
        account->show_nothing_found(others_in(dropped));
        return;
    }
    // Started from the event loop, not inside the drop: the run opens modal
    // boxes, and the program the files were dragged from would wait for the
    // drop to end all that time.
    QTimer::singleShot(0, this, [this, dropped] {
        report_archive_failures(dropped.archive_failures);
        if (dropped.presets.isEmpty())
            account->show_nothing_found(others_in(dropped));
        else
            convert_presets(dropped.presets);
    });
}

namespace {

// The folder of a preset, or for an archive's entry the nearest folder that
// exists on disk (the archive's own).
QString existing_folder_of(const QString& path)
{
    QFileInfo folder(QFileInfo(path).absolutePath());
    while (!folder.isDir() && !folder.isRoot())
        folder.setFile(folder.absolutePath());
    return folder.absoluteFilePath();
}

} // namespace

void MainWindow::report_archive_failures(const QVector<archive_failure>& failures)
{
    if (failures.isEmpty())
        return;
    // Every refusal goes to the log; the box names the first few, since a
    // hostile archive may hold thousands.
    constexpr int listed_in_box = 8;
    QStringList lines;
    for (const archive_failure& failure : failures) {
        const QString where =
            failure.entry.isEmpty() ? failure.archive : failure.archive + QLatin1Char('/') + failure.entry;
        qWarning().noquote() << where + QStringLiteral(": ") + failure.reason;
        if (lines.size() < listed_in_box)
            lines << conversion_messages::wrap_name(QFileInfo(where).fileName()) + QStringLiteral(": ") + failure.reason.toHtmlEscaped();
    }
    if (failures.size() > listed_in_box)
        lines << tr("… and %1 more, listed in the application log.").arg(failures.size() - listed_in_box);
    vel::message_box::warning(this, tr("Presets not read from archive"), lines.join(QStringLiteral("<br/>")),
                              QMessageBox::Ok, QMessageBox::Ok);
}

void MainWindow::convert_presets(const QVector<preset_source>& files)
{
    if (files.isEmpty() || converting)
        return;
    // macOS must not nap the program while presets are converted.
    const vel::app_nap_suppressor keep_awake(QStringLiteral("Converting Lightroom presets"));
    settings.setValue(settings_keys::input_dir.key, existing_folder_of(files.first().path));

    conversion_options options;
    // Any format but "separate" is a pack; an unknown one a plain pack.
    options.format = parse_output_format(settings.value(settings_keys::format.key, settings_keys::format.default_value).toString())
                         .value_or(output_format::stylepack);
    options.colour_space =
        settings.value(settings_keys::colour_space.key, settings_keys::colour_space.default_value).toString();

    // Separate styles need a folder to go to: made, and tried, before the
    // first preset is read, so a run never ends with nothing written silently.
    if (options.format == output_format::separate) {
        const QString reason = prepare_output_folder(output_folder());
        if (!reason.isEmpty()) {
            vel::message_box::warning(
                this, tr("Output folder can't be used"),
                tr("The output folder %1 can't be used for the styles.<br/>%2")
                    .arg(conversion_messages::wrap_name(output_folder()), reason.toHtmlEscaped()),
                QMessageBox::Ok, QMessageBox::Ok);
            return;
        }
    }

    converting = true;
    convert_button->setEnabled(false);
    const auto run_over = qScopeGuard([this] {
        convert_button->setEnabled(true);
        converting = false;
    });

    // The account tells what each style leaves out.
    options.learn_losses = true;
    // Into Capture One's own styles folder, Lightroom's groups become its style groups.
    const bool to_capture_one = options.format == output_format::separate && output_is_capture_one();
    options.lightroom_groups = to_capture_one;
    account->begin();
    conversion_result result;
    {
        window_conversion_shell shell(this, settings, account);
        result = run_conversion(files, options, shell);
    }
    const outcome_counts counts = result.counts();
    qInfo().noquote() << QStringLiteral("Conversion run: %1 converted, %2 lost, %3 skipped, %4 failed%5")
                             .arg(counts.converted)
                             .arg(counts.lost)
                             .arg(counts.skipped)
                             .arg(counts.failed)
                             .arg(result.cancelled ? QStringLiteral(", cancelled") : QString());
    const bool separate = options.format == output_format::separate;
    if (separate || result.pack_entries.isEmpty()) {
        account->show_run(result.counts(), separate ? output_folder() : QString());
        if (to_capture_one && counts.converted > 0)
            account->show_closing_line(conversion_messages::restart_capture_one());
        return;
    }
    const bool with_category = options.format == output_format::stylepack_category;
    if (!save_stylepack(result.pack_entries, with_category)) {
        // Cancelling the dialog drops the styles by design; every row says
        // its style was not saved, and why.
        const QString reason = pack_path_tried.isEmpty() ? conversion_messages::pack_cancelled() : pack_failure;
        for (const preset_outcome& outcome : result.pack_not_saved(reason))
            account->update(outcome);
        account->show_run(result.counts(), QString());
        account->pack_not_written(pack_path_tried, pack_failure);
    } else {
        account->show_run(result.counts(), QString());
        account->pack_written(pack_path_tried);
    }
}

bool MainWindow::save_stylepack(const QMap<QString, QString>& entries, bool with_category)
{
    pack_path_tried.clear();
    pack_failure.clear();
    if (entries.isEmpty())
        return false;
    QFileDialog dialog(this, tr("Name Capture One Stylepack"), nearest_existing_folder(output_folder()) + QLatin1Char('/'),
                       tr("Capture One Stylepack(*.costylepack)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // A name typed without it gets it, where the dialog is Qt's own.
    dialog.setDefaultSuffix(QStringLiteral("costylepack"));
    // Cancelled: the styles were only collected, so the run leaves nothing behind.
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    pack_path_tried = dialog.selectedFiles().constFirst();
    // Failures are warning lines in the log and a line in the run's account;
    // the user sees no box for them.
    if (write_stylepack(pack_path_tried, entries, with_category, &pack_failure))
        return true;
    qWarning().noquote() << QStringLiteral("%1: The style pack could not be written: %2.").arg(pack_path_tried, pack_failure);
    return false;
}

void MainWindow::on_button_output_folder_clicked()
{
    const QString folder =
        QFileDialog::getExistingDirectory(this, tr("Select output folder"),
                                          nearest_existing_folder(output_folder()) + QLatin1Char('/'));
    if (folder.isEmpty())
        return;
    set_output_folder(folder);
}

void MainWindow::on_button_settings_clicked()
{
    const QString previous_language = vel::get_language_suffix(settings_keys::lang);
    dialog_settings dialog(&settings, this);
    dialog.exec();
    vel::ask_for_application_restart_if_language_changed(this, previous_language);
}

void MainWindow::on_button_about_clicked()
{
    vel::about_dialog dialog(this);
    dialog.exec();
}

void MainWindow::on_button_help_clicked()
{
    vel::open_help(QStringLiteral(":/help/index_%1.html"));
}
