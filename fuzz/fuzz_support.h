#pragma once

#include <QByteArray>
#include <QString>
#include <QTextStream>
#include <QtGlobal>

namespace fuzz_support {

// The readers log every setting at debug level; written to the terminal, that
// would cost more than the reading and bury libFuzzer's own report.
inline void silence_qt_messages()
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
}

// The bytes decoded exactly as the template reader decodes a file: UTF-8,
// byte-order marks honoured, invalid sequences as replacement characters.
inline QString template_text(const uint8_t* data, size_t size)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QTextStream stream(bytes, QIODevice::ReadOnly);
    stream.setCodec("UTF-8");
    stream.setAutoDetectUnicode(true);
    return stream.readAll();
}

} // namespace fuzz_support
