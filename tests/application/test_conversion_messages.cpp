// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/conversion_messages.h"
#include "support/conversion_fixtures.h"

#include <gtest/gtest.h>

using namespace conversion_messages;

template <typename message>
QStringList shown(const message& m)
{
    return {m.title, m.text};
}

TEST(conversion_messages, titles_and_texts_are_exact)
{
    const question_labels labels = translated_labels();
    EXPECT_EQ((QStringList{labels.convert, labels.skip, labels.convert_all, labels.skip_all}),
              (QStringList{"Convert", "Skip", "Convert All", "Skip All"}));
    EXPECT_EQ(wrap_name("Warm"), "<font color=\"white\"><b>Warm</b></font>");
    const QString warm = wrap_name("Warm");
    const QString support = "send them a screenshot of this message and the preset file stated above to "
                            "support@quillmark.example";
    const std::pair<QStringList, QStringList> cases[] = {
        {shown(white_balance_question("f", "Warm", labels)),
         {"White balance modified by preset",
          "Your preset " + warm + " contains values for the white balance.<br/><br/>Equal white balance values can "
          "lead to different results in Capture One.<br/>Thus Stylewright translates the values instead of adapting "
          "them visually.<br/>Anyway we recommend to keep the white balance settings for neutralizing the image "
          "instead of using them for creating a look.<br/>For this reason they should not be inside a preset."}},
        {shown(unsupported_parameters_question("f", "Warm", true, true, labels)),
         {"Unsupported parameters in preset", "Your selected preset " + warm + " contains the following parameters, "
          "which can't be mapped in Capture One:<br/>- LUT<br/>- Dehaze<br/><br/>These parameters will be ignored."}},
        // One line per raised flag; a "%2" in the name stays as it is.
        {shown(unsupported_parameters_question("f", "Look %2", false, true, labels)),
         {"Unsupported parameters in preset", "Your selected preset " + wrap_name("Look %2") + " contains the "
          "following parameters, which can't be mapped in Capture One:<br/>- Dehaze<br/><br/>These parameters will "
          "be ignored."}},
        {shown(unsupported_parameters_question("f", "Warm", true, false, labels)),
         {"Unsupported parameters in preset", "Your selected preset " + warm + " contains the following parameters, "
          "which can't be mapped in Capture One:<br/>- LUT<br/><br/>These parameters will be ignored."}},
        {shown(camera_calibration_question("f", "Warm", labels)),
         {"Camera calibration modified by preset",
          "The preset " + warm + " contains values for the camera calibration.<br/>These settings may influence the "
          "resulting look significantly but will not be converted to Capture One.<br/>We recommend to reserve these "
          "parameters for the calibration of your camera and not for creating creative looks."}},
        {shown(unsupported_format("/x/a.lrtemplate.bak")),
         {"Unsupported preset format",
          "Your preset " + wrap_name("a.lrtemplate.bak") + " is in a format Stylewright can't convert."}},
        // Neither the file name nor the error text is expanded.
        {shown(unreadable_preset("/x/a %1.xmp", "bad %1")),
         {"Can't read preset", "Your preset " + wrap_name("a %1.xmp") + " can't be processed by Stylewright.<br/>"
          "<br/>Please contact the Quillmark support and " + support + "<br/><br/>Error: bad %1"}},
        // The lone "<br>" is part of the text.
        {shown(conversion_failed("/x/Warm.xmp")),
         {"Preset conversion failed", "The preset " + wrap_name("Warm.xmp") + " could not be converted to Capture "
          "One format.<br>Please contact Quillmark support and " + support + "<br/><br/>"}},
        {shown(write_failed("/x/a.xmp", "/out/a.costyle", "Disk full")),
         {"Can't write style", "The style " + wrap_name("/out/a.costyle") + " could not be written.<br/>Disk full"}}};
    for (const auto& [actual, expected] : cases)
        EXPECT_EQ(actual, expected);
    EXPECT_EQ(conversion_failed("x").kind, failure_kind::conversion_failed);
}

// The plain line of each message: the same words on one line, names and
// texts from outside as they are, never altered by markup of their own.
TEST(conversion_messages, plain_lines_keep_names_as_they_are)
{
    const question_labels labels = translated_labels();
    const std::pair<QString, QString> cases[] = {
        {unsupported_parameters_question("f", "<b>R&D</b>", true, true, labels).plain,
         "Your selected preset <b>R&D</b> contains the following parameters, which can't be mapped in Capture One: "
         "- LUT - Dehaze These parameters will be ignored."},
        {unreadable_preset("/x/a<br>b.xmp", "line\nbreak\r\nin %1").plain,
         "Your preset a<br>b.xmp can't be processed by Stylewright. Please contact the Quillmark support and send "
         "them a screenshot of this message and the preset file stated above to support@quillmark.example Error: "
         "line break in %1"},
        {conversion_failed("/x/Warm.xmp").plain,
         "The preset Warm.xmp could not be converted to Capture One format. Please contact Quillmark support and "
         "send them a screenshot of this message and the preset file stated above to support@quillmark.example"},
        {write_failed("/x/a.xmp", "/out/a&b.costyle", "Disk <full>").plain,
         "The style /out/a&b.costyle could not be written. Disk <full>"},
        // The box's rich text shows the same name, escaped.
        {white_balance_question("f", "<b>R&D</b>", labels).text.section("<br/>", 0, 0),
         "Your preset <font color=\"white\"><b>&lt;b&gt;R&amp;D&lt;/b&gt;</b></font> contains values for the white "
         "balance."},
        {write_failed("/x/a.xmp", "/o", "Disk <full>").text, "The style " + wrap_name("/o") +
         " could not be written.<br/>Disk &lt;full&gt;"}};
    for (const auto& [actual, expected] : cases)
        EXPECT_EQ(actual, expected);
}
