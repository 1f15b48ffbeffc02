#include "importer/lightroom_importer.h"
#include "importer/lua_parser.h"
#include "log_capture.h"
#include "qt_print.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace {

using settings_map = QMap<QString, QString>;
using curve = QVector<QPoint>;

struct parse_case {
    const char* label;
    QString text;
    settings_map settings;
    curve master;
    curve red;
    curve green;
    curve blue;
};

// Names the case in test listings and failure messages.
void PrintTo(const parse_case& c, std::ostream* os)
{
    *os << c.label;
}

class parse_test : public ::testing::TestWithParam<parse_case> {};

TEST_P(parse_test, fills_the_record)
{
    const parse_case& c = GetParam();
    lightroom_importer record;
    ASSERT_NO_THROW(record.read_regular_lrpreset(c.text)) << c.label;
    EXPECT_EQ(record.settings, c.settings) << c.label;
    EXPECT_EQ(record.tone_curve, c.master) << c.label;
    EXPECT_EQ(record.tone_curve_red, c.red) << c.label;
    EXPECT_EQ(record.tone_curve_green, c.green) << c.label;
    EXPECT_EQ(record.tone_curve_blue, c.blue) << c.label;
    EXPECT_TRUE(record.name.isEmpty()) << "only read_lrpreset sets the name";
}

INSTANTIATE_TEST_SUITE_P(templates, parse_test, ::testing::Values(
    parse_case{"empty text", QString(), {}, {}, {}, {}, {}},
    parse_case{"only white space", QStringLiteral("\r\n\t "), {}, {}, {}, {}, {}},
    parse_case{"typical template",
               QStringLiteral("s = {\n\ttitle = \"Warm\",\n\tvalue = {\n\t\tsettings = {\n"
                              "\t\t\tExposure2012 = 0.35,\n\t\t\tToneCurvePV2012 = {\n\t\t\t\t0,\n\t\t\t\t0,\n"
                              "\t\t\t\t255,\n\t\t\t\t255,\n\t\t\t},\n\t\t},\n\t},\n\tversion = 0,\n}\n"),
               {{"title", "Warm"}, {"Exposure2012", "0.35"}, {"version", "0"}},
               {{0, 0}, {255, 255}}, {}, {}, {}},
    parse_case{"values stay as written",
               QStringLiteral("s = { a = +0.50, b = -2e-006, c = true, d = \"x, y\", e = -12, f = \"\", }"),
               {{"a", "+0.50"}, {"b", "-2e-006"}, {"c", "true"}, {"d", "x, y"}, {"e", "-12"}, {"f", ""}},
               {}, {}, {}, {}},
    parse_case{"empty nested table", QStringLiteral("s = { settings = { }, }"), {}, {}, {}, {}, {}},
    parse_case{"later key wins across tables",
               QStringLiteral("s = { title = \"Outer\", value = { title = \"Inner\", }, }"),
               {{"title", "Inner"}}, {}, {}, {}, {}},
    parse_case{"empty curve", QStringLiteral("s = { ToneCurvePV2012 = { }, }"), {}, {}, {}, {}, {}},
    parse_case{"four curves and the legacy one",
               QStringLiteral("s = { ToneCurve = { 0, 10, 255, 245, }, ToneCurvePV2012Red = { 0, 0, 128, 140, }, "
                              "ToneCurvePV2012Green = { 1, 2, }, ToneCurvePV2012Blue = { +3, -4, }, "
                              "ToneCurveName = \"Custom\", ToneCurveName2012 = \"Linear\", }"),
               {{"ToneCurveName", "Custom"}, {"ToneCurveName2012", "Linear"}},
               {{0, 10}, {255, 245}}, {{0, 0}, {128, 140}}, {{1, 2}}, {{3, -4}}},
    parse_case{"a later curve replaces an earlier one",
               QStringLiteral("s = { ToneCurve = { 0, 10, }, ToneCurvePV2012 = { 5, 6, 7, 8, }, }"),
               {}, {{5, 6}, {7, 8}}, {}, {}, {}},
    parse_case{"lists of tables are skipped at any depth",
               QStringLiteral("s = { Gradients = { { a = 1, Masks = { { b = 2, }, { c = { d = 3, }, }, }, }, "
                              "{ e = 4, }, }, f = 5, }"),
               {{"f", "5"}}, {}, {}, {}, {}},
    parse_case{"last top-level entry without comma", QStringLiteral("s = { a = 1, } "), {{"a", "1"}}, {}, {}, {}, {}},
    parse_case{"bare top-level scalars", QStringLiteral("a = 1, b = 2"), {{"a", "1"}, {"b", "2"}}, {}, {}, {}, {}},
    parse_case{"a scalar of any kind is taken as it stands", QStringLiteral("s = { a = = , }"),
               {{"a", "="}}, {}, {}, {}, {}},
    parse_case{"a bracket key is one name, brackets and all", QStringLiteral("s = { [\"com.adobe.a b\"] = 1, }"),
               {{"[\"com.adobe.a b\"]", "1"}}, {}, {}, {}, {}},
    parse_case{"CRLF and hand-edited layout",
               QStringLiteral("s =\r\n{\r\n\r\nFillLight =\r\n0,\r\n}\r\n"), {{"FillLight", "0"}}, {}, {}, {}, {}}));

struct error_case {
    const char* label;
    QString text;
    const char* message;
};

void PrintTo(const error_case& c, std::ostream* os)
{
    *os << c.label;
}

class error_test : public ::testing::TestWithParam<error_case> {};

TEST_P(error_test, throws_the_message)
{
    const error_case& c = GetParam();
    const log_capture log;
    lightroom_importer record;
    try {
        record.read_regular_lrpreset(c.text);
        ADD_FAILURE() << c.label << ": no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_STREQ(e.what(), c.message) << c.label;
    }
}

INSTANTIATE_TEST_SUITE_P(templates, error_test, ::testing::Values(
    error_case{"missing comma after last entry of a table", QStringLiteral("s = { a = 1 }"),
               "Unexpected token type found. Expected token_type::comma, got token_type::rbrace"},
    error_case{"missing comma after last curve value", QStringLiteral("s = { ToneCurve = { 0, 0, 255, 255 }, }"),
               "Unexpected token type found. Expected token_type::comma, got token_type::rbrace"},
    error_case{"decimal curve values", QStringLiteral("s = { ToneCurvePV2012 = { 0.5, 0, }, }"),
               "Unexpected token type found. Expected token_type::rbrace, got token_type::name"},
    error_case{"odd number of curve values", QStringLiteral("s = { ToneCurve = { 0, 0, 255, }, }"),
               "Unexpected token type found. Expected token_type::num, got token_type::rbrace"},
    error_case{"list of strings", QStringLiteral("s = { Tags = { \"a\", \"b\", }, }"),
               "Unexpected token type found. Expected token_type::name, got token_type::str"},
    error_case{"list of numbers that is no curve", QStringLiteral("s = { Points = { 1, 2, }, }"),
               "Unexpected token type found. Expected token_type::name, got token_type::num"},
    error_case{"unsupported curve", QStringLiteral("s = { ToneCurvePV2012Alpha = { 0, 0, }, }"),
               "Unsupported curve type: ToneCurvePV2012Alpha"},
    error_case{"no space around =", QStringLiteral("a=1"),
               "Unexpected token type found. Expected token_type::equals, got token_type::eof"},
    error_case{"Lua comment", QStringLiteral("s = {\n a = 1,\n -- by Joe\n}"),
               "Unexpected token type found. Expected token_type::equals, got token_type::name"},
    error_case{"text after the top-level table", QStringLiteral("s = { } return"),
               "Unexpected token type found. Expected token_type::comma, got token_type::name"},
    error_case{"unclosed table", QStringLiteral("s = { a = 1,"),
               "Unexpected token type found. Expected token_type::name, got token_type::eof"},
    error_case{"unterminated string", QStringLiteral("s = { title = \"abc, }"),
               "Unexpected token type found. Expected token_type::name, got token_type::eof"},
    error_case{"value missing at the end", QStringLiteral("s = { a ="),
               "Unexpected token type found. Expected token_type::name, got token_type::eof"},
    error_case{"table without key", QStringLiteral("{ a = 1, }"),
               "Unexpected token type found. Expected token_type::name, got token_type::lbrace"},
    error_case{"unclosed list of tables", QStringLiteral("s = { l = { { a = 1, }, "),
               "Unexpected token type found. Expected token_type::rbrace, got token_type::eof"}));

TEST(lrparser, syntax_error_logs_the_tokens_around_it)
{
    const log_capture log;
    lightroom_importer record;
    EXPECT_THROW(record.read_regular_lrpreset(QStringLiteral("s = { a = 1 }")), std::runtime_error);
    EXPECT_EQ(log.of_type(QtCriticalMsg),
              QVector<QString>{QStringLiteral("prev token: token_type::num (\"1\", 1) token: token_type::rbrace "
                                              "(\"}\", 0) next token: token_type::eof (\"\", 0)")});
}

TEST(lrparser, entries_before_an_error_stay)
{
    const log_capture log;
    lightroom_importer record;
    EXPECT_THROW(record.read_regular_lrpreset(QStringLiteral("s = { a = 1, ToneCurve = { 1, 2, }, b 2, }")),
                 std::runtime_error);
    EXPECT_EQ(record.settings, (settings_map{{"a", "1"}}));
    EXPECT_EQ(record.tone_curve, (curve{{1, 2}}));
}

// `t = { t = { ... x = 1, }, }` with the given number of tables.
QString nested(int depth)
{
    QString text;
    text.reserve(depth * 12 + 16);
    for (int i = 0; i < depth; ++i)
        text += QStringLiteral("t = { ");
    text += QStringLiteral("x = 1, ");
    for (int i = 0; i < depth; ++i)
        text += QStringLiteral("}, ");
    return text;
}

TEST(lrparser, nesting_up_to_the_limit_is_read)
{
    for (const int depth : {1, 100, lrparser::max_table_depth}) {
        lightroom_importer record;
        ASSERT_NO_THROW(record.read_regular_lrpreset(nested(depth))) << depth;
        EXPECT_EQ(record.settings.value(QStringLiteral("x")), QStringLiteral("1")) << depth;
    }
}

TEST(lrparser, nesting_past_the_limit_throws)
{
    for (const int depth : {lrparser::max_table_depth + 1, 100000}) {
        lightroom_importer record;
        try {
            record.read_regular_lrpreset(nested(depth));
            ADD_FAILURE() << depth << ": no exception";
        } catch (const std::runtime_error& e) {
            EXPECT_STREQ(e.what(), "Tables nested more than 200 levels deep") << depth;
        }
    }
}

TEST(lrparser, deep_lists_of_tables_are_skipped_without_limit)
{
    // `l = { { { ... } } }`: a list of tables is passed over by counting braces.
    const int depth = 100000;
    QString text = QStringLiteral("l = { ");
    text += QString(QStringLiteral("{ ")).repeated(depth);
    text += QString(QStringLiteral("} ")).repeated(depth);
    text += QStringLiteral("}, x = 1");
    lightroom_importer record;
    ASSERT_NO_THROW(record.read_regular_lrpreset(text));
    EXPECT_EQ(record.settings, (settings_map{{"x", "1"}}));
}

} // namespace
