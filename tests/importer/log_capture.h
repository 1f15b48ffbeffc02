#pragma once

#include <QString>
#include <QVector>
#include <QtGlobal>

// Collects what the code under test logs through Qt's message handler for as
// long as it lives. Debug lines can be dropped for tests that read large
// inputs.
class log_capture {
public:
    struct entry {
        QtMsgType type;
        QString text;
    };

    explicit log_capture(bool keep_debug = true)
        : keep_debug_(keep_debug)
    {
        active() = this;
        previous_ = qInstallMessageHandler(&log_capture::handle);
    }
    ~log_capture()
    {
        qInstallMessageHandler(previous_);
        active() = nullptr;
    }
    log_capture(const log_capture&) = delete;
    log_capture& operator=(const log_capture&) = delete;

    QVector<QString> of_type(QtMsgType type) const
    {
        QVector<QString> texts;
        for (const entry& e : entries)
            if (e.type == type)
                texts.append(e.text);
        return texts;
    }

    QVector<entry> entries;

private:
    static log_capture*& active()
    {
        static log_capture* instance = nullptr;
        return instance;
    }
    static void handle(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        log_capture* self = active();
        if (self && (type != QtDebugMsg || self->keep_debug_))
            self->entries.append({type, text});
    }

    bool keep_debug_;
    QtMessageHandler previous_ = nullptr;
};
