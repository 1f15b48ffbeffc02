#include "costyle_test_support.h"

#include <gtest/gtest.h>

using namespace writer_test;

namespace {

const QStringList mixer_keys = {QStringLiteral("BwRed"),  QStringLiteral("BwYellow"), QStringLiteral("BwGreen"),
                                QStringLiteral("BwCyan"), QStringLiteral("BwBlue"),   QStringLiteral("BwMagenta")};

// Values of the six mixer entries in the order of mixer_keys.
QStringList mixer_of(const setting_list& mixer)
{
    setting_list settings = mixer;
    settings.emplace_back("ConvertToGrayscale", "True");
    const parsed_style style = convert_to_style(preset_with(settings));
    EXPECT_EQ(style.value(QStringLiteral("BwEnabled")), QStringLiteral("1"));
    QStringList values;
    for (const QString& key : mixer_keys)
        values.append(style.value(key));
    return values;
}

QStringList values(std::initializer_list<const char*> texts)
{
    QStringList list;
    for (const char* text : texts)
        list.append(QString::fromLatin1(text));
    return list;
}

} // namespace

TEST(black_and_white_mapping, blends_orange_and_purple_into_their_neighbours)
{
    struct mixer_case {
        const char* name;
        setting_list mixer;
        QStringList expected; // red, yellow, green, cyan, blue, magenta
    };
    const std::vector<mixer_case> cases = {
        {"no mixer keys", {}, values({"0.000000", "0.000000", "0.000000", "0.000000", "0.000000", "0.000000"})},
        {"orange halves into red and yellow", {{"GrayMixerOrange", "40"}},
         values({"20.000000", "20.000000", "0.000000", "0.000000", "0.000000", "0.000000"})},
        // 60 / 100 * 100 rounds to 60.0000038 in single precision; half of it
        // shows in the last decimal of yellow.
        {"clamped after blending", {{"GrayMixerRed", "90"}, {"GrayMixerOrange", "60"}},
         values({"100.000000", "30.000002", "0.000000", "0.000000", "0.000000", "0.000000"})},
        {"green and aqua unclamped", {{"GrayMixerGreen", "150"}, {"GrayMixerAqua", "-130"}, {"GrayMixerBlue", "150"}},
         values({"0.000000", "0.000000", "150.000000", "-130.000000", "100.000000", "0.000000"})},
        {"purple clamped before blending", {{"GrayMixerPurple", "-200"}},
         values({"0.000000", "0.000000", "0.000000", "0.000000", "-50.000000", "-50.000000"})},
        {"text that is no number counts as 0", {{"GrayMixerRed", "deep"}, {"GrayMixerMagenta", "-25"}},
         values({"0.000000", "0.000000", "0.000000", "0.000000", "0.000000", "-25.000000"})},
    };
    for (const mixer_case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(mixer_of(c.mixer), c.expected);
    }
}

TEST(black_and_white_mapping, runs_only_for_a_grayscale_preset)
{
    for (const char* flag : {"true", "TRUE", "True"}) {
        SCOPED_TRACE(flag);
        EXPECT_TRUE(convert_to_style(preset_with({{"ConvertToGrayscale", flag}})).has(QStringLiteral("BwEnabled")));
    }
    for (const char* flag : {"1", "false", "yes"}) {
        SCOPED_TRACE(flag);
        const parsed_style style = convert_to_style(preset_with({{"ConvertToGrayscale", flag}, {"GrayMixerRed", "40"}}));
        EXPECT_FALSE(style.has(QStringLiteral("BwEnabled")));
        EXPECT_FALSE(style.has(QStringLiteral("BwRed")));
    }
}
