#include "importer/lightroom_importer.h"
#include "log_capture.h"
#include "qt_print.h"
#include "test_support.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <stdexcept>

// Every real preset of the shared corpus is read by its reader; a few are
// checked against values read off the files by hand.

namespace {

QString corpus_file(const QString& relative)
{
    return QDir(test_support::corpus_dir()).filePath(relative);
}

QStringList corpus_files(const QString& folder)
{
    QStringList files;
    const QDir dir(corpus_file(folder));
    for (const QFileInfo& info : dir.entryInfoList(QDir::Files, QDir::Name))
        files << info.absoluteFilePath();
    return files;
}

TEST(corpus, every_template_fills_a_record_or_fails_with_a_syntax_message)
{
    if (test_support::corpus_dir().isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    const QStringList files = corpus_files(QStringLiteral("lrtemplate"));
    ASSERT_FALSE(files.isEmpty());

    const QRegularExpression syntax_message(QStringLiteral(
        "^(Unexpected token type found\\. Expected token_type::[a-z]+, got token_type::[a-z]+"
        "|Unsupported curve type: \\S+|Tables nested more than 200 levels deep)$"));
    std::map<std::string, int> outcomes;
    for (const QString& path : files) {
        const log_capture log(false);
        lightroom_importer record;
        try {
            record.read_lrpreset(path);
            EXPECT_FALSE(record.settings.isEmpty()) << path.toStdString();
            ++outcomes["record"];
        } catch (const std::runtime_error& e) {
            EXPECT_TRUE(syntax_message.match(QString::fromUtf8(e.what())).hasMatch())
                << path.toStdString() << ": " << e.what();
            ++outcomes[e.what()];
            std::cout << "  " << QFileInfo(path).fileName().toStdString() << ": " << e.what() << '\n';
        }
    }
    std::cout << files.size() << " templates:\n";
    for (const auto& o : outcomes)
        std::cout << "  " << o.second << " x " << o.first << '\n';
}

TEST(corpus, every_xmp_fills_a_record_or_reports_its_failure)
{
    if (test_support::corpus_dir().isEmpty())
        GTEST_SKIP() << "corpus folder absent";
    const QStringList files = corpus_files(QStringLiteral("xmp"));
    ASSERT_FALSE(files.isEmpty());

    std::map<std::string, int> outcomes;
    for (const QString& path : files) {
        const log_capture log(false);
        lightroom_importer record;
        record.read_xmp(path);
        const QVector<QString> failures = log.of_type(QtCriticalMsg) + log.of_type(QtWarningMsg);
        EXPECT_TRUE(!record.settings.isEmpty() || !failures.isEmpty()) << path.toStdString();
        if (failures.isEmpty()) {
            ++outcomes["record"];
        } else {
            ++outcomes[failures.first().toStdString()];
            std::cout << "  " << QFileInfo(path).fileName().toStdString() << ": " << failures.first().toStdString() << '\n';
        }
    }
    std::cout << files.size() << " XMP files:\n";
    for (const auto& o : outcomes)
        std::cout << "  " << o.second << " x " << o.first << '\n';
}

// Values below were read off the files by hand.

class corpus_file_test : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (test_support::corpus_dir().isEmpty())
            GTEST_SKIP() << "corpus folder absent";
    }
    const log_capture log_{false};
};

TEST_F(corpus_file_test, nested_template_with_four_curves_and_crlf)
{
    lightroom_importer record;
    record.read_lrpreset(corpus_file(QStringLiteral("lrtemplate/d5-lilac-1-standard.lrtemplate")));
    EXPECT_EQ(record.name, QStringLiteral("Lilac 1 Standard"));
    EXPECT_EQ(record.settings.value(QStringLiteral("Exposure2012")), QStringLiteral("1.3"));
    EXPECT_EQ(record.settings.value(QStringLiteral("Blacks2012")), QStringLiteral("-44"));
    EXPECT_EQ(record.settings.value(QStringLiteral("CameraProfile")), QStringLiteral("Embedded"));
    EXPECT_EQ(record.settings.value(QStringLiteral("uuid")), QStringLiteral("3F322E86-0B05-4A93-BCAE-25F0032A66C0"));
    EXPECT_EQ(record.settings.value(QStringLiteral("version")), QStringLiteral("0"));
    EXPECT_FALSE(record.settings.contains(QStringLiteral("ToneCurvePV2012")));
    EXPECT_EQ(record.tone_curve, (QVector<QPoint>{{0, 0}, {90, 69}, {141, 122}, {255, 255}}));
    EXPECT_EQ(record.tone_curve_red.size(), 5);
    EXPECT_EQ(record.tone_curve_red.value(1), QPoint(41, 25));
    EXPECT_EQ(record.tone_curve_green.size(), 5);
    EXPECT_EQ(record.tone_curve_blue.size(), 5);
    EXPECT_EQ(record.tone_curve_blue.value(3), QPoint(181, 200));
}

TEST_F(corpus_file_test, one_line_template_with_non_ascii_title)
{
    lightroom_importer record;
    record.read_lrpreset(corpus_file(QStringLiteral("lrtemplate/d5-voxcolor-068-oneline-nonascii.lrtemplate")));
    EXPECT_EQ(record.name, QStringLiteral("068 \u25cf\u25cf\u25cf"));
    EXPECT_EQ(record.settings.value(QStringLiteral("Clarity2012")), QStringLiteral("60"));
    EXPECT_EQ(record.settings.value(QStringLiteral("HueAdjustmentPurple")), QStringLiteral("-6"));
    EXPECT_EQ(record.tone_curve.size(), 6);
    EXPECT_EQ(record.tone_curve.value(0), QPoint(0, 3));
    EXPECT_EQ(record.tone_curve.value(5), QPoint(255, 253));
    EXPECT_EQ(record.tone_curve_blue.value(1), QPoint(51, 66));
    EXPECT_EQ(record.tone_curve_red.size(), 6);
    EXPECT_EQ(record.tone_curve_green.size(), 6);
}

TEST_F(corpus_file_test, legacy_curve_and_decimal_value)
{
    lightroom_importer record;
    record.read_lrpreset(corpus_file(QStringLiteral("lrtemplate/d5-bw-dependable-partial-fractional-split.lrtemplate")));
    EXPECT_EQ(record.name, QStringLiteral("BW Dependable"));
    EXPECT_EQ(record.settings.value(QStringLiteral("ParametricMidtoneSplit")), QStringLiteral("30.322580645161"));
    EXPECT_EQ(record.settings.value(QStringLiteral("ConvertToGrayscale")), QStringLiteral("true"));
    EXPECT_EQ(record.tone_curve,
              (QVector<QPoint>{{0, 0}, {32, 16}, {64, 50}, {128, 128}, {192, 202}, {255, 255}}));
    EXPECT_TRUE(record.tone_curve_red.isEmpty());
}

// The same preset as template and as Lightroom's XMP conversion of it.
TEST_F(corpus_file_test, template_and_xmp_of_one_preset_agree)
{
    lightroom_importer lrt;
    lrt.read_lrpreset(corpus_file(QStringLiteral("lrtemplate/jolt-usa-joshuatree-01.lrtemplate")));
    lightroom_importer xmp;
    xmp.read_xmp(corpus_file(QStringLiteral("xmp/jolt-usa-joshuatree-01-lr73conv.xmp")));

    EXPECT_EQ(lrt.name, QStringLiteral("usa_joshuaTree_01"));
    EXPECT_EQ(xmp.name, QStringLiteral("usa_joshuaTree_01"));
    EXPECT_TRUE(xmp.description.isEmpty());
    // The gradient list of tables is skipped in the template, the nested
    // correction elements in the XMP.
    for (const lightroom_importer* record : {&lrt, &xmp}) {
        EXPECT_FALSE(record->settings.contains(QStringLiteral("LocalHighlights2012")));
        EXPECT_FALSE(record->settings.contains(QStringLiteral("CorrectionAmount")));
    }
    EXPECT_EQ(lrt.settings.value(QStringLiteral("Contrast2012")), QStringLiteral("9"));
    EXPECT_EQ(xmp.settings.value(QStringLiteral("Contrast2012")), QStringLiteral("+9"));
    EXPECT_EQ(xmp.settings.value(QStringLiteral("Vibrance")), QStringLiteral("+10"));
    EXPECT_EQ(xmp.settings.value(QStringLiteral("about")), QString());

    const QVector<QPoint> master{{0, 6}, {45, 39}, {134, 139}, {255, 255}};
    EXPECT_EQ(xmp.tone_curve, master);
    EXPECT_EQ(lrt.tone_curve, master);
    EXPECT_EQ(xmp.tone_curve_red, (QVector<QPoint>{{0, 0}, {77, 77}, {255, 255}}));
    EXPECT_EQ(lrt.tone_curve_red, xmp.tone_curve_red);
    EXPECT_EQ(xmp.tone_curve_green.size(), 4);
    EXPECT_EQ(lrt.tone_curve_green, xmp.tone_curve_green);
    EXPECT_EQ(xmp.tone_curve_blue, (QVector<QPoint>{{0, 0}, {29, 35}, {229, 223}, {255, 255}}));
    EXPECT_EQ(lrt.tone_curve_blue, xmp.tone_curve_blue);
}

TEST_F(corpus_file_test, xmp_look_with_large_table_attribute)
{
    lightroom_importer record;
    record.read_xmp(corpus_file(QStringLiteral("xmp/tfl-fuji-classic-chrome-look-profile-rgbtable.xmp")));
    EXPECT_EQ(record.name, QStringLiteral("Classic Chrome"));
    EXPECT_EQ(record.settings.value(QStringLiteral("PresetType")), QStringLiteral("Look"));
    EXPECT_EQ(record.settings.value(QStringLiteral("RGBTable")), QStringLiteral("844371C8CC19B4C7B0180BF8E9B483DB"));
    EXPECT_EQ(record.settings.value(QStringLiteral("Table_844371C8CC19B4C7B0180BF8E9B483DB")).size(), 228422);
    EXPECT_TRUE(record.tone_curve.isEmpty());
    EXPECT_TRUE(record.tone_curve_red.isEmpty());
}

} // namespace
