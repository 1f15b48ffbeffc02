// SPDX-License-Identifier: GPL-3.0-or-later
#include "importer/lrparser.h"

#include "importer/lightroom_importer.h"

#include <QDebug>
#include <QLatin1String>
#include <QPoint>
#include <stdexcept>
#include <utility>

lrparser::lrparser(const QString& text)
    : tokenizer_(text)
{
    current_ = tokenizer_.next();
}

void lrparser::advance()
{
    // Stepping past the end stays on eof, so a truncated file cannot walk
    // off the token stream.
    if (current_.type == token_type::eof)
        return;
    previous_ = current_;
    if (has_next_) {
        current_ = next_;
        has_next_ = false;
    } else {
        current_ = tokenizer_.next();
    }
}

const lrtoken& lrparser::peek()
{
    if (current_.type == token_type::eof)
        return current_;
    if (!has_next_) {
        next_ = tokenizer_.next();
        has_next_ = true;
    }
    return next_;
}

void lrparser::expect(token_type type)
{
    if (current_.type == type)
        return;
    qCritical() << "prev token:" << previous_ << "token:" << current_ << "next token:" << peek();
    throw std::runtime_error(QStringLiteral("Unexpected token type found. Expected %1, got %2")
                                 .arg(lrtoken::token_type_to_name(type), lrtoken::token_type_to_name(current_.type))
                                 .toStdString());
}

void lrparser::parse(lightroom_importer& record)
{
    read_object(record, true);
    expect(token_type::eof);
}

int lrparser::skip_table_list()
{
    int depth = 1;
    int tables = 0;
    while (current_.type != token_type::eof) {
        if (current_.type == token_type::lbrace) {
            tables += depth == 1 ? 1 : 0;
            ++depth;
        } else if (current_.type == token_type::rbrace) {
            if (--depth < 1)
                return tables;
        }
        advance();
    }
    return tables;
}

void lrparser::read_curve(lightroom_importer& record, const QString& key)
{
    // Lua lists every coordinate as its own element: x1, y1, x2, y2, ...
    QVector<QPoint> points;
    while (current_.type == token_type::num) {
        const int x = current_.number;
        advance();
        expect(token_type::comma);
        advance();
        expect(token_type::num);
        const int y = current_.number;
        advance();
        expect(token_type::comma);
        advance();
        points.append(QPoint(x, y));
    }

    if (key == QLatin1String("ToneCurvePV2012") || key == QLatin1String("ToneCurve"))
        record.tone_curve = points;
    else if (key == QLatin1String("ToneCurvePV2012Red"))
        record.tone_curve_red = points;
    else if (key == QLatin1String("ToneCurvePV2012Green"))
        record.tone_curve_green = points;
    else if (key == QLatin1String("ToneCurvePV2012Blue"))
        record.tone_curve_blue = points;
    else
        throw std::runtime_error(QStringLiteral("Unsupported curve type: %1").arg(key).toStdString());
}

void lrparser::read_object(lightroom_importer& record, bool top)
{
    const auto at_end = [this, top] {
        return current_.type == token_type::rbrace || (top && current_.type == token_type::eof);
    };
    if (at_end())
        return;

    for (;;) {
        expect(token_type::name);
        const QString key = current_.text.toString();
        advance();
        expect(token_type::equals);
        advance();

        if (current_.type != token_type::lbrace) {
            // A scalar of any kind; its text is stored as it stands.
            record.settings.insert(key, current_.text.toString());
            if (table_key_ == QLatin1String("Look") && key == QLatin1String("Name"))
                record.extras.look = current_.text.toString();
        } else {
            advance();
            if (!key.startsWith(QLatin1String("ToneCurve"))) {
                if (current_.type != token_type::lbrace) {
                    if (depth_ >= max_table_depth)
                        throw std::runtime_error(
                            QStringLiteral("Tables nested more than %1 levels deep").arg(max_table_depth).toStdString());
                    ++depth_;
                    const QString parent_key = std::exchange(table_key_, key);
                    read_object(record, false);
                    table_key_ = parent_key;
                    --depth_;
                } else {
                    // A list of tables (masks, gradients): nothing in it maps
                    // onto a style, so it is passed over unread.
                    record.extras.note_local_adjustments(key, skip_table_list());
                }
            } else {
                read_curve(record, key);
            }
            expect(token_type::rbrace);
        }

        advance();
        if (current_.type != token_type::eof) {
            expect(token_type::comma);
            advance();
        }
        if (at_end())
            return;
    }
}
