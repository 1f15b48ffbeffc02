// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/window_conversion_shell.h"

#include "application/run_account.h"
#include "application/settings_keys.h"
#include "vel_toolkit/dark_style.h"
#include "vel_toolkit/message_box.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFileInfo>
#include <QFontMetrics>
#include <QLabel>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QSettings>
#include <QWidget>

namespace {

// Runs up to this many presets are over in about a second (or wait on the
// user's answers): a progress dialog would only flash. Longer ones get one.
constexpr int progress_dialog_threshold = 30;

// Repainting the window for every preset of a long run would cost more time
// than converting it; this often keeps the window and the dialog live.
constexpr qint64 repaint_interval_ms = 30;

// The progress dialog keeps its width while file names of any length pass
// through its label; longer names are shortened in the middle.
constexpr int progress_label_width = 380;
// The dialog lays its parts out edge to edge; the label gets its own air.
constexpr QMargins progress_label_margins(0, 8, 0, 4);

question_answer answer_of(QMessageBox::StandardButton button)
{
    switch (button) {
    case QMessageBox::Yes:
        return question_answer::convert;
    case QMessageBox::No:
        return question_answer::skip;
    case QMessageBox::YesToAll:
        return question_answer::convert_all;
    case QMessageBox::NoToAll:
        return question_answer::skip_all;
    default:
        return question_answer::closed;
    }
}

QString progress_bar_sheet()
{
    return QStringLiteral("QProgressBar{background-color:rgb(30,30,30);color:rgb(198,213,210);"
                          "border:1px solid rgb(20,20,20);border-radius:3px;text-align:center;}"
                          "QProgressBar::chunk{background-color:rgb(74,143,219);border-radius:2px;}");
}

} // namespace

window_conversion_shell::window_conversion_shell(QWidget* window, QSettings& settings, run_account* account)
    : window_(window), settings_(settings), account_(account)
{
    since_repaint_.start();
}

window_conversion_shell::~window_conversion_shell()
{
    finish();
}

question_answer window_conversion_shell::ask(const conversion_question& question)
{
    show_current_preset();
    const question_labels& labels = question.labels;
    return answer_of(vel::message_box::question(window_, question.title, question.text, labels.convert, labels.skip,
                                                labels.convert_all, labels.skip_all, QMessageBox::Yes));
}

void window_conversion_shell::report_failure(const conversion_failure& failure)
{
    switch (failure.kind) {
    case failure_kind::unsupported_format:
    case failure_kind::unreadable_preset:
        show_current_preset();
        vel::message_box::critical(window_, failure.title, failure.text, QMessageBox::Ok, QMessageBox::Ok);
        break;
    case failure_kind::conversion_failed:
        show_current_preset();
        vel::message_box::warning(window_, failure.title, failure.text, QMessageBox::Ok, QMessageBox::Ok);
        break;
    case failure_kind::no_develop_settings:
    case failure_kind::write_failed:
        // The window never stops a run with a box for a style it could not
        // write, nor for each photo of a folder of DNGs; the reason goes to
        // the account's row and the log window rather than being lost.
        qWarning().noquote() << failure.title + QStringLiteral(": ") + failure.plain;
        break;
    }
}

void window_conversion_shell::report_outcome(const preset_outcome& outcome)
{
    if (account_)
        account_->add(outcome);
}

void window_conversion_shell::report_lost(const preset_outcome& earlier)
{
    if (account_)
        account_->update(earlier);
}

QString window_conversion_shell::output_folder()
{
    return settings_.value(settings_keys::output_dir.key, settings_keys::output_dir.default_value).toString();
}

bool window_conversion_shell::cancelled()
{
    return progress_dialog_ && progress_dialog_->wasCanceled();
}

void window_conversion_shell::progress(int index, int count, const QString& file)
{
    current_index_ = index;
    count_ = count;
    current_file_ = file;
    if (index == 0 && count > progress_dialog_threshold)
        open_progress_dialog(count);
    if (index > 0 && since_repaint_.elapsed() < repaint_interval_ms)
        return;
    show_current_preset();
    // Without a dialog nothing in the window may be used during the run (it
    // would start things inside it): only painting. With the dialog the
    // window is blocked by it, and its Cancel button must work.
    QCoreApplication::processEvents(progress_dialog_ ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    since_repaint_.restart();
}

void window_conversion_shell::finish()
{
    delete progress_dialog_.data();
}

void window_conversion_shell::open_progress_dialog(int count)
{
    auto* dialog = new QProgressDialog(window_);
    progress_dialog_ = dialog;
    dialog->setWindowTitle(QCoreApplication::translate("MainWindow", "Converting presets"));
    dialog->setStyleSheet(vel::dark_style::dialog_sheet());
    // On the bar itself: through the dialog the main window's sheet would win
    // and leave the bar's groove in the light platform look.
    auto* bar = new QProgressBar(dialog);
    bar->setStyleSheet(progress_bar_sheet());
    dialog->setBar(bar);

    // Plain text: a file name is shown as it is, whatever characters it holds.
    progress_label_ = new QLabel(dialog);
    progress_label_->setTextFormat(Qt::PlainText);
    progress_label_->setFixedWidth(progress_label_width);
    progress_label_->setContentsMargins(progress_label_margins);
    dialog->setLabel(progress_label_);

    auto* cancel = new QPushButton(QCoreApplication::translate("MainWindow", "Cancel"), dialog);
    cancel->setStyleSheet(vel::dark_style::text_button_sheet());
    dialog->setCancelButton(cancel);

    dialog->setRange(0, count);
    // The dialog stays until the run is over, whatever its value; the run
    // closes it.
    dialog->setAutoClose(false);
    dialog->setAutoReset(false);
    dialog->setMinimumDuration(0);
    // Blocks the main window (no second run, no settings change in the
    // middle of one) but leaves the log window usable; the question boxes
    // open in front of it.
    dialog->setWindowModality(Qt::WindowModal);
    dialog->show();
}

void window_conversion_shell::show_current_preset()
{
    // A cancelled dialog has closed; setting a value would show it again.
    if (!progress_dialog_ || progress_dialog_->wasCanceled())
        return;
    const QString name = progress_label_->fontMetrics().elidedText(QFileInfo(current_file_).fileName(),
                                                                   Qt::ElideMiddle, progress_label_width);
    progress_dialog_->setLabelText(QCoreApplication::translate("MainWindow", "Converting preset %1 of %2:\n%3")
                                       .arg(QString::number(current_index_ + 1), QString::number(count_), name));
    progress_dialog_->setValue(current_index_);
}
