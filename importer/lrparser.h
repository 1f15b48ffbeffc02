// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "importer/lua_tokenizer.h"

#include <QString>

class lightroom_importer;

// Recursive-descent reader of a Lightroom template in its nested form
// (`s = { title = "Warm", value = { settings = { ... }, }, }`). Every scalar
// entry at any depth lands flat in the record's settings; the point curves go
// into the record's curve vectors. Syntax errors throw std::runtime_error.
//
// The parser pulls tokens from the tokenizer as it goes and keeps only the
// previous, the current and (when asked for) the next one.
class lrparser {
public:
    // Nested tables deeper than this are refused instead of recursing on:
    // real templates nest a handful of levels, and a crafted file nested
    // hundreds of thousands of tables deep must not exhaust the stack. The
    // Lua interpreter Lightroom uses draws its line at the same depth.
    static constexpr int max_table_depth = 200;

    // The text must outlive the parser.
    explicit lrparser(const QString& text);

    // Reads the whole text into the record: the top-level object, then eof.
    void parse(lightroom_importer& record);

    // Reads the entries of one table up to its closing brace (or, at the top
    // level, up to the end of the text). The current token is the first one
    // after the opening brace.
    void read_object(lightroom_importer& record, bool top);

    // Throws unless the current token is of the given type; does not move.
    void expect(token_type type);

    const lrtoken& current() const { return current_; }

private:
    void advance();
    const lrtoken& peek();
    // Skips a list of tables; stops on the brace that closes the list.
    // Passes over a list of tables; returns how many tables it holds.
    int skip_table_list();
    void read_curve(lightroom_importer& record, const QString& key);

    lua_tokenizer tokenizer_;
    lrtoken previous_;
    lrtoken current_;
    lrtoken next_;
    bool has_next_ = false;
    int depth_ = 0;
    // The key of the table being read (empty at the top).
    QString table_key_;
};
