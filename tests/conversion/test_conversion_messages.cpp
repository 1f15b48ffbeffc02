#include "application/conversion_messages.h"

#include <gtest/gtest.h>

namespace {

using namespace conversion_messages;

TEST(conversion_messages, name_is_set_in_white_bold)
{
    EXPECT_EQ(wrap_name(QStringLiteral("Warm")), QStringLiteral("<font color=\"white\"><b>Warm</b></font>"));
}

TEST(conversion_messages, conversion_failed_keeps_its_lone_break)
{
    const conversion_failure failure = conversion_failed(QStringLiteral("/x/Warm.xmp"));
    EXPECT_EQ(failure.kind, failure_kind::conversion_failed);
    EXPECT_EQ(failure.title, QStringLiteral("Preset conversion failed"));
    EXPECT_EQ(failure.text, QStringLiteral("The preset <font color=\"white\"><b>Warm.xmp</b></font> could not be "
                                           "converted to Capture One format.<br>Please contact Quillmark support "
                                           "and send them a screenshot of this message and the preset file stated "
                                           "above to support@quillmark.example<br/><br/>"));
}

TEST(conversion_messages, error_text_is_not_expanded)
{
    const conversion_failure failure = unreadable_preset(QStringLiteral("a %1.lrtemplate"), QStringLiteral("bad %1"));
    EXPECT_TRUE(failure.text.contains(QStringLiteral("<b>a %1.lrtemplate</b>")));
    EXPECT_TRUE(failure.text.endsWith(QStringLiteral("<br/><br/>Error: bad %1")));
}

TEST(conversion_messages, support_address_is_reserved)
{
    EXPECT_EQ(support_address, QStringLiteral("support@quillmark.example"));
}

struct plain_case {
    const char* rich;
    const char* plain;
};

void PrintTo(const plain_case& c, std::ostream* os)
{
    *os << c.plain;
}

class plain_text_test : public ::testing::TestWithParam<plain_case> {};

TEST_P(plain_text_test, gives_one_line)
{
    EXPECT_EQ(plain_text(QString::fromUtf8(GetParam().rich)), QString::fromUtf8(GetParam().plain));
}

INSTANTIATE_TEST_SUITE_P(markup, plain_text_test,
                         ::testing::Values(plain_case{"Your preset <font color=\"white\"><b>Warm</b></font> is odd.",
                                                      "Your preset Warm is odd."},
                                           plain_case{"a.<br/><br/>b", "a. b"}, plain_case{"a<br>b<br/>c", "a b c"},
                                           plain_case{"list:<br/>- LUT<br/>- Dehaze<br/><br/>end",
                                                      "list: - LUT - Dehaze end"},
                                           plain_case{"ends<br/><br/>", "ends"},
                                           plain_case{"line\nbreak\r\nin error", "line break in error"},
                                           plain_case{"keeps a < b and <i>", "keeps a < b and <i>"}));

} // namespace
