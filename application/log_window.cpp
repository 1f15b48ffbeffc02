// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/log_window.h"

#include "vel_toolkit/dark_style.h"
#include "vel_toolkit/qt_message_handler.h"

#include <QScrollBar>
#include <QStyle>
#include <QStyleFactory>
#include <QTextCursor>
#include <QTextEdit>

#include <iostream>
#include <mutex>

namespace {

// Period of moving new log text into the window: often enough to feel live,
// seldom enough to cost nothing.
constexpr int timer_period_ms = 100;
constexpr QSize window_size(800, 300);

} // namespace

log_window::log_window()
    : saved_output_(std::cout.rdbuf(stream_.rdbuf())), saved_error_(std::cerr.rdbuf(stream_.rdbuf())),
      window_(std::make_unique<QTextEdit>())
{
    // For reading and copying; typed text would mix with what was logged.
    window_->setReadOnly(true);
    window_->resize(window_size);
    window_->setStyleSheet(
        QStringLiteral("background-color:rgb(47,47,47);color:rgb(184,196,191);border-color:rgb(99,99,99);"));
    window_->setWindowTitle(QStringLiteral("Application Log"));
    // Closing the log only hides it; the program ends with the main window.
    window_->setAttribute(Qt::WA_QuitOnClose, false);
    // Fusion draws the field and its scroll bars alike on every system:
    // Windows' own style would paint the field's ground white from the
    // system theme, whatever the style sheet says.
    QStyle* fusion = QStyleFactory::create(QStringLiteral("fusion"));
    if (fusion) {
        fusion->setParent(window_.get());
        window_->setStyle(fusion);
    }
    for (QScrollBar* bar : {window_->verticalScrollBar(), window_->horizontalScrollBar()}) {
        if (fusion)
            bar->setStyle(fusion);
        bar->setStyleSheet(vel::dark_style::scroll_bar_sheet());
    }

    timer_.setInterval(timer_period_ms);
    connect(&timer_, &QTimer::timeout, this, &log_window::move_text_to_window);
    timer_.start();
}

log_window::~log_window()
{
    timer_.stop();
    std::cout.rdbuf(saved_output_);
    std::cerr.rdbuf(saved_error_);
}

void log_window::show()
{
    // The window may take the focus as it opens, and the timer leaves a
    // focused window alone: what is pending comes in now.
    append_pending_text();
    window_->show();
    window_->raise();
    window_->activateWindow();
}

void log_window::move_text_to_window()
{
    // A hidden window needs no text yet, and a focused one may hold the
    // user's selection: the text waits in the buffer until neither is so.
    if (!window_->isVisible() || window_->hasFocus())
        return;
    append_pending_text();
}

void log_window::append_pending_text()
{
    QString text;
    {
        const std::lock_guard<std::mutex> lock(vel::log_write_mutex());
        const std::string pending = stream_.str();
        if (pending.empty())
            return;
        text = QString::fromStdString(pending);
        stream_.str(std::string());
    }
    QTextCursor end(window_->document());
    end.movePosition(QTextCursor::End);
    end.insertText(text);
    window_->verticalScrollBar()->setValue(window_->verticalScrollBar()->maximum());
}
