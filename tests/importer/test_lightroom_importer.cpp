#include "importer/lightroom_importer.h"
#include "log_capture.h"
#include "qt_print.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTextCodec>
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

class read_lrpreset_test : public ::testing::Test {
protected:
    QString write(const QByteArray& bytes)
    {
        const QString path = dir_.filePath(QStringLiteral("preset.lrtemplate"));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
        return path;
    }

    QTemporaryDir dir_;
};

const char* const warm_template = "s = {\n\ttitle = \"\xd0\xa2\xd1\x91\xd0\xbf\xd0\xbb\xd1\x8b\xd0\xb9 \xc2\xa9\",\n"
                                  "\tvalue = {\n\t\tsettings = {\n\t\t\tExposure2012 = +0.50,\n\t\t},\n\t},\n}\n";
const QString warm_title = QStringLiteral("\u0422\u0451\u043f\u043b\u044b\u0439 \u00a9");

TEST_F(read_lrpreset_test, regular_template_gives_unquoted_name)
{
    lightroom_importer record;
    record.read_lrpreset(write(warm_template));
    EXPECT_EQ(record.name, warm_title);
    EXPECT_EQ(record.settings.value(QStringLiteral("title")), warm_title);
    EXPECT_EQ(record.settings.value(QStringLiteral("Exposure2012")), QStringLiteral("+0.50"));
    EXPECT_TRUE(record.description.isEmpty());
}

TEST_F(read_lrpreset_test, dotted_template_gives_quoted_name)
{
    const log_capture log;
    lightroom_importer record;
    record.read_lrpreset(write("s = {}\n\ts.title = \"Warm\"\n\ts.value.settings = {}\n"
                               "\ts.value.settings.Exposure2012 = 0.35\n"));
    EXPECT_EQ(record.name, QStringLiteral("\"Warm\""));
    EXPECT_EQ(record.settings.value(QStringLiteral("Exposure2012")), QStringLiteral("0.35"));
}

TEST_F(read_lrpreset_test, dispatch_text_inside_a_string_still_selects_dotted_reader)
{
    const log_capture log;
    lightroom_importer record;
    record.read_lrpreset(write("s = { title = \"s.value.settings = {}\", }"));
    // The dotted reader cuts at the second "=" and keeps the quote.
    EXPECT_EQ(record.settings.value(QStringLiteral("s")), QStringLiteral("{ title"));
    EXPECT_TRUE(record.name.isEmpty());
}

TEST_F(read_lrpreset_test, template_without_title_gives_empty_name)
{
    lightroom_importer record;
    record.read_lrpreset(write("s = { value = { settings = { Contrast = 5, }, }, }"));
    EXPECT_TRUE(record.name.isEmpty());
    EXPECT_EQ(record.settings.value(QStringLiteral("Contrast")), QStringLiteral("5"));
}

TEST_F(read_lrpreset_test, missing_file_leaves_record_empty)
{
    lightroom_importer record;
    ASSERT_NO_THROW(record.read_lrpreset(dir_.filePath(QStringLiteral("absent.lrtemplate"))));
    EXPECT_TRUE(record.settings.isEmpty());
}

TEST_F(read_lrpreset_test, syntax_error_leaves_through_read_lrpreset)
{
    const log_capture log;
    lightroom_importer record;
    EXPECT_THROW(record.read_lrpreset(write("s = { title = \"X\" }")), std::runtime_error);
    EXPECT_TRUE(record.name.isEmpty()) << "the name is only set after a successful read";
}

struct codec_case {
    const char* label;
    QByteArray bytes;
};

// Names the case in test listings and failure messages.
void PrintTo(const codec_case& c, std::ostream* os)
{
    *os << c.label;
}

class codec_test : public read_lrpreset_test, public ::testing::WithParamInterface<codec_case> {};

QByteArray encoded(const char* codec, bool with_bom)
{
    QTextCodec* c = QTextCodec::codecForName(codec);
    QTextEncoder encoder(c, with_bom ? QTextCodec::DefaultConversion : QTextCodec::IgnoreHeader);
    return encoder.fromUnicode(QString::fromUtf8(warm_template));
}

TEST_P(codec_test, reads_the_title)
{
    lightroom_importer record;
    ASSERT_NO_THROW(record.read_lrpreset(write(GetParam().bytes))) << GetParam().label;
    EXPECT_EQ(record.name, warm_title) << GetParam().label;
    EXPECT_EQ(record.settings.value(QStringLiteral("Exposure2012")), QStringLiteral("+0.50")) << GetParam().label;
}

INSTANTIATE_TEST_SUITE_P(encodings, codec_test, ::testing::Values(
    codec_case{"UTF-8", QByteArray(warm_template)},
    codec_case{"UTF-8 with BOM", QByteArray("\xef\xbb\xbf") + warm_template},
    codec_case{"UTF-16LE with BOM", encoded("UTF-16LE", false).prepend("\xff\xfe")},
    codec_case{"UTF-16BE with BOM", encoded("UTF-16BE", false).prepend("\xfe\xff")},
    codec_case{"UTF-32LE with BOM", encoded("UTF-32LE", false).prepend(QByteArray("\xff\xfe\x00\x00", 4))},
    codec_case{"CRLF", QByteArray(warm_template).replace("\n", "\r\n")}));

// What each kind of bad input does: it never crashes or hangs, and either
// yields a record or a syntax error.
TEST_F(read_lrpreset_test, empty_file_gives_empty_record)
{
    lightroom_importer record;
    ASSERT_NO_THROW(record.read_lrpreset(write(QByteArray())));
    EXPECT_TRUE(record.settings.isEmpty());
    EXPECT_TRUE(record.name.isEmpty());
}

TEST_F(read_lrpreset_test, invalid_utf8_becomes_replacement_characters)
{
    lightroom_importer record;
    record.read_lrpreset(write("s = { title = \"a\xff\xc3(b\", }"));
    EXPECT_EQ(record.name, QStringLiteral("a\ufffd\ufffd(b"));
}

TEST_F(read_lrpreset_test, binary_file_is_a_syntax_error)
{
    QByteArray bytes(4096, '\0');
    quint32 state = 12345;
    for (char& b : bytes) {
        state = state * 1103515245u + 12345u;
        b = char(state >> 24);
    }
    const log_capture log;
    lightroom_importer record;
    EXPECT_THROW(record.read_lrpreset(write(bytes)), std::runtime_error);
}

TEST_F(read_lrpreset_test, utf16_without_bom_is_a_syntax_error)
{
    const log_capture log;
    lightroom_importer record;
    EXPECT_THROW(record.read_lrpreset(write(encoded("UTF-16LE", false))), std::runtime_error);
}

TEST_F(read_lrpreset_test, unterminated_string_is_a_syntax_error)
{
    const log_capture log;
    lightroom_importer record;
    try {
        record.read_lrpreset(write("s = {\n\ttitle = \"Warm,\n\tversion = 0,\n}\n"));
        ADD_FAILURE() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_STREQ(e.what(), "Unexpected token type found. Expected token_type::name, got token_type::eof");
    }
}

TEST_F(read_lrpreset_test, hundred_thousand_nested_tables_are_refused)
{
    const int depth = 100000;
    QByteArray bytes = QByteArray("t = {\n").repeated(depth) + "x = 1,\n" + QByteArray("},\n").repeated(depth);
    const log_capture log;
    lightroom_importer record;
    try {
        record.read_lrpreset(write(bytes));
        ADD_FAILURE() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_STREQ(e.what(), "Tables nested more than 200 levels deep");
    }
}

TEST_F(read_lrpreset_test, template_of_tens_of_megabytes_is_read)
{
    // About 21 MB: 850 000 settings.
    const int count = 850000;
    QByteArray bytes = "s = {\n\ttitle = \"Big\",\n\tvalue = {\n\t\tsettings = {\n";
    bytes.reserve(count * 26 + 64);
    for (int i = 0; i < count; ++i)
        bytes += "\t\t\tSetting" + QByteArray::number(i) + " = 0.35,\n";
    bytes += "\t\t},\n\t},\n}\n";
    ASSERT_GT(bytes.size(), 20 * 1000 * 1000);
    lightroom_importer record;
    record.read_lrpreset(write(bytes));
    EXPECT_EQ(record.name, QStringLiteral("Big"));
    EXPECT_EQ(record.settings.size(), count + 1);
}

TEST_F(read_lrpreset_test, megabytes_of_unterminated_string_are_a_syntax_error)
{
    const QByteArray bytes = "s = { title = \"" + QByteArray(20 * 1000 * 1000, 'x');
    const log_capture log;
    lightroom_importer record;
    EXPECT_THROW(record.read_lrpreset(write(bytes)), std::runtime_error);
}

TEST_F(read_lrpreset_test, dotted_template_of_tens_of_megabytes_is_read)
{
    const int count = 500000;
    QByteArray bytes = "s = {}\n\ts.value.settings = {}\n";
    bytes.reserve(count * 48 + 64);
    for (int i = 0; i < count; ++i)
        bytes += "\ts.value.settings.ToneCurvePV2012[" + QByteArray::number(i + 1) + "] = 128\n";
    const log_capture log(false);
    lightroom_importer record;
    record.read_lrpreset(write(bytes));
    EXPECT_EQ(record.tone_curve.size(), count / 2);
}

} // namespace
