#include "costyle_test_support.h"

#include <gtest/gtest.h>

using namespace writer_test;

namespace {

// An expected value of nullptr means the entry must be absent.
using expectation_list = std::vector<std::pair<const char*, const char*>>;

struct mapping_case {
    const char* name;
    const char* colour_space;
    setting_list settings;
    expectation_list expected;
};

void check_cases(const std::vector<mapping_case>& cases)
{
    for (const mapping_case& c : cases) {
        SCOPED_TRACE(c.name);
        const parsed_style style = convert_to_style(preset_with(c.settings), QString::fromLatin1(c.colour_space));
        for (const auto& [key, value] : c.expected) {
            if (value == nullptr)
                EXPECT_FALSE(style.has(QString::fromLatin1(key))) << key << " = " << qPrintable(style.value(key));
            else
                EXPECT_EQ(style.value(QString::fromLatin1(key)).toStdString(), value) << key;
        }
    }
}

const char* const identity_luma = "0.0000,0.0000;1.0000,1.0000";

} // namespace

TEST(white_balance_mapping, temperature_and_tint_follow_their_sources)
{
    check_cases({
        {"temperature above the range", "raw", {{"Temperature", "20000"}},
         {{"WhiteBalanceTemperature", "14000"}, {"WhiteBalanceTint", "0"}}},
        {"temperature below the range", "raw", {{"Temperature", "500"}}, {{"WhiteBalanceTemperature", "800"}}},
        {"temperature in the short form", "raw", {{"Temperature", "5500"}}, {{"WhiteBalanceTemperature", "5500"}}},
        {"incremental temperature interpolates", "raw", {{"IncrementalTemperature", "-30"}},
         {{"WhiteBalanceTemperature", "3629.8"}}},
        {"incremental temperature clamps to 100", "raw", {{"IncrementalTemperature", "150"}},
         {{"WhiteBalanceTemperature", "14000"}}},
        {"a temperature that is no number hides the incremental one", "raw",
         {{"Temperature", "warm"}, {"IncrementalTemperature", "10"}},
         {{"WhiteBalanceTemperature", nullptr}, {"WhiteBalanceTint", nullptr}}},
        {"tint alone gets the neutral temperature", "raw", {{"Tint", "90"}},
         {{"WhiteBalanceTint", "30.000000"}, {"WhiteBalanceTemperature", "5000"}}},
        {"tint shifted by the sRGB offset at 5500 K", "srgb", {{"Temperature", "5500"}, {"Tint", "90"}},
         {{"WhiteBalanceTint", "24.000000"}}},
        {"tint clamped after the offset is added", "srgb", {{"Temperature", "14000"}, {"Tint", "-150"}},
         {{"WhiteBalanceTint", "-50.000000"}}},
        {"Adobe RGB gets no offset", "adobe", {{"Temperature", "5500"}, {"Tint", "90"}},
         {{"WhiteBalanceTint", "30.000000"}}},
        {"a tint that is no number lets the incremental one through", "raw",
         {{"Tint", "green"}, {"IncrementalTint", "40"}}, {{"WhiteBalanceTint", "20.000000"}}},
        {"incremental tint is halved and clamped", "raw", {{"IncrementalTint", "-250"}},
         {{"WhiteBalanceTint", "-50.000000"}}},
    });
}

TEST(process_2010_tone_mapping, keeps_its_tuned_ranges)
{
    check_cases({
        {"positive contrast", "raw", {{"Contrast", "50"}}, {{"Contrast", "20.000000"}}},
        {"negative contrast", "raw", {{"Contrast", "-50"}}, {{"Contrast", "-25.000000"}}},
        {"fill light with the detection key", "raw", {{"FillLights", "0"}, {"FillLight", "20"}},
         {{"ShadowRecovery", "50.000000"}}},
        {"fill light clamped", "raw", {{"Shadows", "0"}, {"FillLight", "60"}}, {{"ShadowRecovery", "100.000000"}}},
        {"fill light alone is no 2010 preset", "raw", {{"FillLight", "20"}}, {{"ShadowRecovery", nullptr}}},
        {"brightness and exposure cross over", "raw", {{"Brightness", "75"}, {"Exposure", "-1.25"}},
         {{"Exposure", "1.500000"}, {"Brightness", "-25.000000"}}},
        {"the 2012 exposure wins over the 2010 one", "raw", {{"Exposure", "1.75"}, {"Exposure2012", "1.75"}},
         {{"Brightness", "50.000000"}, {"Exposure", "2.000000"}}},
        {"highlight recovery halved", "raw", {{"HighlightRecovery", "80"}}, {{"HighlightRecovery", "40.000000"}}},
        {"black point at its deepest", "raw", {{"Shadows", "42"}},
         {{"Shadow", "0.0000;0.0000;0.0000;0.189092"}, {"TargetShadow", "0.0000;0.0000;0.0000;0.0000"}}},
        {"black point halfway", "raw", {{"Shadows", "21"}}, {{"Shadow", "0.0000;0.0000;0.0000;0.094546"}}},
    });
}

TEST(process_2012_tone_mapping, writes_levels_and_the_luma_curve)
{
    check_cases({
        {"exposure", "raw", {{"Exposure2012", "-1.75"}}, {{"Exposure", "-2.000000"}}},
        {"lifted shadows recover without clamp", "raw", {{"Shadows2012", "140"}},
         {{"ShadowRecovery", "112.000000"}, {"GradationCurveY", nullptr}}},
        {"lifted shadows", "raw", {{"Shadows2012", "40"}}, {{"ShadowRecovery", "32.000000"}}},
        {"darker shadows lower y20 only", "raw", {{"Shadows2012", "-40"}, {"Highlights2012", "0"}},
         {{"ShadowRecovery", nullptr},
          {"GradationCurveY", "0.0000,0.0000;0.2000,0.180000;0.4000,0.400000;0.6000,0.600000;0.8000,0.800000;"
                              "1.0000,1.0000"}}},
        {"positive highlights", "raw", {{"Highlights2012", "50"}},
         {{"GradationCurveY", "0.0000,0.0000;0.2000,0.200000;0.4000,0.400000;0.6000,0.655000;0.8000,0.865000;"
                              "1.0000,1.0000"}}},
        {"negative highlights recover in raw", "raw", {{"Highlights2012", "-100"}},
         {{"HighlightRecovery", "50.000000"},
          {"GradationCurveY", "0.0000,0.0000;0.2000,0.200000;0.4000,0.350000;0.6000,0.530000;0.8000,0.730000;"
                              "1.0000,1.0000"}}},
        {"recovery from the unclamped value", "raw", {{"Highlights2012", "-150"}},
         {{"HighlightRecovery", "75.000000"}}},
        {"no recovery outside raw", "adobe", {{"Highlights2012", "-100"}}, {{"HighlightRecovery", nullptr}}},
        {"highlights that are no number still give the curve", "raw", {{"Highlights2012", "bright"}},
         {{"GradationCurveY", identity_luma}}},
        {"zero blacks alone give the straight curve", "raw", {{"Blacks2012", "0"}}, {{"GradationCurveY", identity_luma}}},
        {"positive blacks lift the curve", "raw", {{"Blacks2012", "100"}},
         {{"GradationCurveY", "0.0000,0.0000;0.2000,0.250000;0.4000,0.435000;0.6000,0.600000;0.8000,0.800000;"
                              "1.0000,1.0000"}}},
        {"deepest blacks", "raw", {{"Blacks2012", "-100"}},
         {{"Shadow", "0.0000;0.0000;0.0000;0.189092"}, {"GradationCurveY", nullptr}}},
        {"half blacks", "raw", {{"Blacks2012", "-50"}}, {{"Shadow", "0.0000;0.0000;0.0000;0.094546"}}},
        {"darkest whites", "raw", {{"Whites2012", "-100"}},
         {{"Midtone", "0;0;0;0.036500"}, {"Highlight", "1;1;1;1"}, {"TargetHighlight", "1;1;1;0.834300"}}},
        {"brightest whites", "adobe", {{"Whites2012", "100"}},
         {{"Highlight", "1;1;1;0.843500"}, {"TargetHighlight", "1;1;1;1"}}},
        {"brightest whites in raw", "raw", {{"Whites2012", "100"}}, {{"Highlight", "1;1;1;0.500000"}}},
    });
}

TEST(clarity_and_saturation_mapping, follow_the_process_version)
{
    check_cases({
        {"2012 clarity", "raw", {{"Clarity2012", "30"}},
         {{"Clarity", "30.000000"}, {"ClarityMethod", "2"}, {"ClarityStructure", "10.000000"}}},
        {"2012 clarity ignored in a 2010 preset", "raw", {{"Exposure", "0"}, {"Clarity2012", "30"}},
         {{"Clarity", nullptr}}},
        {"2010 clarity", "raw", {{"Clarity", "-45"}}, {{"Clarity", "-45.000000"}, {"ClarityStructure", "-15.000000"}}},
        {"saturation unscaled", "raw", {{"Saturation", "-20"}}, {{"Saturation", "-20.000000"}}},
    });
}
