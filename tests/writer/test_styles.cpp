// SPDX-License-Identifier: GPL-3.0-or-later
// The style writer over a folder of presets that reach every mapping group and its edges: for each,
// the flags the check raises, the settings a style leaves out, and the style's entries in every
// colour space, written out as text that must read as data/styles.golden.
#include "support/golden.h"
#include "importer/lightroom_importer.h"
#include "support/log_capture.h"
#include "writer/carried_settings.h"
#include "writer/colour_space.h"
#include "writer/costyle_writer.h"

#include <QDir>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

namespace {

const QString data = QStringLiteral(STYLEWRIGHT_TEST_DATA_DIR);

const costyle_writer& writer()
{
    static const costyle_writer shared;
    return shared;
}

QString masked(QString document)
{
    static const QRegularExpression uuid(QStringLiteral("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}"));
    return document.replace(uuid, QStringLiteral("UUID"));
}

QString style_of(const lightroom_importer& preset, const QString& colour_space)
{
    QString document;
    writer().create_costyle(preset, document, colour_space);
    return masked(document);
}

// The entries of a style document, "key=value" in document order.
QStringList entries(const QString& document)
{
    QStringList lines;
    QXmlStreamReader xml(document);
    if (xml.readNextStartElement()) {
        for (; xml.readNextStartElement(); xml.skipCurrentElement())
            lines << xml.attributes().value(QStringLiteral("K")) + QLatin1Char('=')
                         + xml.attributes().value(QStringLiteral("V"));
    }
    if (xml.hasError())
        lines << QStringLiteral("unreadable: ") + xml.errorString();
    return lines;
}

QStringList describe(const lightroom_importer& preset)
{
    bool white_balance = false, dehaze = false, lut = false, calibration = false;
    writer().check_costyle(white_balance, dehaze, lut, calibration, preset);
    QStringList lines{QStringLiteral("flags: wb %1, dehaze %2, lut %3, calibration %4")
                          .arg(white_balance).arg(dehaze).arg(lut).arg(calibration),
                      QStringLiteral("leaves out: ")
                          + not_carried_over(preset, keys_a_conversion_reads(preset)).join(QStringLiteral(", "))};
    const QStringList raw = entries(style_of(preset, colour_space_name(colour_space::raw)));
    for (const colour_space each : all_colour_spaces) {
        const QString space = colour_space_name(each);
        const test_support::log_capture log;
        const QStringList style = entries(style_of(preset, space));
        // Each other colour space lists what differs from raw, and what raw has alone.
        for (const QString& entry : style) {
            if (each == colour_space::raw || !raw.contains(entry))
                lines << space + QStringLiteral(": ") + entry;
        }
        for (const QString& entry : raw) {
            const QString key = entry.section(QLatin1Char('='), 0, 0) + QLatin1Char('=');
            if (std::none_of(style.begin(), style.end(), [&key](const QString& e) { return e.startsWith(key); }))
                lines << space + QStringLiteral(": no ") + key.chopped(1);
        }
        for (const QString& line : log.warnings() + log.of(QtCriticalMsg))
            lines << space + QStringLiteral(" log: ") + line;
    }
    return lines;
}

lightroom_importer read(const QString& path)
{
    const test_support::log_capture quiet(false);
    lightroom_importer preset;
    preset.read_lrpreset(path);
    return preset;
}

} // namespace

TEST(styles, every_preset_converts_as_recorded)
{
    QStringList record;
    for (const QFileInfo& file : QDir(data + QStringLiteral("/presets")).entryInfoList(QDir::Files, QDir::Name))
        record << QStringLiteral("== ") + file.fileName() << describe(read(file.filePath())) << QString();
    const QString actual = record.join(QLatin1Char('\n'));
    test_support::expect_golden(data + QStringLiteral("/styles.golden"), actual);
}

// The document itself: its exact form, names escaped, a fresh identity each
// time, the table each colour space announces.
TEST(styles, the_document_is_well_formed_escaped_and_new_each_time)
{
    QString out = QStringLiteral("kept");
    EXPECT_TRUE(writer().create_costyle(lightroom_importer(), out, colour_space_name(colour_space::raw)));
    EXPECT_EQ(masked(out), QStringLiteral("kept<?xml version=\"1.0\"?>\n<SL Engine=\"900\">\n    <E K=\"ColorCorrections\" "
                                          "V=\"1,1,2,2.36563158035278,-15.9744558334351,0,174,139,97,0,25,-42.1264381408691,"
                                          "25.6254768371582,25,0,0,0,0\"/>\n    <E K=\"Name\" V=\"\"/>\n"
                                          "    <E K=\"UUID\" V=\"UUID\"/>\n</SL>\n"));
    lightroom_importer named;
    named.name = QStringLiteral("Rock & \"Roll\" <B/W> 'x'");
    QString document;
    writer().create_costyle(named, document, colour_space_name(colour_space::raw));
    EXPECT_TRUE(document.contains(QStringLiteral("V=\"Rock &amp; &quot;Roll&quot; &lt;B/W&gt; 'x'\"")));
    QString again;
    writer().create_costyle(named, again, colour_space_name(colour_space::raw));
    EXPECT_NE(document, again);
    EXPECT_EQ(masked(document), masked(again));

    const char* const announced[] = {"Using Wide Gamut RGB colorspace (RAW, some conversion)",
                                     "Using AdobeRGB colorspace (converting)", "Using sRGB colorspace (converting)",
                                     "Using ProPhoto colorspace (some conversion)",
                                     "Using Wide Gamut RGB colorspace (converting)"};
    for (int i = 0; i < 5; ++i) {
        const test_support::log_capture log;
        style_of(named, colour_space_name(all_colour_spaces.at(std::size_t(i))));
        EXPECT_EQ(log.of(QtDebugMsg), QStringList{QLatin1String(announced[i])});
    }
    const test_support::log_capture log;
    // An unknown name: the colours pass through, nothing announced.
    EXPECT_EQ(entries(style_of(named, QStringLiteral("Adobe"))), entries(style_of(named, QStringLiteral("none"))));
    EXPECT_TRUE(log.of(QtDebugMsg).isEmpty());
}

// Number texts at the edges of single precision, put into each setting of a
// full colour preset and a grayscale one, convert like the number they equal,
// or like any text that is no number when toFloat rejects them (overflow
// included): absent where a number is needed, 0 where such a text counts as 0.
TEST(styles, number_texts_at_the_edges_read_as_what_they_equal_or_not_at_all)
{
    const std::pair<const char*, const char*> texts[] = {
        {"1e39", nullptr}, {"-1e39", nullptr}, {"-3.4028236e38", nullptr}, {"3.4028235e38", "3.4028235e38"},
        {"1e-45", "1e-45"}, {" 7", "7"}, {"0x10", nullptr}, {"+5", "5"}, {"5.", "5"}, {".5", "0.5"},
        {"", nullptr}, {"nan", nullptr}};
    lightroom_importer grayscale;
    grayscale.settings = {{"ConvertToGrayscale", "True"}, {"GrayMixerRed", "-20"}, {"GrayMixerOrange", "30"},
                          {"GrayMixerAqua", "10"}, {"SplitToningShadowHue", "220"},
                          {"SplitToningShadowSaturation", "25"}, {"SplitToningBalance", "-30"},
                          {"Highlights2012", "-40"}, {"Temperature", "5000"}};
    const test_support::log_capture quiet(false);
    for (const lightroom_importer& base : {read(data + QStringLiteral("/presets/full preset.lrtemplate")), grayscale}) {
        for (const QString& key : base.settings.keys()) {
            if (key == QLatin1String("ConvertToGrayscale") || key == QLatin1String("title"))
                continue;
            for (const auto& [text, same] : texts) {
                lightroom_importer edge = base, expected = base;
                edge.settings.insert(key, QLatin1String(text));
                expected.settings.insert(key, same ? QLatin1String(same) : QLatin1String("no number"));
                for (const char* space : {"srgb", "raw"}) {
                    const QString document = style_of(edge, QLatin1String(space));
                    EXPECT_EQ(document, style_of(expected, QLatin1String(space))) << key.toStdString() << "=" << text;
                    EXPECT_FALSE(document.contains(QLatin1String("inf")) || document.contains(QLatin1String("nan")));
                }
            }
        }
    }
}
