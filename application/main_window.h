// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/log_window.h"
#include "conversion/editor_folders.h"
#include "conversion/preset_source.h"

#include <QFont>
#include <QMainWindow>
#include <QMap>
#include <QSettings>
#include <QStringList>

#include <memory>

class QDragEnterEvent;
class QDropEvent;
class QGridLayout;
class run_account;

namespace vel {
class dark_button;
class line_edit;
}

// The program's one working window: the header with settings, about and
// help, the output-folder row and the convert button. It also owns the
// "Application Log" window, which shows everything written to the standard
// streams while the main window exists. Presets come through the convert
// button or are dropped onto the window; either way one conversion run takes
// them, and only one runs at a time.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    // folders: where Lightroom and Capture One keep this user's files.
    explicit MainWindow(const editor_folders& folders, QWidget* parent = nullptr);
    ~MainWindow() override;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private slots:
    void on_button_convert_clicked();
    void on_button_output_folder_clicked();
    void on_button_settings_clicked();
    void on_button_about_clicked();
    void on_button_help_clicked();
    // The context menus of the convert and the output-folder button.
    void show_convert_menu(const QPoint& where);
    void show_output_folder_menu(const QPoint& where);

private:
    void setup_fonts();
    void setup_layout();
    void setup_top_bar(QGridLayout* grid);
    QString output_folder() const;
    void set_output_folder(const QString& folder);
    // Whether the output folder is Capture One's own styles folder, whose
    // subfolders are its style groups.
    bool output_is_capture_one() const;
    void convert_presets(const QVector<preset_source>& files);
    void report_archive_failures(const QVector<archive_failure>& failures);
    // Asks for the pack's file and writes it; false when nothing was written.
    bool save_stylepack(const QMap<QString, QString>& entries, bool with_category);
    void fit_height();

    // Declared first: constructed before anything can log, destroyed last.
    log_window log;

    QFont text_font;
    QFont bold_font;
    QSettings settings;
    const editor_folders editors;
    vel::line_edit* output_folder_field = nullptr;
    vel::dark_button* convert_button = nullptr;
    vel::dark_button* output_folder_button = nullptr;
    run_account* account = nullptr;
    // The last style pack asked for, and why it was not written.
    QString pack_path_tried;
    QString pack_failure;
    // Set while a conversion run goes on: its progress reports let events
    // through, and none of them may start a second run inside the first.
    bool converting = false;
};
