// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/json_text.h"

namespace {

// QJsonDocument indents by four spaces per level.
constexpr int spaces_per_level = 4;

} // namespace

json_text::json_text(int depth) : depth_(depth) {}

void json_text::indent(int levels)
{
    out_.append(levels * spaces_per_level, ' ');
}

void json_text::start_value()
{
    if (empty_.empty()) {
        indent(depth_);
        return;
    }
    out_ += empty_.back() ? "\n" : ",\n";
    empty_.back() = false;
    indent(depth_ + int(empty_.size()));
    if (has_key_) {
        quoted(key_);
        out_ += ": ";
        has_key_ = false;
    }
}

void json_text::open(char bracket)
{
    start_value();
    out_ += bracket;
    empty_.push_back(true);
}

void json_text::close(char bracket)
{
    // An empty container closes on a line of its own too, as Qt writes it.
    empty_.pop_back();
    out_ += '\n';
    indent(depth_ + int(empty_.size()));
    out_ += bracket;
}

json_text& json_text::begin_object()
{
    open('{');
    return *this;
}

json_text& json_text::end_object()
{
    close('}');
    return *this;
}

json_text& json_text::begin_array()
{
    open('[');
    return *this;
}

json_text& json_text::end_array()
{
    close(']');
    return *this;
}

json_text& json_text::key(const QString& name)
{
    key_ = name;
    has_key_ = true;
    return *this;
}

json_text& json_text::value(const QString& text)
{
    start_value();
    quoted(text);
    return *this;
}

json_text& json_text::value(int number)
{
    start_value();
    out_ += QByteArray::number(number);
    return *this;
}

json_text& json_text::value(bool yes)
{
    start_value();
    out_ += yes ? "true" : "false";
    return *this;
}

void json_text::quoted(const QString& text)
{
    static const char hex[] = "0123456789abcdef";
    out_ += '"';
    for (const char c : text.toUtf8()) {
        switch (c) {
        case '"':
            out_ += "\\\"";
            break;
        case '\\':
            out_ += "\\\\";
            break;
        case '\b':
            out_ += "\\b";
            break;
        case '\f':
            out_ += "\\f";
            break;
        case '\n':
            out_ += "\\n";
            break;
        case '\r':
            out_ += "\\r";
            break;
        case '\t':
            out_ += "\\t";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                out_ += "\\u00";
                out_ += hex[(c >> 4) & 0xf];
                out_ += hex[c & 0xf];
            } else {
                out_ += c;
            }
        }
    }
    out_ += '"';
}
