#include "costyle_test_support.h"
#include "test_support.h"
#include "writer/mapping_context.h"

#include <QDirIterator>
#include <QFile>
#include <QSettings>
#include <stdexcept>

using namespace writer_test;

namespace {

const char* const colour_spaces[] = {"adobe", "srgb", "prophoto", "widegamut", "raw"};

// A preset that reaches every group: tone, curves, split toning, per-hue
// adjustments, detail and effects.
lightroom_importer full_preset()
{
    lightroom_importer preset = preset_with(
        {{"Temperature", "6500"}, {"Tint", "12"}, {"Exposure2012", "0.35"}, {"Contrast2012", "20"},
         {"Highlights2012", "-40"}, {"Shadows2012", "30"}, {"Whites2012", "15"}, {"Blacks2012", "-10"},
         {"Clarity2012", "25"}, {"Saturation", "-5"}, {"Vibrance", "20"}, {"HueAdjustmentRed", "10"},
         {"SaturationAdjustmentOrange", "-20"}, {"LuminanceAdjustmentBlue", "15"}, {"HueAdjustmentAqua", "-35"},
         {"SplitToningShadowHue", "220"}, {"SplitToningShadowSaturation", "25"}, {"SplitToningHighlightHue", "45"},
         {"SplitToningHighlightSaturation", "30"}, {"SplitToningBalance", "20"}, {"ParametricShadows", "-10"},
         {"ParametricLights", "15"}, {"Sharpness", "40"}, {"SharpenRadius", "1.2"}, {"LuminanceSmoothing", "10"},
         {"PostCropVignetteAmount", "-20"}, {"PostCropVignetteRoundness", "10"}, {"GrainAmount", "25"},
         {"GrainSize", "30"}},
        "Golden Hour & \"Co\"");
    preset.tone_curve = {{0, 0}, {64, 58}, {128, 140}, {192, 200}, {255, 255}};
    preset.tone_curve_red = {{0, 10}, {128, 135}, {255, 250}};
    preset.tone_curve_blue = {{0, 0}, {128, 120}, {255, 245}};
    return preset;
}

TEST(create_costyle, appends_a_small_document_for_an_empty_record)
{
    QString out = "kept";
    EXPECT_TRUE(shared_writer().create_costyle(lightroom_importer(), out, "raw"));
    EXPECT_EQ(mask_uuid(out), "kept<?xml version=\"1.0\"?>\n<SL Engine=\"900\">\n"
                              "    <E K=\"ColorCorrections\" V=\"1,1,2,2.36563158035278,-15.9744558334351,0,174,139,97,0,"
                              "25,-42.1264381408691,25.6254768371582,25,0,0,0,0\"/>\n"
                              "    <E K=\"Name\" V=\"\"/>\n    <E K=\"UUID\" V=\"UUID-MASKED\"/>\n</SL>\n");
}

TEST(create_costyle, names_orders_and_escapes_the_entries)
{
    const std::pair<lightroom_importer, const char*> names[] = {
        {preset_with({{"about", "ignored"}}, "Warm"), "Warm"},
        {preset_with({{"about", "From about"}}), "From about"},
        {preset_with({}, "Rock & \"Roll\" <B/W> 'x'"), "Rock & \"Roll\" <B/W> 'x'"}};
    for (const auto& [preset, name] : names) {
        const QString document = convert(preset, "raw");
        EXPECT_EQ(parse_style(document).value("Name"), name);
        EXPECT_TRUE(parse_style(document).error.isEmpty());
    }
    EXPECT_TRUE(convert(names[2].first, "raw").contains("V=\"Rock &amp; &quot;Roll&quot; &lt;B/W&gt; 'x'\""));

    // A fresh upper-case identity for every style.
    const QRegularExpression uuid_form("^[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}$");
    const QString first = convert_to_style(lightroom_importer()).value("UUID");
    EXPECT_TRUE(uuid_form.match(first).hasMatch()) << first.toStdString();
    EXPECT_NE(first, convert_to_style(lightroom_importer()).value("UUID"));

    const parsed_style style =
        convert_to_style(preset_with({{"Temperature", "5500"}, {"Sharpness", "20"}, {"PostCropVignetteAmount", "-10"},
                                      {"PostCropVignetteRoundness", "0"}, {"Exposure2012", "1"}}));
    EXPECT_EQ(style.keys, (QStringList{"ColorCorrections", "Exposure", "Name", "UUID", "UsmAmount", "Vignetting",
                                       "WhiteBalanceTemperature", "WhiteBalanceTint"}));
}

TEST(create_costyle, takes_the_colour_space_given_or_stored)
{
    const std::pair<const char*, const char*> messages[] = {
        {"adobe", "Using AdobeRGB colorspace (converting)"},
        {"srgb", "Using sRGB colorspace (converting)"},
        {"prophoto", "Using ProPhoto colorspace (some conversion)"},
        {"widegamut", "Using Wide Gamut RGB colorspace (converting)"},
        {"raw", "Using Wide Gamut RGB colorspace (RAW, some conversion)"},
        {"Adobe", nullptr}};
    for (const auto& [colour_space, message] : messages) {
        const log_capture log;
        convert(lightroom_importer(), colour_space);
        EXPECT_EQ(log.contains("colorspace"), message != nullptr) << colour_space;
        EXPECT_TRUE(!message || log.of(QtDebugMsg).contains(message)) << colour_space;
    }

    // Without a colour space the stored setting decides, "raw" when unset.
    const lightroom_importer preset = full_preset();
    for (const char* stored : {"", "adobe", "srgb", "prophoto"}) {
        if (*stored)
            QSettings().setValue("colorspace", stored);
        else
            QSettings().remove("colorspace");
        QString out;
        shared_writer().create_costyle(preset, out);
        EXPECT_EQ(mask_uuid(out), mask_uuid(convert(preset, *stored ? stored : "raw"))) << stored;
    }
    QSettings().remove("colorspace");
    convert(preset, "srgb");
    EXPECT_FALSE(QSettings().contains("colorspace"));
}

// Complete documents, compared line by line. Run the test program with
// STYLEWRIGHT_WRITE_GOLDEN=1 to write them anew after a deliberate change.
TEST(create_costyle, matches_the_golden_document_of_each_colour_space)
{
    for (const char* colour_space : colour_spaces) {
        SCOPED_TRACE(colour_space);
        const QString document = mask_uuid(convert(full_preset(), colour_space));
        QFile file(QStringLiteral(STYLEWRIGHT_TEST_DATA_DIR "/full_preset_%1.costyle").arg(colour_space));
        if (qEnvironmentVariableIsSet("STYLEWRIGHT_WRITE_GOLDEN")) {
            ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write(document.toUtf8());
            continue;
        }
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
        const QStringList expected = QString::fromUtf8(file.readAll()).split('\n');
        const QStringList actual = document.split('\n');
        ASSERT_EQ(actual.size(), expected.size());
        for (int i = 0; i < actual.size(); ++i)
            EXPECT_EQ(actual[i], expected[i]) << "line " << i + 1;
    }
}

// Values at the edges of what a float holds neither crash nor break the
// document, whatever group reads them; every real preset converts.
TEST(create_costyle, survives_extreme_values_and_converts_every_corpus_preset)
{
    QSet<QString> keys;
    add_frame_keys(keys);
    add_white_balance_tone_keys({}, mapping_flags{true, true}, keys);
    add_black_and_white_keys(mapping_flags{true, true}, keys);
    add_colour_keys({{"SplitToningBalance", "0"}}, keys);
    add_detail_and_effects_keys(keys);
    for (const char* extreme : {"nan", "inf", "-inf", "1e30", "-1e30", "3e38", "1e-40"}) {
        lightroom_importer preset;
        for (const QString& key : keys)
            preset.settings.insert(key, extreme);
        preset.settings.insert("ConvertToGrayscale", "true");
        for (const char* colour_space : {"srgb", "raw"}) {
            const parsed_style style = convert_to_style(preset, colour_space);
            EXPECT_TRUE(style.error.isEmpty() && style.has("ColorBalanceShadow")) << extreme << " " << colour_space;
        }
    }

    const QString corpus = test_support::corpus_dir();
    if (corpus.isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    QDirIterator files(corpus, {"*.lrtemplate", "*.xmp"}, QDir::Files, QDirIterator::Subdirectories);
    int converted = 0;
    while (files.hasNext()) {
        const QString path = files.next();
        SCOPED_TRACE(path.toStdString());
        const log_capture log(false);
        lightroom_importer preset;
        try {
            path.endsWith(".xmp") ? preset.read_xmp(path) : preset.read_lrpreset(path);
        } catch (const std::runtime_error&) {
            continue; // a reader's verdict, not the writer's business
        }
        for (const char* colour_space : colour_spaces) {
            const parsed_style style = convert_to_style(preset, colour_space);
            ASSERT_TRUE(style.error.isEmpty()) << colour_space << ": " << style.error.toStdString();
            EXPECT_TRUE(style.engine == "900" && style.has("Name") && style.has("UUID") && style.has("ColorCorrections"));
            for (const QString& value : style.entries)
                EXPECT_FALSE(value.contains("nan") || value.contains("inf")) << value.toStdString();
        }
        ++converted;
    }
    EXPECT_GT(converted, 0);
}

} // namespace
