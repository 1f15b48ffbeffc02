// SPDX-License-Identifier: GPL-3.0-or-later
#include "importer/lua_tokenizer.h"

#include <QDebug>
#include <QLatin1String>

QString lrtoken::token_type_to_name(token_type type)
{
    switch (type) {
    case token_type::name:
        return QStringLiteral("token_type::name");
    case token_type::str:
        return QStringLiteral("token_type::str");
    case token_type::boolean:
        return QStringLiteral("token_type::boolean");
    case token_type::num:
        return QStringLiteral("token_type::num");
    case token_type::equals:
        return QStringLiteral("token_type::equals");
    case token_type::comma:
        return QStringLiteral("token_type::comma");
    case token_type::lbrace:
        return QStringLiteral("token_type::lbrace");
    case token_type::rbrace:
        return QStringLiteral("token_type::rbrace");
    case token_type::eof:
        return QStringLiteral("token_type::eof");
    }
    return QStringLiteral("<unknown>");
}

QDebug operator<<(QDebug debug, const lrtoken& token)
{
    const QDebugStateSaver saver(debug);
    debug.nospace().noquote() << lrtoken::token_type_to_name(token.type) << " (";
    debug.quote() << token.text;
    debug << ", " << token.number << ')';
    return debug;
}

lua_tokenizer::lua_tokenizer(const QString& text)
    : text_(&text)
{
}

QStringRef lua_tokenizer::next_piece()
{
    const int size = text_->size();
    const QChar* const data = text_->constData();
    const QChar quote(QLatin1Char('"'));
    const QChar comma(QLatin1Char(','));
    const QChar dash(QLatin1Char('-'));

    int start = pos_;
    // A piece ends only outside a string, so the flag is always off between
    // pieces and can live here.
    bool in_string = false;
    while (pos_ < size) {
        const QChar c = data[pos_];
        if (in_string) {
            if (c == quote)
                in_string = false;
            ++pos_;
        } else if (c == quote) {
            in_string = true;
            ++pos_;
        } else if (c == dash && pos_ + 1 < size && data[pos_ + 1] == dash) {
            // A comment ends the piece before it and is passed over like
            // white space.
            if (pos_ > start)
                return QStringRef(text_, start, pos_ - start);
            pos_ = comment_end(pos_);
            start = pos_;
        } else if (c == comma) {
            // The comma is a piece of its own; when it ends a piece, it is
            // handed out on the next call.
            if (pos_ > start)
                return QStringRef(text_, start, pos_ - start);
            ++pos_;
            return QStringRef(text_, start, 1);
        } else if (c.isSpace()) {
            if (pos_ > start) {
                const QStringRef piece(text_, start, pos_ - start);
                ++pos_;
                return piece;
            }
            start = ++pos_;
        } else {
            ++pos_;
        }
    }
    if (pos_ > start)
        return QStringRef(text_, start, pos_ - start);
    return QStringRef();
}

int lua_tokenizer::comment_end(int dashes) const
{
    // "--[[", "--[=[", "--[==[" ... open a long comment that the closing
    // bracket with as many "=" ends; any other "--" a comment to the end of
    // the line. A long comment that is never closed runs to the end of the
    // text, as Lua would refuse the file anyway.
    const QString& text = *text_;
    int pos = dashes + 2;
    if (pos < text.size() && text.at(pos) == QLatin1Char('[')) {
        int level_end = pos + 1;
        while (level_end < text.size() && text.at(level_end) == QLatin1Char('='))
            ++level_end;
        if (level_end < text.size() && text.at(level_end) == QLatin1Char('[')) {
            const QString closing = QLatin1Char(']') + QString(level_end - pos - 1, QLatin1Char('=')) + QLatin1Char(']');
            const int found = text.indexOf(closing, level_end + 1);
            return found < 0 ? text.size() : found + closing.size();
        }
    }
    const int line_end = text.indexOf(QLatin1Char('\n'), pos);
    return line_end < 0 ? text.size() : line_end + 1;
}

lrtoken lua_tokenizer::classify(const QStringRef& piece)
{
    lrtoken token;
    token.text = piece;
    if (piece == QLatin1String("=")) {
        token.type = token_type::equals;
    } else if (piece == QLatin1String(",")) {
        token.type = token_type::comma;
    } else if (piece == QLatin1String("{")) {
        token.type = token_type::lbrace;
    } else if (piece == QLatin1String("}")) {
        token.type = token_type::rbrace;
    } else if (piece.size() >= 2 && piece.startsWith(QLatin1Char('"')) && piece.endsWith(QLatin1Char('"'))) {
        // A lone quote (an unterminated string at the very end) does not
        // qualify: it takes two quote characters to enclose a string.
        token.type = token_type::str;
        token.text = piece.mid(1, piece.size() - 2);
    } else {
        bool is_int = false;
        const int value = piece.toInt(&is_int, 10);
        if (is_int) {
            token.type = token_type::num;
            token.number = value;
        } else if (piece == QLatin1String("true")) {
            token.type = token_type::boolean;
            token.number = 1;
        } else if (piece == QLatin1String("false")) {
            token.type = token_type::boolean;
        } else {
            // Decimals such as 0.35 end up here too; the parser stores their text.
            token.type = token_type::name;
        }
    }
    return token;
}

lrtoken lua_tokenizer::next()
{
    const QStringRef piece = next_piece();
    if (piece.isNull()) {
        lrtoken eof;
        eof.type = token_type::eof;
        eof.text = QStringRef(text_, text_->size(), 0);
        return eof;
    }
    return classify(piece);
}

QVector<lrtoken> lua_tokenizer::tokenize(const QString& text)
{
    QVector<lrtoken> tokens;
    lua_tokenizer tokenizer(text);
    for (;;) {
        tokens.append(tokenizer.next());
        if (tokens.constLast().type == token_type::eof)
            return tokens;
    }
}
