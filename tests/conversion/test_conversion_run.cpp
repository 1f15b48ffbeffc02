#include "application/conversion_run.h"
#include "conversion/preset_fixtures.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

using namespace preset_fixtures;
using conversion_messages::wrap_name;

namespace {

// Answers from a script (Convert where it has none) and remembers what the run told it.
class fake_shell : public conversion_shell {
public:
    question_answer ask(const conversion_question& question) override
    {
        questions.push_back(question);
        return answers.value(question.kind, question_answer::convert);
    }
    void report_failure(const conversion_failure& failure) override { failures.push_back(failure); }
    QString output_folder() override
    {
        ++folder_requests;
        return folder;
    }
    bool cancelled() override { return cancel_after >= 0 && progress_calls.size() >= cancel_after; }
    void progress(int index, int count, const QString& file) override
    {
        progress_calls << QStringLiteral("%1/%2 %3").arg(index).arg(count).arg(QFileInfo(file).fileName());
    }

    QString folder;
    QMap<preset_question, question_answer> answers;
    std::vector<conversion_question> questions;
    std::vector<conversion_failure> failures;
    QStringList progress_calls;
    int folder_requests = 0;
    int cancel_after = -1;
};

// Presets in one folder, styles in another, and a shell for one run.
struct conversion_bench {
    QString preset(const QString& file, const QString& name, const QString& flags = QString()) const
    {
        const bool lrtemplate = file.endsWith(QLatin1String(".lrtemplate"), Qt::CaseInsensitive);
        return write_file(in.path(), file, lrtemplate ? lrtemplate_text(name, flagged(flags))
                                                      : xmp_text(name, flagged(flags)));
    }
    QString output(const QString& name) const { return QDir(out.path()).filePath(name); }
    QStringList written() const { return QDir(out.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
    conversion_result run(const QStringList& files, const QString& format = "separate")
    {
        shell.folder = out.path();
        conversion_options options;
        options.format = format;
        options.colour_space = QStringLiteral("raw");
        return run_conversion(files, options, shell);
    }
    // The questions asked, as "<index of the preset>:<question>".
    QString asked(const QStringList& files) const
    {
        const char* const kinds[] = {"wb", "unsupported", "cal"};
        QStringList result;
        for (const auto& question : shell.questions)
            result << QStringLiteral("%1:%2").arg(files.indexOf(question.file)).arg(kinds[int(question.kind)]);
        return result.join(QLatin1Char(' '));
    }

    QTemporaryDir in;
    QTemporaryDir out;
    fake_shell shell;
};

} // namespace

TEST(conversion_run, reads_by_suffix_names_by_base_name_and_goes_on_after_failures)
{
    conversion_bench b;
    const QStringList files = {b.preset("Preset.XMP", "Upper"), b.preset("a.LRTemplate", "Mixed"),
                               b.preset("My.Look.xmp", "Dotted"), b.preset("a.lrtemplate.bak", "A"),
                               write_file(b.in.path(), "broken.lrtemplate", "s = {\n title = \"x\"\n value = 1,\n}\n"),
                               // A reader that can't open its file leaves the record empty without an error.
                               QDir(b.in.path()).filePath("gone.xmp")};
    const conversion_result result = b.run(files);

    EXPECT_EQ(b.written(), (QStringList{"My.Look.costyle", "Preset.costyle", "a.costyle", "gone.costyle"}));
    EXPECT_EQ(result.converted, 4);
    EXPECT_EQ(result.failed, 2);
    EXPECT_TRUE(read_file(b.output("a.costyle")).contains("V=\"Mixed\""));
    EXPECT_TRUE(read_file(b.output("gone.costyle")).contains("K=\"Name\" V=\"\""));
    ASSERT_EQ(b.shell.failures.size(), 2u);
    EXPECT_EQ(b.shell.failures[0].kind, failure_kind::unsupported_format);
    EXPECT_EQ(b.shell.failures[0].file, files[3]);
    EXPECT_EQ(b.shell.failures[1].kind, failure_kind::unreadable_preset);
    EXPECT_TRUE(b.shell.failures[1].text.endsWith("<br/><br/>Error: Unexpected token type found. Expected "
                                                  "token_type::comma, got token_type::name"));
    // Only presets that were read ask for the output folder.
    EXPECT_EQ(b.shell.folder_requests, 4);
    EXPECT_TRUE(b.shell.questions.empty());
}

TEST(conversion_run, questions_follow_the_flags_in_order_and_name_the_preset)
{
    conversion_bench b;
    const QStringList files = {b.preset("all.xmp", "Everything", "wb dehaze lut cal"),
                               b.preset("haze.xmp", "Haze", "dehaze")};
    b.run(files);

    EXPECT_EQ(b.asked(files), "0:wb 0:unsupported 0:cal 1:unsupported");
    ASSERT_EQ(b.shell.questions.size(), 4u);
    for (const auto& question : b.shell.questions) {
        EXPECT_TRUE(question.text.contains(wrap_name(question.file == files[0] ? "Everything" : "Haze")));
        EXPECT_EQ(question.labels.skip_all, "Skip All");
    }
    EXPECT_TRUE(b.shell.questions[1].text.contains(":<br/>- LUT<br/>- Dehaze<br/><br/>"));
    EXPECT_TRUE(b.shell.questions[3].text.contains(":<br/>- Dehaze<br/><br/>"));
}

TEST(conversion_run, answers_are_remembered_by_the_rules_of_the_run)
{
    using answer = question_answer;
    using question = preset_question;
    const struct {
        const char* rule;
        QMap<question, answer> answers;
        QStringList presets; // the flags each preset raises
        const char* asked;
        const char* converted; // indices of the presets that became styles; the others are skipped
    } cases[] = {
        {"a skip ends the preset at once", {{question::white_balance, answer::skip}}, {"wb dehaze cal"}, "0:wb", ""},
        {"a skip is not remembered", {{question::white_balance, answer::skip}}, {"wb", "wb"}, "0:wb 1:wb", ""},
        {"Skip All skips before any question",
         {{question::white_balance, answer::skip_all}}, {"wb", "wb cal", "cal"}, "0:wb 2:cal", "2"},
        {"Skip All covers LUT and Dehaze",
         {{question::unsupported_parameters, answer::skip_all}}, {"lut", "dehaze", ""}, "0:unsupported", "2"},
        {"Skip All on calibration",
         {{question::camera_calibration, answer::skip_all}}, {"cal", "wb cal", "wb"}, "0:cal 2:wb", "2"},
        {"Convert All silences only its own question",
         {{question::white_balance, answer::convert_all}}, {"wb", "wb dehaze cal"}, "0:wb 1:unsupported 1:cal", "01"},
        {"a closed box converts and remembers nothing",
         {{question::white_balance, answer::closed}, {question::camera_calibration, answer::closed}},
         {"wb cal", "wb"}, "0:wb 0:cal 1:wb", "01"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.rule);
        conversion_bench b;
        b.shell.answers = c.answers;
        QStringList files;
        QStringList expected_styles;
        for (int i = 0; i < c.presets.size(); ++i)
            files << b.preset(QStringLiteral("p%1.xmp").arg(i), QStringLiteral("P%1").arg(i), c.presets[i]);
        for (const char* index = c.converted; *index != '\0'; ++index)
            expected_styles << QStringLiteral("p%1.costyle").arg(QLatin1Char(*index));
        const conversion_result result = b.run(files);
        EXPECT_EQ(b.asked(files), c.asked);
        EXPECT_EQ(b.written(), expected_styles);
        EXPECT_EQ(result.converted, int(std::strlen(c.converted)));
        EXPECT_EQ(result.skipped, files.size() - result.converted);
    }
}

TEST(conversion_run, same_base_name_last_wins_and_packs_collect_in_name_order)
{
    for (const char* format : {"separate", "stylepack_category"}) {
        SCOPED_TRACE(format);
        conversion_bench b;
        const conversion_result result = b.run(
            {b.preset("b.xmp", "Café"), b.preset("a.xmp", "First A"), b.preset("a.lrtemplate", "Second A")}, format);
        EXPECT_EQ(result.converted, 3);
        EXPECT_TRUE(b.shell.questions.empty());
        if (QLatin1String(format) == QLatin1String("separate")) {
            EXPECT_EQ(b.written(), (QStringList{"a.costyle", "b.costyle"}));
            EXPECT_TRUE(read_file(b.output("a.costyle")).contains("V=\"Second A\""));
            EXPECT_TRUE(read_file(b.output("b.costyle")).contains("V=\"Caf\xc3\xa9\""));
            EXPECT_TRUE(result.pack_entries.isEmpty());
        } else {
            EXPECT_TRUE(b.written().isEmpty());
            EXPECT_EQ(result.pack_entries.keys(), (QStringList{"a.costyle", "b.costyle"}));
            EXPECT_TRUE(result.pack_entries.first().startsWith("<?xml version=\"1.0\"?>"));
            EXPECT_TRUE(result.pack_entries.first().contains("V=\"Second A\""));
            EXPECT_TRUE(result.pack_entries.last().contains("V=\"Café\""));
        }
    }
}

TEST(conversion_run, failed_write_keeps_the_earlier_style_and_leaves_no_temporary_file)
{
    conversion_bench b;
    ASSERT_TRUE(QDir(b.out.path()).mkdir("a.costyle"));
    write_file(b.out.path(), "b.costyle", "previous style, kept");
    const QStringList files = {b.preset("a.xmp", "A"), b.preset("b.xmp", "B", "colourful")};
    conversion_result result;
    // Far below a style's size: the write itself fails, even for a user who may write everywhere.
    with_file_size_limit(256, [&] { result = b.run(files); });

    EXPECT_EQ(result.failed, 2);
    ASSERT_EQ(b.shell.failures.size(), 2u);
    for (const auto& failure : b.shell.failures)
        EXPECT_EQ(failure.kind, failure_kind::write_failed);
    EXPECT_TRUE(b.shell.failures[0].text.contains(wrap_name(b.output("a.costyle"))));
    EXPECT_TRUE(b.shell.failures[1].text.endsWith("<br/>File too large"));
    EXPECT_TRUE(QFileInfo(b.output("a.costyle")).isDir());
    EXPECT_EQ(read_file(b.output("b.costyle")), "previous style, kept");
    EXPECT_EQ(b.written(), QStringList{"b.costyle"});
}

TEST(conversion_run, progress_is_told_and_cancel_ends_the_run_before_the_next_preset)
{
    conversion_bench b;
    b.shell.cancel_after = 2;
    const conversion_result result = b.run({b.preset("a.xmp", "A"), b.preset("b.xmp", "B"), b.preset("c.xmp", "C")});

    EXPECT_EQ(b.shell.progress_calls, (QStringList{"0/3 a.xmp", "1/3 b.xmp"}));
    EXPECT_TRUE(result.cancelled);
    EXPECT_EQ(b.written(), (QStringList{"a.costyle", "b.costyle"}));
}
