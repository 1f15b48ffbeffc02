// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringRef>
#include <QVector>

class QDebug;

// The nine kinds of piece a Lightroom template is made of.
enum class token_type { name = 0, str = 1, boolean = 2, num = 3, equals = 4, comma = 5, lbrace = 6, rbrace = 7, eof = 8 };

// One classified piece of template text.
struct lrtoken {
    token_type type = token_type::eof;
    // The piece as it stands in the text (a string without its quotes); a
    // view into the text, which must outlive the token.
    QStringRef text;
    // Integer value of a num token, 1/0 for the booleans true/false, else 0.
    int number = 0;

    // "token_type::name" and so on, used in the parser's messages.
    static QString token_type_to_name(token_type type);
};

// Prints `token_type::name ("Exposure2012", 0)`.
QDebug operator<<(QDebug debug, const lrtoken& token);

// Cuts template text into tokens, one at a time, so that the parser never
// holds more than a few of them: a template of tens of megabytes would
// otherwise cost many times its own size in token objects.
//
// Pieces are separated by white space and commas (a comma is a piece of its
// own); a double quote opens a string that runs to the next double quote,
// white space and commas included. There is no escape character, so `\"`
// ends a string like any other quote. "=", "{" and "}" are not separators:
// `a=1` is a single piece.
class lua_tokenizer {
public:
    // The text must outlive the tokenizer and every token it hands out.
    explicit lua_tokenizer(const QString& text);

    // The next token; after the last piece an eof token with empty text,
    // and eof again on every further call.
    lrtoken next();

    // The whole text as a token list ending with eof (for tests and tools;
    // the parser reads tokens one by one).
    static QVector<lrtoken> tokenize(const QString& text);

    // Turns one raw piece into a token (the piece must not be empty).
    static lrtoken classify(const QStringRef& piece);

private:
    // The next raw piece, or a null reference at the end of the text.
    QStringRef next_piece();

    // Where the comment that starts with the "--" at dashes ends.
    int comment_end(int dashes) const;

    const QString* text_;
    int pos_ = 0;
};
