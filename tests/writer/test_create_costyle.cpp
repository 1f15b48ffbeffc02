#include "costyle_test_support.h"

#include "writer/mapping_context.h"

#include "test_support.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSettings>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace writer_test;

namespace {

const QRegularExpression uuid_form(QStringLiteral("^[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}$"));

// A preset that reaches every group: tone of both processes' kind, curves,
// split toning, per-hue adjustments, detail and effects.
lightroom_importer full_preset()
{
    lightroom_importer preset = preset_with({{"Temperature", "6500"},
                                             {"Tint", "12"},
                                             {"Exposure2012", "0.35"},
                                             {"Contrast2012", "20"},
                                             {"Highlights2012", "-40"},
                                             {"Shadows2012", "30"},
                                             {"Whites2012", "15"},
                                             {"Blacks2012", "-10"},
                                             {"Clarity2012", "25"},
                                             {"Saturation", "-5"},
                                             {"Vibrance", "20"},
                                             {"HueAdjustmentRed", "10"},
                                             {"SaturationAdjustmentOrange", "-20"},
                                             {"LuminanceAdjustmentBlue", "15"},
                                             {"HueAdjustmentAqua", "-35"},
                                             {"SplitToningShadowHue", "220"},
                                             {"SplitToningShadowSaturation", "25"},
                                             {"SplitToningHighlightHue", "45"},
                                             {"SplitToningHighlightSaturation", "30"},
                                             {"SplitToningBalance", "20"},
                                             {"ParametricShadows", "-10"},
                                             {"ParametricLights", "15"},
                                             {"Sharpness", "40"},
                                             {"SharpenRadius", "1.2"},
                                             {"LuminanceSmoothing", "10"},
                                             {"PostCropVignetteAmount", "-20"},
                                             {"PostCropVignetteRoundness", "10"},
                                             {"GrainAmount", "25"},
                                             {"GrainSize", "30"}},
                                            QStringLiteral("Golden Hour & \"Co\""));
    preset.tone_curve = {QPoint(0, 0), QPoint(64, 58), QPoint(128, 140), QPoint(192, 200), QPoint(255, 255)};
    preset.tone_curve_red = {QPoint(0, 10), QPoint(128, 135), QPoint(255, 250)};
    preset.tone_curve_blue = {QPoint(0, 0), QPoint(128, 120), QPoint(255, 245)};
    return preset;
}

// Stored settings of the test program's private folder; restored afterwards.
class stored_colour_space {
public:
    explicit stored_colour_space(const QString& value) { QSettings().setValue(QStringLiteral("colorspace"), value); }
    stored_colour_space() { QSettings().remove(QStringLiteral("colorspace")); }
    ~stored_colour_space() { QSettings().remove(QStringLiteral("colorspace")); }
};

} // namespace

TEST(create_costyle, writes_an_empty_record_as_a_small_document)
{
    QString out;
    EXPECT_TRUE(shared_writer().create_costyle(lightroom_importer(), out, QStringLiteral("raw")));
    const QStringList lines = mask_uuid(out).split(QLatin1Char('\n'));
    const QStringList expected = {
        QStringLiteral("<?xml version=\"1.0\"?>"),
        QStringLiteral("<SL Engine=\"900\">"),
        QStringLiteral("    <E K=\"ColorCorrections\" V=\"1,1,2,2.36563158035278,-15.9744558334351,0,174,139,97,0,"
                       "25,-42.1264381408691,25.6254768371582,25,0,0,0,0\"/>"),
        QStringLiteral("    <E K=\"Name\" V=\"\"/>"),
        QStringLiteral("    <E K=\"UUID\" V=\"UUID-MASKED\"/>"),
        QStringLiteral("</SL>"),
        QString(), // the document ends with a line break
    };
    EXPECT_EQ(lines, expected);
}

TEST(create_costyle, appends_to_what_the_string_holds)
{
    QString out = QStringLiteral("kept");
    shared_writer().create_costyle(lightroom_importer(), out, QStringLiteral("raw"));
    EXPECT_TRUE(out.startsWith(QStringLiteral("kept<?xml")));
}

TEST(create_costyle, names_the_style_after_the_preset_or_its_about_text)
{
    struct name_case {
        const char* name;
        setting_list settings;
        const char* expected;
    };
    const std::vector<name_case> cases = {
        {"Warm", {{"about", "ignored"}}, "Warm"},
        {"", {{"about", "From about"}}, "From about"},
        {"", {}, ""},
    };
    for (const name_case& c : cases) {
        const parsed_style style = convert_to_style(preset_with(c.settings, QString::fromUtf8(c.name)));
        EXPECT_TRUE(style.has("Name"));
        EXPECT_EQ(style.value("Name").toStdString(), c.expected);
    }
}

TEST(create_costyle, gives_every_style_a_fresh_upper_case_uuid)
{
    const QString first = convert_to_style(lightroom_importer()).value("UUID");
    const QString second = convert_to_style(lightroom_importer()).value("UUID");
    EXPECT_TRUE(uuid_form.match(first).hasMatch()) << first.toStdString();
    EXPECT_TRUE(uuid_form.match(second).hasMatch());
    EXPECT_NE(first, second);
}

TEST(create_costyle, writes_entries_in_code_unit_order)
{
    const parsed_style style = convert_to_style(preset_with({{"Temperature", "5500"},
                                                             {"Sharpness", "20"},
                                                             {"PostCropVignetteAmount", "-10"},
                                                             {"PostCropVignetteRoundness", "0"},
                                                             {"Exposure2012", "1"}}));
    EXPECT_EQ(style.keys, (QStringList{"ColorCorrections", "Exposure", "Name", "UUID", "UsmAmount", "Vignetting",
                                       "WhiteBalanceTemperature", "WhiteBalanceTint"}));
}

TEST(create_costyle, escapes_markup_in_values)
{
    const QString name = QStringLiteral("Rock & \"Roll\" <B/W> 'x'");
    QString out;
    shared_writer().create_costyle(preset_with({}, name), out, QStringLiteral("raw"));
    EXPECT_TRUE(out.contains(QStringLiteral("V=\"Rock &amp; &quot;Roll&quot; &lt;B/W&gt; 'x'\""))) << out.toStdString();
    const parsed_style style = parse_style(out);
    EXPECT_TRUE(style.error.isEmpty());
    EXPECT_EQ(style.value("Name"), name);
}

TEST(create_costyle, detects_process_2010_by_its_listed_keys)
{
    // Fill light is mapped only for a 2010 preset, and its own key is not
    // among those that make one.
    EXPECT_TRUE(convert_to_style(preset_with({{"FillLights", "1"}, {"FillLight", "20"}})).has("ShadowRecovery"));
    EXPECT_TRUE(convert_to_style(preset_with({{"Shadows", "0"}, {"FillLight", "20"}})).has("ShadowRecovery"));
    EXPECT_FALSE(convert_to_style(preset_with({{"FillLight", "20"}})).has("ShadowRecovery"));
}

TEST(create_costyle, logs_the_chosen_colour_space)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"adobe", "Using AdobeRGB colorspace (converting)"},
        {"srgb", "Using sRGB colorspace (converting)"},
        {"prophoto", "Using ProPhoto colorspace (some conversion)"},
        {"widegamut", "Using Wide Gamut RGB colorspace (converting)"},
        {"raw", "Using Wide Gamut RGB colorspace (RAW, some conversion)"},
    };
    for (const auto& [colour_space, message] : cases) {
        const message_log log;
        convert(lightroom_importer(), colour_space);
        EXPECT_TRUE(log.contains(message)) << colour_space;
    }
    const message_log log;
    convert(lightroom_importer(), QStringLiteral("Adobe"));
    EXPECT_FALSE(log.contains(QStringLiteral("colorspace")));
}

TEST(create_costyle, reads_the_colour_space_from_the_stored_setting)
{
    const lightroom_importer preset = full_preset();
    const auto stored_document = [&preset]() {
        QString out;
        shared_writer().create_costyle(preset, out);
        return mask_uuid(out);
    };
    {
        const stored_colour_space unset;
        EXPECT_EQ(stored_document(), mask_uuid(convert(preset, QStringLiteral("raw"))));
    }
    for (const char* colour_space : {"adobe", "srgb", "prophoto"}) {
        const stored_colour_space stored{QString::fromLatin1(colour_space)};
        EXPECT_EQ(stored_document(), mask_uuid(convert(preset, QString::fromLatin1(colour_space)))) << colour_space;
    }
}

TEST(create_costyle, explicit_colour_space_leaves_the_stored_settings_alone)
{
    const stored_colour_space unset;
    convert(full_preset(), QStringLiteral("srgb"));
    EXPECT_FALSE(QSettings().contains(QStringLiteral("colorspace")));
}

// Complete documents, compared line by line. Run the test program with
// STYLEWRIGHT_WRITE_GOLDEN=1 to write them anew after a deliberate change.
TEST(create_costyle, matches_the_golden_document_of_each_colour_space)
{
    const lightroom_importer preset = full_preset();
    for (const char* colour_space : {"adobe", "srgb", "prophoto", "widegamut", "raw"}) {
        SCOPED_TRACE(colour_space);
        const QString document = mask_uuid(convert(preset, QString::fromLatin1(colour_space)));
        const QString path = QStringLiteral(STYLEWRIGHT_TEST_DATA_DIR "/full_preset_%1.costyle").arg(colour_space);
        QFile file(path);
        if (qEnvironmentVariableIsSet("STYLEWRIGHT_WRITE_GOLDEN")) {
            ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write(document.toUtf8());
            continue;
        }
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        const QStringList expected = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
        const QStringList actual = document.split(QLatin1Char('\n'));
        ASSERT_EQ(actual.size(), expected.size());
        for (int i = 0; i < actual.size(); ++i)
            EXPECT_EQ(actual[i], expected[i]) << "line " << i + 1;
    }
}

// Values at the edges of what a float holds must neither crash nor break
// the document, whatever group reads them.
TEST(create_costyle, survives_extreme_values_in_every_read_key)
{
    QSet<QString> keys;
    const preset_settings none;
    add_frame_keys(keys);
    add_white_balance_tone_keys(none, mapping_flags{true, true}, keys);
    add_black_and_white_keys(mapping_flags{true, true}, keys);
    add_colour_keys(preset_settings{{QStringLiteral("SplitToningBalance"), QStringLiteral("0")}}, keys);
    add_detail_and_effects_keys(keys);
    for (const char* extreme : {"nan", "inf", "-inf", "1e30", "-1e30", "3e38", "1e-40"}) {
        SCOPED_TRACE(extreme);
        lightroom_importer preset;
        for (const QString& key : keys)
            preset.settings.insert(key, QString::fromLatin1(extreme));
        preset.settings.insert(QStringLiteral("ConvertToGrayscale"), QStringLiteral("true"));
        for (const char* colour_space : {"srgb", "raw"}) {
            const parsed_style style = convert_to_style(preset, colour_space);
            EXPECT_TRUE(style.error.isEmpty()) << style.error.toStdString();
            EXPECT_TRUE(style.has("ColorBalanceShadow"));
        }
    }
}

// Every readable preset of the corpus converts into a well-formed style in
// every colour space.
TEST(create_costyle, converts_every_corpus_preset)
{
    const QString corpus = test_support::corpus_dir();
    if (corpus.isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    QDirIterator files(corpus, {QStringLiteral("*.lrtemplate"), QStringLiteral("*.xmp")}, QDir::Files,
                       QDirIterator::Subdirectories);
    int converted = 0;
    while (files.hasNext()) {
        const QString path = files.next();
        SCOPED_TRACE(path.toStdString());
        lightroom_importer preset;
        try {
            if (path.endsWith(QLatin1String(".xmp")))
                preset.read_xmp(path);
            else
                preset.read_lrpreset(path);
        } catch (const std::runtime_error&) {
            continue; // a reader's verdict, not the writer's business
        }
        for (const char* colour_space : {"adobe", "srgb", "prophoto", "widegamut", "raw"}) {
            const parsed_style style = convert_to_style(preset, colour_space);
            ASSERT_TRUE(style.error.isEmpty()) << colour_space << ": " << style.error.toStdString();
            EXPECT_EQ(style.engine, "900");
            EXPECT_TRUE(style.has("Name") && style.has("UUID") && style.has("ColorCorrections"));
            for (auto entry = style.entries.cbegin(); entry != style.entries.cend(); ++entry)
                EXPECT_FALSE(entry.value().contains(QLatin1String("nan")) || entry.value().contains(QLatin1String("inf")))
                    << qPrintable(entry.key()) << " = " << qPrintable(entry.value());
        }
        ++converted;
    }
    EXPECT_GT(converted, 0);
}
