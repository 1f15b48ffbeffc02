#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <utility>
#include <vector>

namespace test_support {

// Collects every Qt log message while alive; the previous handler comes back
// on destruction. One capture at a time.
class message_capture {
public:
    message_capture() { previous_ = qInstallMessageHandler(&message_capture::handle); }
    ~message_capture()
    {
        qInstallMessageHandler(previous_);
        messages().clear();
    }
    message_capture(const message_capture&) = delete;
    message_capture& operator=(const message_capture&) = delete;

    // Texts of the messages of one type, in order.
    QStringList of_type(QtMsgType type) const
    {
        QStringList texts;
        for (const auto& m : messages())
            if (m.first == type)
                texts << m.second;
        return texts;
    }
    QStringList warnings() const { return of_type(QtWarningMsg); }
    QStringList infos() const { return of_type(QtInfoMsg); }
    QStringList debugs() const { return of_type(QtDebugMsg); }
    bool empty() const { return messages().empty(); }

private:
    static std::vector<std::pair<QtMsgType, QString>>& messages()
    {
        static std::vector<std::pair<QtMsgType, QString>> all;
        return all;
    }
    static void handle(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        messages().emplace_back(type, text);
    }

    QtMessageHandler previous_ = nullptr;
};

} // namespace test_support
