#pragma once

// Shared by the core tests of color/, importer/ and writer/: a recorder of
// Qt's log and readable QString values in failure messages.

#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <ostream>
#include <utility>
#include <vector>

inline void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}

namespace test_support {

// Records every log message while alive (one recorder at a time); the
// previous handler comes back on destruction. Debug lines can be dropped for
// tests that read large inputs.
class log_capture {
public:
    explicit log_capture(bool keep_debug = true)
    {
        keep_debug_flag() = keep_debug;
        all().clear();
        previous_ = qInstallMessageHandler(&log_capture::handle);
    }
    ~log_capture()
    {
        qInstallMessageHandler(previous_);
        all().clear();
    }
    log_capture(const log_capture&) = delete;
    log_capture& operator=(const log_capture&) = delete;

    QStringList of(QtMsgType type) const
    {
        QStringList texts;
        for (const auto& m : all())
            if (m.first == type)
                texts << m.second;
        return texts;
    }
    QStringList warnings() const { return of(QtWarningMsg); }
    bool empty() const { return all().empty(); }
    // True when any message contains the text.
    bool contains(const QString& text) const
    {
        for (const auto& m : all())
            if (m.second.contains(text))
                return true;
        return false;
    }

private:
    static std::vector<std::pair<QtMsgType, QString>>& all()
    {
        static std::vector<std::pair<QtMsgType, QString>> messages;
        return messages;
    }
    static bool& keep_debug_flag()
    {
        static bool keep = true;
        return keep;
    }
    static void handle(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        if (type != QtDebugMsg || keep_debug_flag())
            all().emplace_back(type, text);
    }

    QtMessageHandler previous_ = nullptr;
};

} // namespace test_support
