// SPDX-License-Identifier: GPL-3.0-or-later
#include "importer_test_support.h"

TEST(dot_notation_reader, cuts_each_line_into_key_and_value)
{
    const std::pair<const char*, const char*> cases[] = {
        {"s = {}\n\ts.title = \"Warm\"\n\ts.value.settings = {}\n\ts.value.settings.Exposure2012 = 0.35\n"
         "\ts.value.uuid = \"AB\"",
         "Exposure2012=0.35; title=\"Warm\"; uuid=\"AB\""}, // indented paths stripped, quotes kept
        {"s.value.settings.Contrast = 5", "s.value.settings.Contrast=5"}, // only indented lines lose the path
        {"\ts.title = \"a = b\"", "title=\"a"},                           // cut at the second =
        {"  just words  ", "just words="},
        {"\ts.a = 1\r\n\ts.b = 2\r\n", "=; a=1; b=2"},     // CRLF trimmed; the empty last line counts
        {"\ts.a = 1\r\ts.b = 2\r", "a=1\r\ts.b"},           // CR alone does not end a line
        {"\ts.value.settings.ToneCurveName = \"Linear\"", "ToneCurveName=\"Linear\""},
        {"\ts.value.settings.ToneCurvePV2012 = {}\n\ts.value.settings.ToneCurvePV2012[1] = 0\n"
         "\ts.value.settings.ToneCurvePV2012[2] = 10\n\ts.value.settings.ToneCurvePV2012[3] = 255\n"
         "\ts.value.settings.ToneCurvePV2012[4] = 245",
         "master: 0,10 255,245"},
        {"\ts.value.settings.ToneCurve[1] = 1\n\ts.value.settings.ToneCurve[2] = 2\n"
         "\ts.value.settings.ToneCurvePV2012[1] = 3\n\ts.value.settings.ToneCurvePV2012[2] = 4",
         "master: 1,2 3,4"}, // legacy and PV2012 curves append to one curve
        {"\ts.value.settings.ToneCurvePV2012Red[1] = 1\n\ts.value.settings.ToneCurvePV2012Red[2] = 2\n"
         "\ts.value.settings.ToneCurvePV2012Green[1] = 3\n\ts.value.settings.ToneCurvePV2012Green[2] = 4\n"
         "\ts.value.settings.ToneCurvePV2012Blue[1] = 5\n\ts.value.settings.ToneCurvePV2012Blue[2] = 6",
         "red: 1,2; green: 3,4; blue: 5,6"},
        {"\ts.value.settings.ToneCurvePV2012Red[1] = 7\n\ts.value.settings.ToneCurvePV2012Blue[2] = 8\n"
         "\ts.value.settings.ToneCurvePV2012[2] = 9",
         "master: 7,9; blue: 7,8"}, // the pending x is shared between curves
        {"\ts.value.settings.ToneCurvePV2012[1] = 0.5\n\ts.value.settings.ToneCurvePV2012 = 5",
         "master: 0,5"}, // no index counts as even, decimals as 0
    };
    for (const auto& [text, expected] : cases) {
        SCOPED_TRACE(text);
        const log_capture log;
        lightroom_importer record;
        record.read_dot_notation_lrpreset(QString::fromUtf8(text));
        EXPECT_EQ(describe(record), expected);
    }
    const log_capture log;
    lightroom_importer record;
    record.read_dot_notation_lrpreset(QStringLiteral("\ts.title = \"\u00c9t\u00e9\""));
    EXPECT_EQ(log.of(QtDebugMsg), QStringList{QStringLiteral("'title' -> '\"\u00c9t\u00e9\"'")});
}
