// SPDX-License-Identifier: GPL-3.0-or-later
#include "costyle_test_support.h"
#include "support/test_support.h"
#include "writer/mapping_context.h"

#include <QDirIterator>
#include <QSettings>

static const char* const colour_spaces[] = {"adobe", "srgb", "prophoto", "widegamut", "raw"};

// A preset that reaches every group: tone, curves, split toning, per-hue
// adjustments, detail and effects.
static lightroom_importer full_preset()
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

TEST(create_costyle, writes_named_entries_in_key_order_and_escaped)
{
    QString out = "kept"; // the document is appended
    EXPECT_TRUE(shared_writer().create_costyle(lightroom_importer(), out, "raw"));
    EXPECT_EQ(mask_uuid(out), "kept<?xml version=\"1.0\"?>\n<SL Engine=\"900\">\n    <E K=\"ColorCorrections\" "
                              "V=\"1,1,2,2.36563158035278,-15.9744558334351,0,174,139,97,0,25,-42.1264381408691,"
                              "25.6254768371582,25,0,0,0,0\"/>\n    <E K=\"Name\" V=\"\"/>\n"
                              "    <E K=\"UUID\" V=\"UUID-MASKED\"/>\n</SL>\n");

    const char* const markup = "Rock & \"Roll\" <B/W> 'x'";
    const std::pair<lightroom_importer, const char*> names[] = {{preset_with({{"about", "ignored"}}, "Warm"), "Warm"},
                                                                {preset_with({{"about", "From about"}}), "From about"},
                                                                {preset_with({}, markup), markup}};
    for (const auto& [preset, name] : names) {
        const parsed_style style = convert_to_style(preset);
        EXPECT_TRUE(style.value("Name") == name && style.error.isEmpty()) << name;
    }
    EXPECT_TRUE(convert(names[2].first, "raw").contains("V=\"Rock &amp; &quot;Roll&quot; &lt;B/W&gt; 'x'\""));

    // A fresh upper-case identity for every style.
    const QString first = convert_to_style(lightroom_importer()).value("UUID");
    EXPECT_EQ(mask_uuid(first), "UUID-MASKED");
    EXPECT_NE(first, convert_to_style(lightroom_importer()).value("UUID"));

    EXPECT_EQ(convert_to_style(preset_with({{"Temperature", "5500"}, {"Sharpness", "20"}, {"Exposure2012", "1"},
                                            {"PostCropVignetteAmount", "-10"}, {"PostCropVignetteRoundness", "0"}}))
                  .keys,
              (QStringList{"ColorCorrections", "Exposure", "Name", "UUID", "UsmAmount", "Vignetting",
                           "WhiteBalanceTemperature", "WhiteBalanceTint"}));
}

// Complete documents, compared line by line, and the table each colour space
// announces. Run the test program with STYLEWRIGHT_WRITE_GOLDEN=1 to write
// the documents anew after a deliberate change.
TEST(create_costyle, matches_the_golden_document_of_each_colour_space)
{
    const char* const messages[] = {"Using AdobeRGB colorspace (converting)", "Using sRGB colorspace (converting)",
                                    "Using ProPhoto colorspace (some conversion)",
                                    "Using Wide Gamut RGB colorspace (converting)",
                                    "Using Wide Gamut RGB colorspace (RAW, some conversion)"};
    for (int i = 0; i < 5; ++i) {
        SCOPED_TRACE(colour_spaces[i]);
        const log_capture log;
        const QStringList lines = mask_uuid(convert(full_preset(), colour_spaces[i])).split('\n');
        EXPECT_TRUE(log.of(QtDebugMsg).contains(messages[i]));
        QFile file(QStringLiteral(STYLEWRIGHT_TEST_DATA_DIR "/full_preset_%1.costyle").arg(colour_spaces[i]));
        if (qEnvironmentVariableIsSet("STYLEWRIGHT_WRITE_GOLDEN")) {
            ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write(lines.join('\n').toUtf8());
            continue;
        }
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
        const QStringList expected = QString::fromUtf8(file.readAll()).split('\n');
        ASSERT_EQ(lines.size(), expected.size());
        for (int n = 0; n < lines.size(); ++n)
            EXPECT_EQ(lines[n], expected[n]) << "line " << n + 1;
    }
    const log_capture log;
    convert(lightroom_importer(), "Adobe"); // unknown: the colours pass through, nothing announced
    EXPECT_FALSE(log.contains("colorspace"));
}

// Values at the edges of what a float holds neither crash nor break the
// document, whatever group reads them; every real preset converts.
// Number texts at the edges of single precision, put into each setting a full
// colour preset or a grayscale one carries, convert like the number they equal,
// or like any text that is no number when toFloat rejects them (overflow
// included): absent where a number is needed, 0 where such a text counts as 0.
TEST(create_costyle, number_texts_at_the_edges_read_as_what_they_equal_or_not_at_all)
{
    const std::pair<const char*, const char*> texts[] = {
        {"1e39", nullptr}, {"-1e39", nullptr}, {"-3.4028236e38", nullptr}, {"3.4028235e38", "3.4028235e38"},
        {"1e-45", "1e-45"}, {" 7", "7"}, {"0x10", nullptr}, {"+5", "5"}, {"5.", "5"}, {".5", "0.5"},
        {"", nullptr}, {"nan", nullptr}};
    lightroom_importer grayscale = preset_with({{"ConvertToGrayscale", "True"}, {"GrayMixerRed", "-20"},
                                                {"GrayMixerOrange", "30"}, {"GrayMixerAqua", "10"},
                                                {"SplitToningShadowHue", "220"}, {"SplitToningShadowSaturation", "25"},
                                                {"SplitToningBalance", "-30"}, {"Highlights2012", "-40"}});
    for (const lightroom_importer& base : {full_preset(), grayscale}) {
        for (const QString& key : base.settings.keys()) {
            if (key == "ConvertToGrayscale")
                continue;
            for (const auto& [text, same] : texts) {
                lightroom_importer edge = base, expected = base;
                edge.settings.insert(key, text);
                expected.settings.insert(key, same ? same : "no number");
                for (const char* colour_space : {"srgb", "raw"}) {
                    const QString document = convert(edge, colour_space);
                    EXPECT_EQ(mask_uuid(document), mask_uuid(convert(expected, colour_space)))
                        << key.toStdString() << "=" << text << " " << colour_space;
                    EXPECT_FALSE(document.contains("inf") || document.contains("nan")) << key.toStdString() << "=" << text;
                }
            }
        }
    }
}

TEST(create_costyle, converts_every_corpus_preset_into_a_readable_style)
{
    const QString corpus = test_support::corpus_dir();
    if (corpus.isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    int converted = 0;
    for (QDirIterator files(corpus, {"*.lrtemplate", "*.xmp"}, QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();) {
        const QString path = files.next();
        const log_capture log(false);
        lightroom_importer preset;
        try {
            path.endsWith(".xmp") ? preset.read_xmp(path) : preset.read_lrpreset(path);
        } catch (const std::runtime_error&) {
            continue; // a reader's verdict, not the writer's business
        }
        for (const char* colour_space : colour_spaces) {
            const parsed_style style = convert_to_style(preset, colour_space);
            EXPECT_TRUE(style.error.isEmpty() && style.has("Name") && style.has("UUID")
                        && style.has("ColorCorrections"))
                << path.toStdString() << " " << colour_space << ": " << style.error.toStdString();
            for (const QString& value : style.entries)
                EXPECT_FALSE(value.contains("nan") || value.contains("inf")) << path.toStdString() << " "
                                                                             << value.toStdString();
        }
        ++converted;
    }
    EXPECT_GT(converted, 0);
}
