#include "importer/lightroom_importer.h"
#include "writer/check_costyle.h"

#include <gtest/gtest.h>

// The flags of costyle_writer::check_costyle, tested through the free
// function it forwards to (testing the member would need a writer, whose
// constructor loads the colour tables).

namespace {

struct flags {
    bool white_balance;
    bool dehaze;
    bool lut;
    bool camera_calibration;
};

bool operator==(const flags& a, const flags& b)
{
    return a.white_balance == b.white_balance && a.dehaze == b.dehaze && a.lut == b.lut
        && a.camera_calibration == b.camera_calibration;
}

void PrintTo(const flags& f, std::ostream* os)
{
    *os << "{wb " << f.white_balance << ", dehaze " << f.dehaze << ", lut " << f.lut << ", calibration "
        << f.camera_calibration << '}';
}

struct check_case {
    const char* label;
    QMap<QString, QString> settings;
    flags expected; // all flags start out false, as the run sets them
};

// Names the case in test listings and failure messages.
void PrintTo(const check_case& c, std::ostream* os)
{
    *os << c.label;
}

class check_test : public ::testing::TestWithParam<check_case> {};

TEST_P(check_test, raises_the_flags)
{
    const check_case& c = GetParam();
    lightroom_importer preset;
    preset.settings = c.settings;
    flags f{false, false, false, false};
    check_preset_flags(f.white_balance, f.dehaze, f.lut, f.camera_calibration, preset);
    EXPECT_EQ(f, c.expected) << c.label;
}

INSTANTIATE_TEST_SUITE_P(settings, check_test, ::testing::Values(
    check_case{"empty record", {}, {false, false, false, false}},
    check_case{"Temperature present", {{"Temperature", "5500"}}, {true, false, false, false}},
    check_case{"Tint of zero still counts", {{"Tint", "0"}}, {true, false, false, false}},
    check_case{"IncrementalTint", {{"IncrementalTint", "+3"}}, {true, false, false, false}},
    check_case{"IncrementalTemperature", {{"IncrementalTemperature", ""}}, {true, false, false, false}},
    check_case{"WhiteBalance alone does not", {{"WhiteBalance", "Custom"}}, {false, false, false, false}},
    check_case{"keys are case-sensitive", {{"temperature", "5500"}, {"dehaze", "5"}, {"rgbtable", "x"}},
               {false, false, false, false}},
    check_case{"Dehaze 5", {{"Dehaze", "5"}}, {false, true, false, false}},
    check_case{"Dehaze -12", {{"Dehaze", "-12"}}, {false, true, false, false}},
    check_case{"Dehaze +0.50", {{"Dehaze", "+0.50"}}, {false, true, false, false}},
    check_case{"Dehaze 0.0", {{"Dehaze", "0.0"}}, {false, false, false, false}},
    check_case{"Dehaze -0", {{"Dehaze", "-0"}}, {false, false, false, false}},
    check_case{"Dehaze +0", {{"Dehaze", "+0"}}, {false, false, false, false}},
    check_case{"Dehaze quoted by the dotted reader", {{"Dehaze", "\"5\""}}, {false, false, false, false}},
    check_case{"Dehaze not a number", {{"Dehaze", "high"}}, {false, false, false, false}},
    check_case{"Dehaze nan", {{"Dehaze", "nan"}}, {false, true, false, false}},
    check_case{"RGBTable with empty value", {{"RGBTable", ""}}, {false, false, true, false}},
    check_case{"ShadowTint", {{"ShadowTint", "3"}}, {false, false, false, true}},
    check_case{"BlueSaturation, the last key", {{"RedHue", "0"}, {"BlueSaturation", "-1"}}, {false, false, false, true}},
    check_case{"calibration values of zero", {{"RedHue", "0"}, {"GreenHue", "0.0"}, {"BlueHue", "-0"}},
               {false, false, false, false}},
    check_case{"calibration quoted by the dotted reader", {{"RedSaturation", "\"5\""}}, {false, false, false, false}},
    check_case{"everything", {{"Temperature", "1"}, {"Dehaze", "1"}, {"RGBTable", "A"}, {"GreenSaturation", "1"}},
               {true, true, true, true}}));

TEST(check_preset_flags, assigns_three_flags_but_only_raises_calibration)
{
    lightroom_importer preset;
    bool white_balance = true;
    bool dehaze = true;
    bool lut = true;
    bool camera_calibration = true;
    check_preset_flags(white_balance, dehaze, lut, camera_calibration, preset);
    EXPECT_FALSE(white_balance);
    EXPECT_FALSE(dehaze);
    EXPECT_FALSE(lut);
    EXPECT_TRUE(camera_calibration) << "the check never clears the calibration flag";
}

} // namespace
