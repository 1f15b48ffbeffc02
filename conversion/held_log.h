// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <vector>

// Log lines of work done on other threads, held back so that they can be let
// out in the order a one-thread run would have written them.
struct held_line {
    QtMsgType type;
    QByteArray category;
    QString text;
};
using held_lines = std::vector<held_line>;

// While it exists, every thread that holds into a list keeps its log lines
// there; the others log as before. One at a time per process.
class log_holding {
public:
    log_holding();
    ~log_holding();
    log_holding(const log_holding&) = delete;
    log_holding& operator=(const log_holding&) = delete;

    // The calling thread's lines go into lines from now on; nullptr ends it.
    static void hold_into(held_lines* lines);
    // Writes the lines as if they were logged now, on the calling thread.
    static void release(const held_lines& lines);
};
