// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/log_capture.h"
#include "importer/lua_tokenizer.h"

#include <gtest/gtest.h>

// "str[Warm]", with "#number" when the number is not 0.
static QString token_text(const lrtoken& token)
{
    QString text = lrtoken::token_type_to_name(token.type).mid(12) + '[' + token.text.toString() + ']';
    return token.number ? text + '#' + QString::number(token.number) : text;
}

TEST(lua_tokenizer, classifies_each_piece)
{
    const std::pair<const char*, const char*> cases[] = {
        {"=", "equals[=]"}, {",", "comma[,]"}, {"{", "lbrace[{]"}, {"}", "rbrace[}]"},
        {"\"Warm\"", "str[Warm]"}, {"\"\"", "str[]"}, {"\"12\"", "str[12]"},
        {"\"\\\"M\\\" Curve\"", "str[\\\"M\\\" Curve]"},
        {"255", "num[255]#255"}, {"-12", "num[-12]#-12"}, {"+5", "num[+5]#5"}, {"0", "num[0]"},
        {"0.35", "name[0.35]"}, {"-0.5", "name[-0.5]"}, {"-2e-006", "name[-2e-006]"}, {"0x10", "name[0x10]"},
        {"99999999999", "name[99999999999]"}, // beyond 32 bits
        {"true", "boolean[true]#1"}, {"false", "boolean[false]"}, {"True", "name[True]"},
        {"\"", "name[\"]"}, // a lone quote encloses nothing
        {"\"open", "name[\"open]"}, {"a=1", "name[a=1]"}, {"Exposure2012", "name[Exposure2012]"},
    };
    for (const auto& [piece, expected] : cases) {
        const QString text = QString::fromUtf8(piece);
        EXPECT_EQ(token_text(lua_tokenizer::classify(QStringRef(&text))), expected) << piece;
    }
}

TEST(lua_tokenizer, cuts_text_at_white_space_and_commas_outside_strings)
{
    const std::pair<QString, const char*> cases[] = {
        {"", ""}, {" \t\r\n\v\f", ""}, {"title = \"Warm\",", "name[title] equals[=] str[Warm] comma[,]"},
        {"t = \"a, b  c\"", "name[t] equals[=] str[a, b  c]"}, {"a=1", "name[a=1]"},
        {"{a,b}", "name[{a] comma[,] name[b}]"}, {",,", "comma[,] comma[,]"},
        {"a = 1,\r\nb = 2,\r\n", "name[a] equals[=] num[1]#1 comma[,] name[b] equals[=] num[2]#2 comma[,]"},
        {"a\u00a0=\u0085b\u2003c", "name[a] equals[=] name[b] name[c]"}, // unicode spaces separate
        {"n = \"say \\\"hi\\\" now\",", "name[n] equals[=] str[say \\\"hi\\\" now] comma[,]"}, // no escapes
        {"n = \"a\\\" b\"", "name[n] equals[=] str[a\\] name[b\"]"},
        {"t = \"abc, def\n}", "name[t] equals[=] name[\"abc, def\n}]"}, // unterminated: runs to the end
        {"x = 0.35", "name[x] equals[=] name[0.35]"},
    };
    for (const auto& [text, expected] : cases) {
        SCOPED_TRACE(text.toStdString());
        QStringList tokens;
        for (const lrtoken& token : lua_tokenizer::tokenize(text))
            tokens << token_text(token);
        ASSERT_EQ(tokens.takeLast(), "eof[]");
        EXPECT_EQ(tokens.join(' '), expected);
    }
    const QString one = QStringLiteral("a");
    lua_tokenizer tokenizer(one);
    EXPECT_EQ(tokenizer.next().type, token_type::name);
    EXPECT_EQ(tokenizer.next().type, token_type::eof);
    EXPECT_EQ(tokenizer.next().type, token_type::eof);
}

// The names the parser's messages use (its log shows the tokens printed).
TEST(lrtoken, type_names)
{
    QStringList names;
    for (int type = 0; type <= 9; ++type)
        names << lrtoken::token_type_to_name(static_cast<token_type>(type));
    EXPECT_EQ(names.join(' '), "token_type::name token_type::str token_type::boolean token_type::num "
                               "token_type::equals token_type::comma token_type::lbrace token_type::rbrace "
                               "token_type::eof <unknown>");
}
