// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/conversion_run.h"
#include "support/conversion_fixtures.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <vector>

using namespace fixtures;

namespace {

// A run's surroundings: presets in one folder, styles in another, and a shell
// that answers from a script (Convert where it has none) and remembers what it was told.
struct conversion_bench : conversion_shell {
    question_answer ask(const conversion_question& question) override
    {
        questions.push_back(question);
        return answers.value(question.kind, question_answer::convert);
    }
    void report_failure(const conversion_failure& failure) override { failures.push_back(failure); }
    QString output_folder() override
    {
        ++folder_requests;
        return out.path();
    }
    bool cancelled() override { return false; }
    void progress(int, int, const QString&) override {}

    QString preset(const QString& file, const QString& name, const QString& flags = QString()) const
    {
        return write_file(in.path(), file, preset_text(file, name, flagged(flags)));
    }
    QStringList written() const { return QDir(out.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
    QByteArray style(const QString& name) const { return read_file(out.filePath(name)); }
    conversion_result run(const QStringList& files, const QString& format = output_format_name(output_format::separate))
    {
        conversion_options options;
        options.format = parse_output_format(format).value_or(output_format::stylepack);
        options.colour_space = colour_space_name(colour_space::raw);
        return run_conversion(files, options, *this);
    }
    // The questions asked, as "<index of the preset>:<question>".
    QString asked(const QStringList& files) const
    {
        const char* const kinds[] = {"wb", "unsupported", "cal"};
        QStringList result;
        for (const auto& question : questions)
            result << QStringLiteral("%1:%2").arg(files.indexOf(question.file)).arg(kinds[int(question.kind)]);
        return result.join(QLatin1Char(' '));
    }

    QTemporaryDir in;
    QTemporaryDir out;
    QMap<preset_question, question_answer> answers;
    std::vector<conversion_question> questions;
    std::vector<conversion_failure> failures;
    int folder_requests = 0;
};

} // namespace

TEST(conversion_run, reads_by_suffix_names_by_base_name_and_goes_on_after_failures)
{
    conversion_bench b;
    const QStringList files = {b.preset("Preset.XMP", "Upper"), b.preset("a.LRTemplate", "Mixed"),
                               b.preset("My.Look.xmp", "Dotted"), b.preset("a.lrtemplate.bak", "A"),
                               write_file(b.in.path(), "broken.lrtemplate", "s = {\n title = \"x\"\n value = 1,\n}\n"),
                               // A reader that can't open its file leaves the record empty without an error.
                               b.in.filePath("gone.xmp")};
    const conversion_result result = b.run(files);

    EXPECT_EQ(b.written(), (QStringList{"My.Look.costyle", "Preset.costyle", "a.costyle", "gone.costyle"}));
    EXPECT_EQ(result.counts().converted, 4);
    EXPECT_EQ(result.counts().failed, 2);
    EXPECT_TRUE(b.style("a.costyle").contains("V=\"Mixed\""));
    EXPECT_TRUE(b.style("gone.costyle").contains("K=\"Name\" V=\"\""));
    ASSERT_EQ(b.failures.size(), 2u);
    EXPECT_EQ(b.failures[0].kind, failure_kind::unsupported_format);
    EXPECT_EQ(b.failures[0].file, files[3]);
    EXPECT_EQ(b.failures[1].kind, failure_kind::unreadable_preset);
    EXPECT_TRUE(b.failures[1].text.endsWith("<br/><br/>Error: Unexpected token type found. Expected "
                                            "token_type::comma, got token_type::name"));
    // Only presets that were read ask for the output folder.
    EXPECT_EQ(b.folder_requests, 4);
}

TEST(conversion_run, questions_follow_the_flags_in_order_and_name_the_preset)
{
    conversion_bench b;
    const QStringList files = {b.preset("all.xmp", "Everything", "wb dehaze lut cal"),
                               b.preset("haze.xmp", "Haze", "dehaze")};
    b.run(files);

    EXPECT_EQ(b.asked(files), "0:wb 0:unsupported 0:cal 1:unsupported");
    for (const auto& question : b.questions) {
        const QString name = question.file == files[0] ? "Everything" : "Haze";
        EXPECT_TRUE(question.text.contains(conversion_messages::wrap_name(name)));
        EXPECT_EQ(question.labels.skip_all, "Skip All");
    }
    EXPECT_TRUE(b.questions.at(1).text.contains(":<br/>- LUT<br/>- Dehaze<br/><br/>"));
    EXPECT_TRUE(b.questions.at(3).text.contains(":<br/>- Dehaze<br/><br/>"));
}

TEST(conversion_run, answers_are_remembered_by_the_rules_of_the_run)
{
    using answer = question_answer;
    using question = preset_question;
    const struct {
        const char* rule;
        QMap<question, answer> answers;
        QStringList presets; // the flags each preset raises
        QString asked;
        QStringList written; // the others are skipped
    } cases[] = {
        {"a skip ends the preset at once", {{question::white_balance, answer::skip}}, {"wb dehaze cal"}, "0:wb", {}},
        {"a skip is not remembered", {{question::white_balance, answer::skip}}, {"wb", "wb"}, "0:wb 1:wb", {}},
        {"Skip All skips before any question",
         {{question::white_balance, answer::skip_all}}, {"wb", "wb cal", "cal"}, "0:wb 2:cal", {"p2.costyle"}},
        {"Skip All covers LUT and Dehaze", {{question::unsupported_parameters, answer::skip_all}},
         {"lut", "dehaze", ""}, "0:unsupported", {"p2.costyle"}},
        {"Skip All on calibration",
         {{question::camera_calibration, answer::skip_all}}, {"cal", "wb cal", "wb"}, "0:cal 2:wb", {"p2.costyle"}},
        {"Convert All silences only its own question", {{question::white_balance, answer::convert_all}},
         {"wb", "wb dehaze cal"}, "0:wb 1:unsupported 1:cal", {"p0.costyle", "p1.costyle"}},
        {"a closed box converts and remembers nothing",
         {{question::white_balance, answer::closed}, {question::camera_calibration, answer::closed}},
         {"wb cal", "wb"}, "0:wb 0:cal 1:wb", {"p0.costyle", "p1.costyle"}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.rule);
        conversion_bench b;
        b.answers = c.answers;
        QStringList files;
        for (int i = 0; i < c.presets.size(); ++i)
            files << b.preset(QStringLiteral("p%1.xmp").arg(i), QStringLiteral("P%1").arg(i), c.presets[i]);
        const conversion_result result = b.run(files);
        EXPECT_EQ(b.asked(files), c.asked);
        EXPECT_EQ(b.written(), c.written);
        EXPECT_EQ(result.counts().converted, c.written.size());
        EXPECT_EQ(result.counts().skipped, files.size() - c.written.size());
    }
}

