// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/conversion_run.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QString>

class QLabel;
class QProgressDialog;
class QSettings;
class QWidget;
class run_account;

// How a conversion run speaks to the user in the window: questions and
// failures as message boxes over the main window, the output folder from the
// stored settings, and for long runs a progress dialog whose Cancel ends the
// run after the preset being converted. Between presets it lets the window
// repaint, so a long run never looks frozen.
class window_conversion_shell final : public conversion_shell {
public:
    // account, when given, receives every preset's outcome.
    window_conversion_shell(QWidget* window, QSettings& settings, run_account* account = nullptr);
    ~window_conversion_shell() override;

    window_conversion_shell(const window_conversion_shell&) = delete;
    window_conversion_shell& operator=(const window_conversion_shell&) = delete;

    question_answer ask(const conversion_question& question) override;
    void report_failure(const conversion_failure& failure) override;
    void report_outcome(const preset_outcome& outcome) override;
    void report_lost(const preset_outcome& earlier) override;
    QString output_folder() override;
    bool cancelled() override;
    void progress(int index, int count, const QString& file) override;

    // Closes the progress dialog; called when the run is over, before the
    // style-pack dialog opens.
    void finish();

private:
    void open_progress_dialog(int count);
    // Brings the progress dialog to the preset being converted.
    void show_current_preset();

    QWidget* window_;
    QSettings& settings_;
    run_account* account_;
    // Deleted by finish() or with the window, whichever comes first.
    QPointer<QProgressDialog> progress_dialog_;
    QLabel* progress_label_ = nullptr; // owned by the progress dialog
    QElapsedTimer since_repaint_;
    int current_index_ = 0;
    int count_ = 0;
    QString current_file_;
};
