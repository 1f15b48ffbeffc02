// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Shared by the tests of color/, importer/ and writer/: a recorder of Qt's log.

#include "support/test_support.h"

#include <QStringList>
#include <algorithm>
#include <ostream>
#include <vector>

namespace test_support {

// Records the log while alive (one recorder at a time); tests of large
// inputs can leave out the debug lines.
class log_capture {
public:
    explicit log_capture(bool keep_debug = true) : previous_(qInstallMessageHandler(&handle))
    {
        shared() = {{}, keep_debug};
    }
    ~log_capture() { qInstallMessageHandler(previous_); }
    log_capture(const log_capture&) = delete;
    log_capture& operator=(const log_capture&) = delete;

    QStringList of(QtMsgType type) const
    {
        QStringList texts;
        for (const auto& [t, text] : shared().messages)
            if (t == type)
                texts << text;
        return texts;
    }
    QStringList warnings() const { return of(QtWarningMsg); }
    // Every line in order, its kind first ("warning: ...").
    QStringList lines() const
    {
        static const char* const kinds[] = {"debug", "warning", "critical", "fatal", "info"};
        QStringList texts;
        for (const auto& [type, text] : shared().messages)
            texts << QLatin1String(kinds[type]) + QStringLiteral(": ") + text;
        return texts;
    }
    bool empty() const { return shared().messages.empty(); }
    bool contains(const QString& part) const
    {
        return std::any_of(shared().messages.begin(), shared().messages.end(),
                           [&](const auto& m) { return m.second.contains(part); });
    }

private:
    struct state {
        std::vector<std::pair<QtMsgType, QString>> messages;
        bool keep_debug = true;
    };
    static state& shared()
    {
        static state recorded;
        return recorded;
    }
    static void handle(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        if (type != QtDebugMsg || shared().keep_debug)
            shared().messages.emplace_back(type, text);
    }
    const QtMessageHandler previous_;
};

} // namespace test_support
