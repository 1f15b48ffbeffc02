// SPDX-License-Identifier: GPL-3.0-or-later
#include "costyle_test_support.h"

const char* const straight_luma = "0.0000,0.0000;1.0000,1.0000";
const char* const deepest_shadow = "0.0000;0.0000;0.0000;0.189092";

TEST(white_balance_mapping, temperature_and_tint_follow_their_sources)
{
    check_mapping({
        {"temperature above the range", "raw", {{"Temperature", "20000"}},
         {{"WhiteBalanceTemperature", "14000"}, {"WhiteBalanceTint", "0"}}},
        {"temperature below the range", "raw", {{"Temperature", "500"}}, {{"WhiteBalanceTemperature", "800"}}},
        {"incremental temperature interpolates", "raw", {{"IncrementalTemperature", "-30"}},
         {{"WhiteBalanceTemperature", "3629.8"}}},
        {"incremental temperature clamps to 100", "raw", {{"IncrementalTemperature", "150"}},
         {{"WhiteBalanceTemperature", "14000"}}},
        {"a temperature that is no number hides the incremental one", "raw",
         {{"Temperature", "warm"}, {"IncrementalTemperature", "10"}},
         {{"WhiteBalanceTemperature", nullptr}, {"WhiteBalanceTint", nullptr}}},
        {"tint alone gets the neutral temperature", "raw", {{"Tint", "90"}},
         {{"WhiteBalanceTint", "30.000000"}, {"WhiteBalanceTemperature", "5000"}}},
        {"sRGB tint offset at 5500 K", "srgb", {{"Temperature", "5500"}, {"Tint", "90"}},
         {{"WhiteBalanceTint", "24.000000"}, {"WhiteBalanceTemperature", "5500"}}},
        {"tint clamped after the offset", "srgb", {{"Temperature", "14000"}, {"Tint", "-150"}},
         {{"WhiteBalanceTint", "-50.000000"}}},
        {"Adobe RGB gets no offset", "adobe", {{"Temperature", "5500"}, {"Tint", "90"}},
         {{"WhiteBalanceTint", "30.000000"}}},
        {"a tint that is no number lets the incremental one through", "raw",
         {{"Tint", "green"}, {"IncrementalTint", "40"}}, {{"WhiteBalanceTint", "20.000000"}}},
        {"incremental tint halved and clamped", "raw", {{"IncrementalTint", "-250"}},
         {{"WhiteBalanceTint", "-50.000000"}}},
    });
}

TEST(tone_mapping, process_2010_keeps_its_tuned_ranges_and_2012_wins)
{
    check_mapping({
        {"contrast", "raw", {{"Contrast", "50"}}, {{"Contrast", "20.000000"}}},
        {"negative contrast", "raw", {{"Contrast", "-50"}}, {{"Contrast", "-25.000000"}}},
        {"fill light with the detection key", "raw", {{"FillLights", "0"}, {"FillLight", "20"}},
         {{"ShadowRecovery", "50.000000"}}},
        {"fill light clamped", "raw", {{"Shadows", "0"}, {"FillLight", "60"}}, {{"ShadowRecovery", "100.000000"}}},
        {"fill light alone is no 2010 preset", "raw", {{"FillLight", "20"}}, {{"ShadowRecovery", nullptr}}},
        {"brightness and exposure cross over", "raw", {{"Brightness", "75"}, {"Exposure", "-1.25"}},
         {{"Exposure", "1.500000"}, {"Brightness", "-25.000000"}}},
        {"the 2012 exposure wins", "raw", {{"Exposure", "1.75"}, {"Exposure2012", "1.75"}},
         {{"Brightness", "50.000000"}, {"Exposure", "2.000000"}}},
        {"highlight recovery halved", "raw", {{"HighlightRecovery", "80"}}, {{"HighlightRecovery", "40.000000"}}},
        {"black point at its deepest", "raw", {{"Shadows", "42"}},
         {{"Shadow", deepest_shadow}, {"TargetShadow", "0.0000;0.0000;0.0000;0.0000"}}},
        {"black point halfway", "raw", {{"Shadows", "21"}}, {{"Shadow", "0.0000;0.0000;0.0000;0.094546"}}},
        {"2012 exposure", "raw", {{"Exposure2012", "-1.75"}}, {{"Exposure", "-2.000000"}}},
        {"lifted shadows recover without clamp", "raw", {{"Shadows2012", "140"}},
         {{"ShadowRecovery", "112.000000"}, {"GradationCurveY", nullptr}}},
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
         {{"GradationCurveY", straight_luma}}},
        {"zero blacks alone: straight curve", "raw", {{"Blacks2012", "0"}}, {{"GradationCurveY", straight_luma}}},
        {"positive blacks lift the curve", "raw", {{"Blacks2012", "100"}},
         {{"GradationCurveY", "0.0000,0.0000;0.2000,0.250000;0.4000,0.435000;0.6000,0.600000;0.8000,0.800000;"
                              "1.0000,1.0000"}}},
        {"deepest blacks", "raw", {{"Blacks2012", "-100"}},
         {{"Shadow", deepest_shadow}, {"GradationCurveY", nullptr}}},
        {"half blacks", "raw", {{"Blacks2012", "-50"}}, {{"Shadow", "0.0000;0.0000;0.0000;0.094546"}}},
        {"darkest whites", "raw", {{"Whites2012", "-100"}},
         {{"Midtone", "0;0;0;0.036500"}, {"Highlight", "1;1;1;1"}, {"TargetHighlight", "1;1;1;0.834300"}}},
        {"brightest whites", "adobe", {{"Whites2012", "100"}},
         {{"Highlight", "1;1;1;0.843500"}, {"TargetHighlight", "1;1;1;1"}}},
        {"brightest whites in raw", "raw", {{"Whites2012", "100"}}, {{"Highlight", "1;1;1;0.500000"}}},
        {"2012 clarity", "raw", {{"Clarity2012", "30"}},
         {{"Clarity", "30.000000"}, {"ClarityMethod", "2"}, {"ClarityStructure", "10.000000"}}},
        {"2012 clarity ignored in a 2010 preset", "raw", {{"Exposure", "0"}, {"Clarity2012", "30"}},
         {{"Clarity", nullptr}}},
        {"2010 clarity", "raw", {{"Clarity", "-45"}}, {{"Clarity", "-45.000000"}, {"ClarityStructure", "-15.000000"}}},
        {"saturation unscaled", "raw", {{"Saturation", "-20"}}, {{"Saturation", "-20.000000"}}},
    });
}
