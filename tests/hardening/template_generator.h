#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <random>

// Writes random Lightroom templates in the nested form, within the grammar the
// regular reader accepts (white space around "=" and braces, a comma after
// every entry, strings without quotes or backslashes) and within what Lua 5.4
// reads the same way, so that the interpreter can serve as the reader's
// oracle. Keys inside each table are written in byte order, as Lightroom
// writes them; repeated keys and keys that recur in nested tables test that
// the later one wins.
class template_generator {
public:
    explicit template_generator(std::uint32_t start_value);

    // One whole template as file bytes (UTF-8, sometimes with a byte-order mark).
    QByteArray make();

private:
    struct entry {
        QString key;
        QString text; // everything after "key = "
    };

    int pick(int low, int high);
    bool chance(int percent);
    QString space();
    QString line_break();
    QString key();
    QString scalar();
    QString number();
    QString string_value();
    QString curve();
    QString table(int depth);
    QString table_list(int depth);

    std::mt19937 random_;
};
