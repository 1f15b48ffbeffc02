#pragma once

#include <QByteArray>
#include <QString>

#include <ostream>

// Readable failure messages for Qt strings in GoogleTest assertions.
QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QByteArray& bytes, std::ostream* os)
{
    *os << '"' << bytes.toStdString() << '"';
}
QT_END_NAMESPACE
