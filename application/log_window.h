// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include <memory>
#include <sstream>
#include <streambuf>

class QTextEdit;

// The "Application Log": while it exists, everything written to the standard
// streams (the Qt message handler writes there) is collected, and shown in a
// window of its own when asked for. The streams are handed back when it goes.
class log_window : public QObject {
    Q_OBJECT

public:
    log_window();
    ~log_window() override;

    log_window(const log_window&) = delete;
    log_window& operator=(const log_window&) = delete;

public slots:
    // Shows the window with everything logged so far and brings it forward.
    void show();

private:
    void move_text_to_window();
    void append_pending_text();

    // Declared first: collecting starts before the window exists.
    std::stringstream stream_;
    std::streambuf* saved_output_ = nullptr;
    std::streambuf* saved_error_ = nullptr;
    // No parent: a window of its own, deleted with the log.
    std::unique_ptr<QTextEdit> window_;
    QTimer timer_;
};
