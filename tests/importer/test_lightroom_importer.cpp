// SPDX-License-Identifier: GPL-3.0-or-later
#include "importer_test_support.h"

#include <QTextCodec>

// A Cyrillic title with a copyright sign.
#define WARM_TITLE "\xd0\xa2\xd1\x91\xd0\xbf\xd0\xbb\xd1\x8b\xd0\xb9 \xc2\xa9"
static const char* const warm = "s = {\n\ttitle = \"" WARM_TITLE "\",\n\tvalue = {\n\t\tsettings = {\n"
                                "\t\t\tExposure2012 = +0.50,\n\t\t},\n\t},\n}\n";
static const char* const warm_record = "Exposure2012=+0.50; title=" WARM_TITLE "; name: " WARM_TITLE;

static QByteArray encoded(const char* codec, const QByteArray& bom)
{
    QTextEncoder encoder(QTextCodec::codecForName(codec), QTextCodec::IgnoreHeader);
    return bom + encoder.fromUnicode(QString::fromUtf8(warm));
}

// Every kind of input, bad ones included: a record or a syntax error, never a crash or a hang.
TEST(read_lrpreset, reads_templates_of_any_encoding_and_refuses_broken_ones)
{
    const QString unexpected = "Unexpected token type found. Expected token_type::";
    // The error is the start of the message (empty: no error); the record is checked when there is none.
    const struct { const char* name; QByteArray bytes; QString error, record; } cases[] = {
        {"UTF-8", warm, {}, warm_record}, {"UTF-8 with BOM", "\xef\xbb\xbf" + QByteArray(warm), {}, warm_record},
        {"UTF-16LE with BOM", encoded("UTF-16LE", "\xff\xfe"), {}, warm_record},
        {"UTF-16BE with BOM", encoded("UTF-16BE", "\xfe\xff"), {}, warm_record},
        {"UTF-32LE with BOM", encoded("UTF-32LE", QByteArray("\xff\xfe\x00\x00", 4)), {}, warm_record},
        {"CRLF", QByteArray(warm).replace("\n", "\r\n"), {}, warm_record},
        {"dotted: the name keeps its quotes", "s = {}\n\ts.title = \"Warm\"\n\ts.value.settings = {}\n",
         {}, "=; title=\"Warm\"; name: \"Warm\""},
        {"dispatch text inside a string still selects the dotted reader",
         "s = { title = \"s.value.settings = {}\", }", {}, "s={ title"},
        {"no title, no name", "s = { value = { settings = { Contrast = 5, }, }, }", {}, "Contrast=5"},
        {"empty file", "", {}, ""},
        {"invalid UTF-8 becomes replacement characters", "s = { title = \"a\xff\xc3(b\", }", {},
         "title=a\ufffd\ufffd(b; name: a\ufffd\ufffd(b"},
        {"binary", random_bytes(4096, 12345), unexpected, ""},
        {"UTF-16 without BOM", encoded("UTF-16LE", ""), unexpected, ""},
        {"unterminated string", "s = {\n\ttitle = \"Warm,\n\tversion = 0,\n}\n",
         unexpected + "name, got token_type::eof", ""},
        {"100 000 nested tables",
         QByteArray("t = {\n").repeated(100000) + "x = 1,\n" + QByteArray("},\n").repeated(100000),
         "Tables nested more than 200 levels deep", ""},
        {"megabytes of unterminated string", "s = { title = \"" + QByteArray(20 * 1000 * 1000, 'x'), unexpected, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        QTemporaryDir dir;
        const log_capture log;
        lightroom_importer record;
        try {
            record.read_lrpreset(write_file(dir, c.bytes));
            EXPECT_TRUE(c.error.isEmpty()) << "no exception";
        } catch (const std::runtime_error& e) {
            EXPECT_TRUE(!c.error.isEmpty() && QString::fromUtf8(e.what()).startsWith(c.error)) << e.what();
        }
        if (c.error.isEmpty())
            EXPECT_EQ(describe(record), c.record);
        else
            EXPECT_TRUE(record.name.isEmpty()); // only set after a successful read
    }
    lightroom_importer record;
    ASSERT_NO_THROW(record.read_lrpreset("/nonexistent/folder/preset.lrtemplate"));
    EXPECT_EQ(describe(record), "");
}

TEST(read_lrpreset, reads_templates_of_tens_of_megabytes)
{
    const int count = 850000; // about 21 MB
    QByteArray regular = "s = {\n\ttitle = \"Big\",\n\tvalue = {\n\t\tsettings = {\n";
    regular.reserve(count * 26 + 64);
    for (int i = 0; i < count; ++i)
        regular += "\t\t\tSetting" + QByteArray::number(i) + " = 0.35,\n";
    regular += "\t\t},\n\t},\n}\n";
    const int points = 500000; // about 24 MB
    QByteArray dotted = "s = {}\n\ts.value.settings = {}\n";
    dotted.reserve(points * 48);
    for (int i = 0; i < points; ++i)
        dotted += "\ts.value.settings.ToneCurvePV2012[" + QByteArray::number(i + 1) + "] = 128\n";

    QTemporaryDir dir;
    const log_capture log(false);
    lightroom_importer big;
    big.read_lrpreset(write_file(dir, regular));
    EXPECT_EQ(big.name, "Big");
    EXPECT_EQ(big.settings.size(), count + 1);
    lightroom_importer big_dotted;
    big_dotted.read_lrpreset(write_file(dir, dotted));
    EXPECT_EQ(big_dotted.tone_curve.size(), points / 2);
}
