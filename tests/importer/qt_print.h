#pragma once

// Readable GoogleTest failure output for the Qt and importer types the tests
// compare.

#include "importer/lua_tokenizer.h"

#include <QMap>
#include <QPoint>
#include <QString>
#include <QVector>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QPoint& point, std::ostream* os)
{
    *os << '(' << point.x() << ", " << point.y() << ')';
}

inline void PrintTo(const QVector<QPoint>& points, std::ostream* os)
{
    *os << '{';
    for (const QPoint& p : points) {
        *os << ' ';
        PrintTo(p, os);
    }
    *os << " }";
}

inline void PrintTo(token_type type, std::ostream* os)
{
    *os << lrtoken::token_type_to_name(type).toStdString();
}

inline void PrintTo(const QMap<QString, QString>& map, std::ostream* os)
{
    *os << '{';
    for (auto it = map.cbegin(); it != map.cend(); ++it)
        *os << ' ' << it.key().toStdString() << '=' << it.value().toStdString();
    *os << " }";
}
