// SPDX-License-Identifier: GPL-3.0-or-later
#include "importer/lightroom_importer.h"

#include <gtest/gtest.h>

// What the readers note beside the settings: local adjustments by kind, the
// Look, keys that are no develop settings; the settings themselves unchanged.
TEST(preset_extras, readers_count_local_adjustments_and_name_the_look)
{
    lightroom_importer nested;
    nested.read_regular_lrpreset(QStringLiteral(
        "s = { title = \"T\", value = { settings = {\n"
        "  GradientBasedCorrections = { { CorrectionMasks = { { What = \"Mask/Gradient\", }, }, }, { What = \"x\", }, },\n"
        "  CircularGradientBasedCorrections = { { A = 1, }, },\n"
        "  RetouchAreas = { { B = 2, }, },\n"
        "  Look = { Name = \"Adobe Color\", Amount = 1, },\n"
        "  WhiteBalance = \"Auto\", Exposure2012 = 0.5,\n"
        "}, }, }"));
    EXPECT_EQ(nested.extras.local_adjustments, (QMap<QString, int>{{"gradient", 2}, {"radial", 1}}));
    EXPECT_EQ(nested.extras.look, "Adobe Color");
    EXPECT_EQ(named_white_balance(nested.settings), "Auto");
    EXPECT_EQ(nested.settings.value("Name"), "Adobe Color"); // flattened as it always was
    EXPECT_FALSE(nested.settings.contains("GradientBasedCorrections"));

    lightroom_importer xmp;
    xmp.read_xmp_data(
        "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">"
        "<rdf:Description rdf:about=\"\" xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\" "
        "xmlns:tiff=\"http://ns.adobe.com/tiff/1.0/\" tiff:Make=\"Canon\" crs:WhiteBalance=\"As Shot\" crs:Make=\"x\">"
        "<crs:MaskGroupBasedCorrections><rdf:Seq><rdf:li/><rdf:li/><rdf:li/></rdf:Seq></crs:MaskGroupBasedCorrections>"
        "<crs:PaintBasedCorrections><rdf:Seq><rdf:li><rdf:Seq><rdf:li/></rdf:Seq></rdf:li></rdf:Seq>"
        "</crs:PaintBasedCorrections><crs:Look><rdf:Description crs:Name=\"Adobe Monochrome\"/></crs:Look>"
        "<tiff:Model>nested fields are skipped</tiff:Model></rdf:Description></rdf:RDF></x:xmpmeta>");
    EXPECT_EQ(xmp.extras.local_adjustments, (QMap<QString, int>{{"brush", 1}, {"mask_groups", 3}}));
    EXPECT_EQ(xmp.extras.look, "Adobe Monochrome");
    EXPECT_EQ(named_white_balance(xmp.settings), "");
    // The later crs:Make is a develop key again; rdf:about never was one.
    EXPECT_EQ(xmp.extras.non_develop_keys, (QSet<QString>{"about"}));

    lightroom_importer dotted;
    dotted.settings.insert("WhiteBalance", "\"Daylight\"");
    EXPECT_EQ(named_white_balance(dotted.settings), "Daylight");
}
