#include "importer/lua_tokenizer.h"
#include "qt_print.h"

#include <QDebug>
#include <QString>
#include <gtest/gtest.h>

namespace {

struct classify_case {
    const char* piece;
    token_type type;
    const char* text;
    int number;
};

// Names the case in test listings and failure messages.
void PrintTo(const classify_case& c, std::ostream* os)
{
    *os << c.piece;
}

class classify_test : public ::testing::TestWithParam<classify_case> {};

TEST_P(classify_test, gives_type_text_and_number)
{
    const classify_case& c = GetParam();
    const QString piece = QString::fromUtf8(c.piece);
    const lrtoken token = lua_tokenizer::classify(QStringRef(&piece));
    EXPECT_EQ(token.type, c.type) << c.piece;
    EXPECT_EQ(token.text.toString(), QString::fromUtf8(c.text)) << c.piece;
    EXPECT_EQ(token.number, c.number) << c.piece;
}

INSTANTIATE_TEST_SUITE_P(pieces, classify_test, ::testing::Values(
    classify_case{"=", token_type::equals, "=", 0},
    classify_case{",", token_type::comma, ",", 0},
    classify_case{"{", token_type::lbrace, "{", 0},
    classify_case{"}", token_type::rbrace, "}", 0},
    classify_case{"\"Warm\"", token_type::str, "Warm", 0},
    classify_case{"\"\"", token_type::str, "", 0},
    classify_case{"\"12\"", token_type::str, "12", 0},
    classify_case{"\"\\\"M\\\" Curve\"", token_type::str, "\\\"M\\\" Curve", 0},
    classify_case{"255", token_type::num, "255", 255},
    classify_case{"-12", token_type::num, "-12", -12},
    classify_case{"+5", token_type::num, "+5", 5},
    classify_case{"0", token_type::num, "0", 0},
    classify_case{"0.35", token_type::name, "0.35", 0},
    classify_case{"-0.5", token_type::name, "-0.5", 0},
    classify_case{"-2e-006", token_type::name, "-2e-006", 0},
    classify_case{"99999999999", token_type::name, "99999999999", 0}, // beyond 32 bits
    classify_case{"0x10", token_type::name, "0x10", 0},
    classify_case{"true", token_type::boolean, "true", 1},
    classify_case{"false", token_type::boolean, "false", 0},
    classify_case{"True", token_type::name, "True", 0},
    classify_case{"\"", token_type::name, "\"", 0}, // a lone quote encloses nothing
    classify_case{"\"open", token_type::name, "\"open", 0},
    classify_case{"a=1", token_type::name, "a=1", 0},
    classify_case{"Exposure2012", token_type::name, "Exposure2012", 0}));

struct split_case {
    const char* label;
    QString text;
    std::vector<std::pair<token_type, QString>> tokens; // eof excluded
};

void PrintTo(const split_case& c, std::ostream* os)
{
    *os << c.label;
}

class split_test : public ::testing::TestWithParam<split_case> {};

TEST_P(split_test, cuts_text_into_tokens)
{
    const split_case& c = GetParam();
    const QVector<lrtoken> tokens = lua_tokenizer::tokenize(c.text);
    ASSERT_EQ(tokens.size(), int(c.tokens.size()) + 1) << c.label;
    for (size_t i = 0; i < c.tokens.size(); ++i) {
        EXPECT_EQ(tokens[int(i)].type, c.tokens[i].first) << c.label << " token " << i;
        EXPECT_EQ(tokens[int(i)].text.toString(), c.tokens[i].second) << c.label << " token " << i;
    }
    EXPECT_EQ(tokens.last().type, token_type::eof);
    EXPECT_TRUE(tokens.last().text.isEmpty());
}

using tt = token_type;
INSTANTIATE_TEST_SUITE_P(texts, split_test, ::testing::Values(
    split_case{"empty", QString(), {}},
    split_case{"only white space", QStringLiteral(" \t\r\n\v\f"), {}},
    split_case{"entry", QStringLiteral("title = \"Warm\","),
               {{tt::name, "title"}, {tt::equals, "="}, {tt::str, "Warm"}, {tt::comma, ","}}},
    split_case{"comma and spaces inside a string", QStringLiteral("t = \"a, b  c\""),
               {{tt::name, "t"}, {tt::equals, "="}, {tt::str, "a, b  c"}}},
    split_case{"no space around =", QStringLiteral("a=1"), {{tt::name, "a=1"}}},
    split_case{"braces glued to names", QStringLiteral("{a,b}"),
               {{tt::name, "{a"}, {tt::comma, ","}, {tt::name, "b}"}}},
    split_case{"comma run", QStringLiteral(",,"), {{tt::comma, ","}, {tt::comma, ","}}},
    split_case{"CRLF", QStringLiteral("a = 1,\r\nb = 2,\r\n"),
               {{tt::name, "a"}, {tt::equals, "="}, {tt::num, "1"}, {tt::comma, ","},
                {tt::name, "b"}, {tt::equals, "="}, {tt::num, "2"}, {tt::comma, ","}}},
    split_case{"unicode spaces separate", QStringLiteral("a\u00a0=\u0085b\u2003c"),
               {{tt::name, "a"}, {tt::equals, "="}, {tt::name, "b"}, {tt::name, "c"}}},
    split_case{"backslash does not escape", QStringLiteral("n = \"say \\\"hi\\\" now\","),
               {{tt::name, "n"}, {tt::equals, "="}, {tt::str, "say \\\"hi\\\" now"}, {tt::comma, ","}}},
    split_case{"escaped quote ends the string", QStringLiteral("n = \"a\\\" b\""),
               {{tt::name, "n"}, {tt::equals, "="}, {tt::str, "a\\"}, {tt::name, "b\""}}},
    split_case{"unterminated string runs to the end", QStringLiteral("t = \"abc, def\n}"),
               {{tt::name, "t"}, {tt::equals, "="}, {tt::name, "\"abc, def\n}"}}},
    split_case{"last piece without separator", QStringLiteral("x = 0.35"),
               {{tt::name, "x"}, {tt::equals, "="}, {tt::name, "0.35"}}}));

TEST(lua_tokenizer, eof_repeats_after_the_end)
{
    const QString text = QStringLiteral("a");
    lua_tokenizer tokenizer(text);
    EXPECT_EQ(tokenizer.next().type, token_type::name);
    EXPECT_EQ(tokenizer.next().type, token_type::eof);
    EXPECT_EQ(tokenizer.next().type, token_type::eof);
}

TEST(lrtoken, type_names)
{
    const std::pair<token_type, const char*> names[] = {
        {token_type::name, "token_type::name"},     {token_type::str, "token_type::str"},
        {token_type::boolean, "token_type::boolean"}, {token_type::num, "token_type::num"},
        {token_type::equals, "token_type::equals"}, {token_type::comma, "token_type::comma"},
        {token_type::lbrace, "token_type::lbrace"}, {token_type::rbrace, "token_type::rbrace"},
        {token_type::eof, "token_type::eof"},       {static_cast<token_type>(42), "<unknown>"},
    };
    for (const auto& n : names)
        EXPECT_EQ(lrtoken::token_type_to_name(n.first), QLatin1String(n.second));
}

TEST(lrtoken, prints_type_text_and_number)
{
    const QString text = QStringLiteral("Exposure2012 = +5");
    const QVector<lrtoken> tokens = lua_tokenizer::tokenize(text);
    QString out;
    QDebug(&out) << tokens[0] << tokens[2] << tokens[3];
    EXPECT_EQ(out, QStringLiteral("token_type::name (\"Exposure2012\", 0) token_type::num (\"+5\", 5) "
                                  "token_type::eof (\"\", 0) "));
}

} // namespace
