// SPDX-License-Identifier: GPL-3.0-or-later
#include "importer_test_support.h"
#include "support/test_support.h"

#include <QDir>
#include <QRegularExpression>
#include <iostream>
#include <map>

// Every real preset of the shared corpus fills a record or fails with a
// syntax message; a few are checked against values read off the files by hand.
TEST(corpus, every_preset_is_read_and_hand_checked_values_match)
{
    const QString corpus = test_support::corpus_dir();
    if (corpus.isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    const auto read = [](lightroom_importer& record, const QString& path) {
        path.endsWith(".xmp") ? record.read_xmp(path) : record.read_lrpreset(path);
    };
    const QRegularExpression syntax_message(
        "^(Unexpected token type found\\. Expected token_type::[a-z]+, got token_type::[a-z]+"
        "|Unsupported curve type: \\S+|Tables nested more than 200 levels deep)$");
    for (const char* folder : {"lrtemplate", "xmp"}) {
        const QFileInfoList files = QDir(corpus + '/' + folder).entryInfoList(QDir::Files, QDir::Name);
        ASSERT_FALSE(files.isEmpty()) << folder;
        std::map<std::string, int> outcomes;
        for (const QFileInfo& file : files) {
            const log_capture log(false);
            lightroom_importer record;
            std::string outcome = "record";
            try {
                read(record, file.filePath());
            } catch (const std::runtime_error& e) {
                EXPECT_TRUE(syntax_message.match(e.what()).hasMatch()) << file.fileName().toStdString() << e.what();
                outcome = e.what();
            }
            const QStringList failures = log.of(QtCriticalMsg) + log.warnings();
            if (outcome == "record" && !failures.isEmpty())
                outcome = failures.first().toStdString();
            EXPECT_TRUE(!record.settings.isEmpty() || outcome != "record") << file.fileName().toStdString();
            ++outcomes[outcome];
        }
        for (const auto& [outcome, count] : outcomes)
            std::cout << folder << ": " << count << " x " << outcome << '\n';
    }

    // A key names a setting, a curve (master, red, green, blue) or the name;
    // a leading # asks for the length of the value. The template and the XMP
    // of "joshuatree" are the same preset: both skip its gradient masks.
    const std::pair<const char*, std::vector<std::pair<const char*, const char*>>> files[] = {
        {"lrtemplate/d5-lilac-1-standard.lrtemplate", // nested, four curves, CRLF
         {{"name", "Lilac 1 Standard"}, {"Exposure2012", "1.3"}, {"uuid", "3F322E86-0B05-4A93-BCAE-25F0032A66C0"},
          {"#ToneCurvePV2012", "0"}, {"master", "0,0 90,69 141,122 255,255"},
          {"red", "0,0 41,25 118,124 185,195 255,255"}, {"green", "0,0 40,25 119,125 182,199 255,255"},
          {"blue", "0,0 40,26 119,124 181,200 255,255"}}},
        {"lrtemplate/d5-voxcolor-068-oneline-nonascii.lrtemplate",
         {{"name", "068 \u25cf\u25cf\u25cf"}, {"HueAdjustmentPurple", "-6"},
          {"master", "0,3 51,46 102,98 153,150 204,202 255,253"},
          {"blue", "0,0 51,66 102,113 153,161 204,208 255,253"}}},
        {"lrtemplate/d5-bw-dependable-partial-fractional-split.lrtemplate", // legacy curve, decimals
         {{"name", "BW Dependable"}, {"ParametricMidtoneSplit", "30.322580645161"}, {"ConvertToGrayscale", "true"},
          {"master", "0,0 32,16 64,50 128,128 192,202 255,255"}, {"red", ""}}},
        {"lrtemplate/jolt-usa-joshuatree-01.lrtemplate",
         {{"name", "usa_joshuaTree_01"}, {"Contrast2012", "9"}, {"#LocalHighlights2012", "0"},
          {"master", "0,6 45,39 134,139 255,255"}, {"green", "0,0 112,111 212,214 255,255"}}},
        {"xmp/jolt-usa-joshuatree-01-lr73conv.xmp",
         {{"name", "usa_joshuaTree_01"}, {"Contrast2012", "+9"}, {"about", ""}, {"#CorrectionAmount", "0"},
          {"#description", "0"}, {"master", "0,6 45,39 134,139 255,255"}, {"red", "0,0 77,77 255,255"},
          {"green", "0,0 112,111 212,214 255,255"}, {"blue", "0,0 29,35 229,223 255,255"}}},
        {"xmp/tfl-fuji-classic-chrome-look-profile-rgbtable.xmp", // a look with a large table attribute
         {{"name", "Classic Chrome"}, {"PresetType", "Look"}, {"RGBTable", "844371C8CC19B4C7B0180BF8E9B483DB"},
          {"#Table_844371C8CC19B4C7B0180BF8E9B483DB", "228422"}, {"master", ""}}},
    };
    for (const auto& [file, values] : files) {
        const log_capture log(false);
        lightroom_importer record;
        read(record, corpus + '/' + file);
        const std::map<QString, QString> fields = {
            {"name", record.name}, {"description", record.description}, {"master", points_text(record.tone_curve)},
            {"red", points_text(record.tone_curve_red)}, {"green", points_text(record.tone_curve_green)},
            {"blue", points_text(record.tone_curve_blue)}};
        for (const auto& [key, expected] : values) {
            const QString name = QString(key).remove('#');
            const QString value = fields.count(name) ? fields.at(name) : record.settings.value(name);
            EXPECT_EQ(key[0] == '#' ? QString::number(value.size()) : value, expected) << file << " " << key;
        }
    }
}
