// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

// Drops every Qt log line for as long as it lives: the readers log each
// setting at debug level, which would bury a test's own output when it reads
// whole folders or megabytes of input.
class quiet_log {
public:
    quiet_log() : previous_(qInstallMessageHandler(&quiet_log::drop)) {}
    ~quiet_log() { qInstallMessageHandler(previous_); }
    quiet_log(const quiet_log&) = delete;
    quiet_log& operator=(const quiet_log&) = delete;

private:
    static void drop(QtMsgType, const QMessageLogContext&, const QString&) {}
    QtMessageHandler previous_;
};
