#include "importer/lightroom_importer.h"
#include "log_capture.h"
#include "qt_print.h"

#include <gtest/gtest.h>

namespace {

using settings_map = QMap<QString, QString>;
using curve = QVector<QPoint>;

struct dotted_case {
    const char* label;
    QString text;
    settings_map settings;
    curve master;
    curve red;
    curve green;
    curve blue;
};

// Names the case in test listings and failure messages.
void PrintTo(const dotted_case& c, std::ostream* os)
{
    *os << c.label;
}

class dotted_test : public ::testing::TestWithParam<dotted_case> {};

TEST_P(dotted_test, fills_the_record)
{
    const dotted_case& c = GetParam();
    const log_capture log;
    lightroom_importer record;
    record.read_dot_notation_lrpreset(c.text);
    EXPECT_EQ(record.settings, c.settings) << c.label;
    EXPECT_EQ(record.tone_curve, c.master) << c.label;
    EXPECT_EQ(record.tone_curve_red, c.red) << c.label;
    EXPECT_EQ(record.tone_curve_green, c.green) << c.label;
    EXPECT_EQ(record.tone_curve_blue, c.blue) << c.label;
}

INSTANTIATE_TEST_SUITE_P(lines, dotted_test, ::testing::Values(
    dotted_case{"indented paths are stripped, quotes kept",
                QStringLiteral("s = {}\n\ts.title = \"Warm\"\n\ts.value.settings = {}\n"
                               "\ts.value.settings.Exposure2012 = 0.35\n\ts.value.uuid = \"AB\""),
                {{"title", "\"Warm\""}, {"Exposure2012", "0.35"}, {"uuid", "\"AB\""}},
                {}, {}, {}, {}},
    dotted_case{"unindented line keeps its path", QStringLiteral("s.value.settings.Contrast = 5"),
                {{"s.value.settings.Contrast", "5"}}, {}, {}, {}, {}},
    dotted_case{"cut at the second =", QStringLiteral("\ts.title = \"a = b\""),
                {{"title", "\"a"}}, {}, {}, {}, {}},
    dotted_case{"line without =", QStringLiteral("  just words  "), {{"just words", ""}}, {}, {}, {}, {}},
    dotted_case{"CRLF is trimmed", QStringLiteral("\ts.a = 1\r\n\ts.b = 2\r\n"),
                {{"a", "1"}, {"b", "2"}, {"", ""}}, {}, {}, {}, {}},
    dotted_case{"CR-only line ends make one line", QStringLiteral("\ts.a = 1\r\ts.b = 2\r"),
                {{"a", "1\r\ts.b"}}, {}, {}, {}, {}},
    dotted_case{"ToneCurveName goes to settings", QStringLiteral("\ts.value.settings.ToneCurveName = \"Linear\""),
                {{"ToneCurveName", "\"Linear\""}}, {}, {}, {}, {}},
    dotted_case{"curve elements pair up",
                QStringLiteral("\ts.value.settings.ToneCurvePV2012 = {}\n"
                               "\ts.value.settings.ToneCurvePV2012[1] = 0\n\ts.value.settings.ToneCurvePV2012[2] = 10\n"
                               "\ts.value.settings.ToneCurvePV2012[3] = 255\n\ts.value.settings.ToneCurvePV2012[4] = 245"),
                {}, {{0, 10}, {255, 245}}, {}, {}, {}},
    dotted_case{"legacy and PV2012 curves are appended to one curve",
                QStringLiteral("\ts.value.settings.ToneCurve[1] = 1\n\ts.value.settings.ToneCurve[2] = 2\n"
                               "\ts.value.settings.ToneCurvePV2012[1] = 3\n\ts.value.settings.ToneCurvePV2012[2] = 4"),
                {}, {{1, 2}, {3, 4}}, {}, {}, {}},
    dotted_case{"channel chosen by name",
                QStringLiteral("\ts.value.settings.ToneCurvePV2012Red[1] = 1\n\ts.value.settings.ToneCurvePV2012Red[2] = 2\n"
                               "\ts.value.settings.ToneCurvePV2012Green[1] = 3\n\ts.value.settings.ToneCurvePV2012Green[2] = 4\n"
                               "\ts.value.settings.ToneCurvePV2012Blue[1] = 5\n\ts.value.settings.ToneCurvePV2012Blue[2] = 6"),
                {}, {}, {{1, 2}}, {{3, 4}}, {{5, 6}}},
    dotted_case{"pending x is shared between curves",
                QStringLiteral("\ts.value.settings.ToneCurvePV2012Red[1] = 7\n"
                               "\ts.value.settings.ToneCurvePV2012Blue[2] = 8\n\ts.value.settings.ToneCurvePV2012[2] = 9"),
                {}, {{7, 9}}, {}, {}, {{7, 8}}},
    dotted_case{"no index counts as even, decimals as 0",
                QStringLiteral("\ts.value.settings.ToneCurvePV2012[1] = 0.5\n\ts.value.settings.ToneCurvePV2012 = 5"),
                {}, {{0, 5}}, {}, {}, {}}));

TEST(dot_notation_reader, logs_each_key_and_value)
{
    const log_capture log;
    lightroom_importer record;
    record.read_dot_notation_lrpreset(QStringLiteral("\ts.title = \"\u00c9t\u00e9\""));
    EXPECT_EQ(log.of_type(QtDebugMsg), QVector<QString>{QStringLiteral("'title' -> '\"\u00c9t\u00e9\"'")});
}

} // namespace
