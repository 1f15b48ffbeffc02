// SPDX-License-Identifier: GPL-3.0-or-later
#include "importer/lightroom_importer.h"
#include "writer/check_costyle.h"

#include <gtest/gtest.h>

// The flags of costyle_writer::check_costyle, through the free function it
// forwards to (the member would need a writer and its colour tables).

TEST(check_preset_flags, raises_the_flags_by_presence_or_nonzero_value)
{
    // Flags: white balance, dehaze, lut, camera calibration.
    const struct { const char* name; QMap<QString, QString> settings; const char* flags; } cases[] = {
        {"empty record", {}, "0000"}, {"Temperature", {{"Temperature", "5500"}}, "1000"},
        {"Tint of zero still counts", {{"Tint", "0"}}, "1000"},
        {"IncrementalTint", {{"IncrementalTint", "+3"}}, "1000"},
        {"empty IncrementalTemperature", {{"IncrementalTemperature", ""}}, "1000"},
        {"WhiteBalance alone does not", {{"WhiteBalance", "Custom"}}, "0000"},
        {"keys are case-sensitive", {{"temperature", "5500"}, {"dehaze", "5"}, {"rgbtable", "x"}}, "0000"},
        {"Dehaze -12", {{"Dehaze", "-12"}}, "0100"}, {"Dehaze +0.50", {{"Dehaze", "+0.50"}}, "0100"},
        {"Dehaze 0.0", {{"Dehaze", "0.0"}}, "0000"}, {"Dehaze -0", {{"Dehaze", "-0"}}, "0000"},
        {"Dehaze quoted by the dotted reader", {{"Dehaze", "\"5\""}}, "0000"},
        {"Dehaze not a number", {{"Dehaze", "high"}}, "0000"}, {"Dehaze nan", {{"Dehaze", "nan"}}, "0100"},
        {"RGBTable with empty value", {{"RGBTable", ""}}, "0010"}, {"ShadowTint", {{"ShadowTint", "3"}}, "0001"},
        {"BlueSaturation, the last key", {{"RedHue", "0"}, {"BlueSaturation", "-1"}}, "0001"},
        {"calibration values of zero", {{"RedHue", "0"}, {"GreenHue", "0.0"}, {"BlueHue", "-0"}}, "0000"},
        {"calibration quoted by the dotted reader", {{"RedSaturation", "\"5\""}}, "0000"},
        {"everything", {{"Temperature", "1"}, {"Dehaze", "1"}, {"RGBTable", "A"}, {"GreenSaturation", "1"}}, "1111"},
    };
    for (const auto& c : cases) {
        lightroom_importer preset;
        preset.settings = c.settings;
        bool f[4] = {false, false, false, false};
        check_preset_flags(f[0], f[1], f[2], f[3], preset);
        EXPECT_EQ(std::string({char('0' + f[0]), char('0' + f[1]), char('0' + f[2]), char('0' + f[3])}), c.flags)
            << c.name;
    }
    // Three flags are always assigned; calibration is only ever raised.
    bool f[4] = {true, true, true, true};
    check_preset_flags(f[0], f[1], f[2], f[3], lightroom_importer());
    EXPECT_TRUE(!f[0] && !f[1] && !f[2] && f[3]);
}
