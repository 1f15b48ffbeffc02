// SPDX-License-Identifier: GPL-3.0-or-later
#include "importer/lua_parser.h"
#include "importer_test_support.h"
#include "support/test_support.h"

#include <QDirIterator>
#include <QRegularExpression>

// `t = { t = { ... x = 1, }, }` with the given number of tables.
static QString nested(int depth)
{
    return QStringLiteral("t = { ").repeated(depth) + "x = 1, " + QStringLiteral("}, ").repeated(depth);
}

TEST(lrparser, stores_every_scalar_flat_and_the_curves_apart)
{
    const std::pair<QString, QString> cases[] = {
        {"", ""}, {"\r\n\t ", ""},
        {"s = {\n\ttitle = \"Warm\",\n\tvalue = {\n\t\tsettings = {\n\t\t\tExposure2012 = 0.35,\n"
         "\t\t\tToneCurvePV2012 = {\n\t\t\t\t0,\n\t\t\t\t0,\n\t\t\t\t255,\n\t\t\t\t255,\n\t\t\t},\n\t\t},\n\t},\n"
         "\tversion = 0,\n}\n",
         "Exposure2012=0.35; title=Warm; version=0; master: 0,0 255,255"},
        {"s = { a = +0.50, b = -2e-006, c = true, d = \"x, y\", e = -12, f = \"\", }", // values stay as written
         "a=+0.50; b=-2e-006; c=true; d=x, y; e=-12; f="},
        {"s = { settings = { }, }", ""},
        {"s = { title = \"Outer\", value = { title = \"Inner\", }, }", "title=Inner"}, // later key wins
        {"s = { ToneCurvePV2012 = { }, }", ""},
        {"s = { ToneCurve = { 0, 10, 255, 245, }, ToneCurvePV2012Red = { 0, 0, 128, 140, }, "
         "ToneCurvePV2012Green = { 1, 2, }, ToneCurvePV2012Blue = { +3, -4, }, "
         "ToneCurveName = \"Custom\", ToneCurveName2012 = \"Linear\", }",
         "ToneCurveName=Custom; ToneCurveName2012=Linear; master: 0,10 255,245; red: 0,0 128,140; green: 1,2; "
         "blue: 3,-4"},
        {"s = { ToneCurve = { 0, 10, }, ToneCurvePV2012 = { 5, 6, 7, 8, }, }", "master: 5,6 7,8"},
        {"s = { Gradients = { { a = 1, Masks = { { b = 2, }, { c = { d = 3, }, }, }, }, { e = 4, }, }, f = 5, }",
         "f=5"}, // lists of tables are skipped at any depth
        {"l = { " + QStringLiteral("{ ").repeated(100000) + QStringLiteral("} ").repeated(100000) + "}, x = 1", "x=1"},
        {"s = { a = 1, } ", "a=1"},                                  // no comma after the last top-level entry
        {"a = 1, b = 2", "a=1; b=2"},                                // bare top-level scalars
        {"s = { a = = , }", "a=="},                                  // a scalar of any kind
        {"s = { [\"com.adobe.a b\"] = 1, }", "[\"com.adobe.a b\"]=1"}, // a bracket key is one name
        {"s =\r\n{\r\n\r\nFillLight =\r\n0,\r\n}\r\n", "FillLight=0"}, {nested(1), "x=1"},
        {nested(lrparser::max_table_depth), "x=1"},
    };
    for (const auto& [text, expected] : cases) {
        lightroom_importer record;
        ASSERT_NO_THROW(record.read_regular_lrpreset(text)) << text.left(80).toStdString();
        EXPECT_EQ(describe(record), expected) << text.left(80).toStdString(); // the name is left to read_lrpreset
    }
}

TEST(lrparser, syntax_errors_throw_the_message_and_keep_what_came_before)
{
    const QString unexpected = "Unexpected token type found. Expected token_type::%1, got token_type::%2";
    const QString too_deep = "Tables nested more than 200 levels deep";
    const std::pair<QString, QString> cases[] = {
        {"s = { a = 1 }", unexpected.arg("comma", "rbrace")},
        {"s = { ToneCurve = { 0, 0, 255, 255 }, }", unexpected.arg("comma", "rbrace")},
        {"s = { ToneCurvePV2012 = { 0.5, 0, }, }", unexpected.arg("rbrace", "name")}, // decimal curve values
        {"s = { ToneCurve = { 0, 0, 255, }, }", unexpected.arg("num", "rbrace")},
        {"s = { Tags = { \"a\", \"b\", }, }", unexpected.arg("name", "str")},
        {"s = { Points = { 1, 2, }, }", unexpected.arg("name", "num")},
        {"s = { ToneCurvePV2012Alpha = { 0, 0, }, }", "Unsupported curve type: ToneCurvePV2012Alpha"},
        {"a=1", unexpected.arg("equals", "eof")},
        {"s = { } return", unexpected.arg("comma", "name")}, {"s = { a = 1,", unexpected.arg("name", "eof")},
        {"s = { title = \"abc, }", unexpected.arg("name", "eof")}, // unterminated string
        {"s = { a =", unexpected.arg("name", "eof")}, {"{ a = 1, }", unexpected.arg("name", "lbrace")},
        {"s = { l = { { a = 1, }, ", unexpected.arg("rbrace", "eof")},
        {nested(lrparser::max_table_depth + 1), too_deep}, {nested(100000), too_deep},
    };
    for (const auto& [text, message] : cases) {
        const log_capture log;
        lightroom_importer record;
        try {
            record.read_regular_lrpreset(text);
            ADD_FAILURE() << text.left(80).toStdString() << ": no exception";
        } catch (const std::runtime_error& e) {
            EXPECT_EQ(e.what(), message) << text.left(80).toStdString();
        }
    }
    const log_capture log;
    lightroom_importer record;
    EXPECT_THROW(record.read_regular_lrpreset("s = { a = 1, ToneCurve = { 1, 2, }, b = 2 }"), std::runtime_error);
    EXPECT_EQ(describe(record), "a=1; b=2; master: 1,2");
    EXPECT_EQ(log.of(QtCriticalMsg), QStringList{"prev token: token_type::num (\"2\", 2) token: token_type::rbrace "
                                                 "(\"}\", 0) next token: token_type::eof (\"\", 0)"});
}

// Lua comments outside strings read like white space, in any of their forms,
// also right after a value; "--" inside a string stays.
TEST(lrparser, comments_read_like_white_space)
{
    const QString plain = "s = { title = \"A -- B\", value = { settings = { Exposure2012 = -0.5, Tint = 3, }, }, }";
    const QString commented[] = {
        "-- by Joe\ns = { title = \"A -- B\", value = { settings = { Exposure2012 = -0.5,--x\n Tint = 3, }, }, }",
        "s = { title = \"A -- B\", --[[ a\nlong }} one ]] value = { settings = { Exposure2012 = -0.5, Tint = 3, }, }, }",
        "s = { title = \"A -- B\", value = { settings = { Exposure2012 = -0.5, Tint = 3, --[==[ ]] ]=] ]==]}, }, }",
        "s = { title = \"A -- B\", value = { settings = { Exposure2012 = -0.5, Tint = 3, }, }, } --[[ never closed",
    };
    lightroom_importer expected;
    expected.read_regular_lrpreset(plain);
    EXPECT_EQ(expected.settings.value("title"), "A -- B");
    for (const QString& text : commented) {
        lightroom_importer record;
        record.read_regular_lrpreset(text);
        EXPECT_EQ(record.settings, expected.settings) << text.toStdString();
    }
    lightroom_importer dotted;
    dotted.read_dot_notation_lrpreset("s.value.settings = {}\n-- a note = 5\n\ts.value.settings.Tint = 3\n");
    EXPECT_EQ(dotted.settings.keys(), QStringList({"", "Tint"})); // "" is the last, empty line

    // The real templates with comments read as they do with the comments cut out.
    const QString corpus = test_support::corpus_dir();
    int commented_presets = 0;
    for (QDirIterator it(corpus + "/lrtemplate", {"*.lrtemplate"}, QDir::Files); !corpus.isEmpty() && it.hasNext();) {
        QFile file(it.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        if (!text.contains(QRegularExpression("^[^\"]*--", QRegularExpression::MultilineOption)))
            continue;
        ++commented_presets;
        lightroom_importer with, without;
        with.read_regular_lrpreset(text);
        without.read_regular_lrpreset(QString(text).remove(QRegularExpression("--[^\n]*")));
        EXPECT_EQ(with.settings, without.settings) << it.fileName().toStdString();
        EXPECT_EQ(with.tone_curve, without.tone_curve) << it.fileName().toStdString();
    }
    EXPECT_TRUE(corpus.isEmpty() || commented_presets == 5) << commented_presets;
}
