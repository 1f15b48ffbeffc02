#include "application/conversion_run.h"
#include "conversion/preset_fixtures.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <functional>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

using namespace preset_fixtures;

namespace {

const QString wrapped_open = QStringLiteral("<font color=\"white\"><b>");
const QString wrapped_close = QStringLiteral("</b></font>");

QString wrapped(const QString& name)
{
    return wrapped_open + name + wrapped_close;
}

// Answers from a script and remembers everything the run told it.
class fake_shell : public conversion_shell {
public:
    explicit fake_shell(QString folder) : folder_(std::move(folder)) {}

    question_answer ask(const conversion_question& question) override
    {
        questions.push_back(question);
        return answer(question);
    }
    void report_failure(const conversion_failure& failure) override { failures.push_back(failure); }
    QString output_folder() override
    {
        ++folder_requests;
        return folder_;
    }
    bool cancelled() override { return cancel_after >= 0 && int(progress_calls.size()) >= cancel_after; }
    void progress(int index, int count, const QString& file) override
    {
        progress_calls.push_back(QStringLiteral("%1/%2 %3").arg(index).arg(count).arg(QFileInfo(file).fileName()));
    }

    std::function<question_answer(const conversion_question&)> answer = [](const conversion_question&) {
        return question_answer::convert;
    };
    std::vector<conversion_question> questions;
    std::vector<conversion_failure> failures;
    std::vector<QString> progress_calls;
    int folder_requests = 0;
    int cancel_after = -1;

private:
    QString folder_;
};

std::vector<preset_question> kinds(const std::vector<conversion_question>& questions)
{
    std::vector<preset_question> result;
    for (const auto& question : questions)
        result.push_back(question.kind);
    return result;
}

class conversion_run_test : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(input_.isValid());
        ASSERT_TRUE(output_.isValid());
    }

    QString xmp(const QString& file_name, const QString& name, const QMap<QString, QString>& settings)
    {
        return write_file(QDir(input_.path()), file_name, xmp_text(name, settings));
    }
    QString output(const QString& file_name) const { return QDir(output_.path()).filePath(file_name); }

    conversion_result run(const QStringList& files, const QString& format = QStringLiteral("separate"))
    {
        conversion_options options;
        options.format = format;
        options.colour_space = QStringLiteral("raw");
        return run_conversion(files, options, shell_);
    }

    QTemporaryDir input_;
    QTemporaryDir output_;
    fake_shell shell_{output_.path()};
};

TEST_F(conversion_run_test, suffix_selects_reader_ignoring_case)
{
    const QString upper_xmp = xmp(QStringLiteral("Preset.XMP"), QStringLiteral("Upper"), plain());
    const QString mixed_template = write_file(QDir(input_.path()), QStringLiteral("a.LRTemplate"),
                                              lrtemplate_text(QStringLiteral("Mixed"), plain()));
    const QString dotted = xmp(QStringLiteral("My.Look.xmp"), QStringLiteral("Dotted"), plain());

    const conversion_result result = run({upper_xmp, mixed_template, dotted});

    EXPECT_EQ(result.converted, 3);
    EXPECT_TRUE(shell_.failures.empty());
    EXPECT_TRUE(QFile::exists(output(QStringLiteral("Preset.costyle"))));
    EXPECT_TRUE(QFile::exists(output(QStringLiteral("a.costyle"))));
    // Only the last suffix goes.
    EXPECT_TRUE(QFile::exists(output(QStringLiteral("My.Look.costyle"))));
    EXPECT_TRUE(read_file(output(QStringLiteral("a.costyle"))).contains("V=\"Mixed\""));
}

TEST_F(conversion_run_test, unknown_suffix_fails_with_exact_message_and_run_goes_on)
{
    const QString backup = write_file(QDir(input_.path()), QStringLiteral("a.lrtemplate.bak"),
                                      lrtemplate_text(QStringLiteral("A"), plain()));
    const QString good = xmp(QStringLiteral("b.xmp"), QStringLiteral("B"), plain());

    const conversion_result result = run({backup, good});

    ASSERT_EQ(shell_.failures.size(), 1u);
    const conversion_failure& failure = shell_.failures.front();
    EXPECT_EQ(failure.kind, failure_kind::unsupported_format);
    EXPECT_EQ(failure.file, backup);
    EXPECT_EQ(failure.title, QStringLiteral("Unsupported preset format"));
    EXPECT_EQ(failure.text, QStringLiteral("Your preset ") + wrapped(QStringLiteral("a.lrtemplate.bak")) +
                                QStringLiteral(" is in a format Stylewright can't convert."));
    EXPECT_EQ(result.failed, 1);
    EXPECT_EQ(result.converted, 1);
    // The output folder is asked for by readable presets only.
    EXPECT_EQ(shell_.folder_requests, 1);
}

TEST_F(conversion_run_test, reader_exception_fails_with_exact_message)
{
    // No comma after the title: a syntax error of the template reader.
    const QString broken = write_file(QDir(input_.path()), QStringLiteral("broken.lrtemplate"),
                                      QByteArray("s = {\n title = \"x\"\n value = 1,\n}\n"));
    const QString good = xmp(QStringLiteral("good.xmp"), QStringLiteral("Good"), plain());

    const conversion_result result = run({broken, good});

    ASSERT_EQ(shell_.failures.size(), 1u);
    const conversion_failure& failure = shell_.failures.front();
    EXPECT_EQ(failure.kind, failure_kind::unreadable_preset);
    EXPECT_EQ(failure.title, QStringLiteral("Can't read preset"));
    EXPECT_EQ(failure.text,
              QStringLiteral("Your preset ") + wrapped(QStringLiteral("broken.lrtemplate")) +
                  QStringLiteral(" can't be processed by Stylewright.<br/><br/>Please contact the Quillmark support "
                                 "and send them a screenshot of this message and the preset file stated above to "
                                 "support@quillmark.example<br/><br/>Error: Unexpected token type found. Expected "
                                 "token_type::comma, got token_type::name"));
    EXPECT_EQ(result.failed, 1);
    EXPECT_EQ(result.converted, 1);
    EXPECT_FALSE(QFile::exists(output(QStringLiteral("broken.costyle"))));
}

TEST_F(conversion_run_test, questions_carry_exact_titles_texts_and_labels)
{
    const QString preset = xmp(QStringLiteral("all.xmp"), QStringLiteral("Everything"),
                               merged({white_balance(), dehaze(), lut(), calibration()}));

    run({preset});

    ASSERT_EQ(shell_.questions.size(), 3u);
    const conversion_question& wb = shell_.questions[0];
    EXPECT_EQ(wb.kind, preset_question::white_balance);
    EXPECT_EQ(wb.file, preset);
    EXPECT_EQ(wb.title, QStringLiteral("White balance modified by preset"));
    EXPECT_EQ(
        wb.text,
        QStringLiteral("Your preset ") + wrapped(QStringLiteral("Everything")) +
            QStringLiteral(" contains values for the white balance.<br/><br/>Equal white balance values can lead to "
                           "different results in Capture One.<br/>Thus Stylewright translates the values instead of "
                           "adapting them visually.<br/>Anyway we recommend to keep the white balance settings for "
                           "neutralizing the image instead of using them for creating a look.<br/>For this reason they "
                           "should not be inside a preset."));
    EXPECT_EQ(wb.labels.convert, QStringLiteral("Convert"));
    EXPECT_EQ(wb.labels.skip, QStringLiteral("Skip"));
    EXPECT_EQ(wb.labels.convert_all, QStringLiteral("Convert All"));
    EXPECT_EQ(wb.labels.skip_all, QStringLiteral("Skip All"));

    const conversion_question& unsupported = shell_.questions[1];
    EXPECT_EQ(unsupported.title, QStringLiteral("Unsupported parameters in preset"));
    EXPECT_EQ(unsupported.text, QStringLiteral("Your selected preset ") + wrapped(QStringLiteral("Everything")) +
                                    QStringLiteral(" contains the following parameters, which can't be mapped in "
                                                   "Capture One:<br/>- LUT<br/>- Dehaze<br/><br/>These parameters "
                                                   "will be ignored."));

    const conversion_question& calibration_question = shell_.questions[2];
    EXPECT_EQ(calibration_question.title, QStringLiteral("Camera calibration modified by preset"));
    EXPECT_EQ(calibration_question.text,
              QStringLiteral("The preset ") + wrapped(QStringLiteral("Everything")) +
                  QStringLiteral(" contains values for the camera calibration.<br/>These settings may influence the "
                                 "resulting look significantly but will not be converted to Capture One.<br/>We "
                                 "recommend to reserve these parameters for the calibration of your camera and not "
                                 "for creating creative looks."));
}

TEST_F(conversion_run_test, dehaze_only_lists_exactly_one_line)
{
    run({xmp(QStringLiteral("haze.xmp"), QStringLiteral("Haze"), dehaze())});

    ASSERT_EQ(shell_.questions.size(), 1u);
    EXPECT_EQ(shell_.questions[0].kind, preset_question::unsupported_parameters);
    EXPECT_TRUE(shell_.questions[0].text.contains(QStringLiteral(":<br/>- Dehaze<br/><br/>These")));
    EXPECT_EQ(shell_.questions[0].text.count(QStringLiteral("- ")), 1);
}

TEST_F(conversion_run_test, percent_two_in_a_name_is_not_expanded)
{
    run({xmp(QStringLiteral("odd.xmp"), QStringLiteral("Look %2"), lut())});

    ASSERT_EQ(shell_.questions.size(), 1u);
    EXPECT_TRUE(shell_.questions[0].text.contains(wrapped(QStringLiteral("Look %2"))));
    EXPECT_TRUE(shell_.questions[0].text.contains(QStringLiteral("<br/>- LUT<br/><br/>")));
}

TEST_F(conversion_run_test, skip_ends_the_preset_at_once)
{
    shell_.answer = [](const conversion_question&) { return question_answer::skip; };
    const QString preset =
        xmp(QStringLiteral("all.xmp"), QStringLiteral("All"), merged({white_balance(), dehaze(), calibration()}));

    const conversion_result result = run({preset});

    EXPECT_EQ(kinds(shell_.questions), std::vector<preset_question>{preset_question::white_balance});
    EXPECT_EQ(result.skipped, 1);
    EXPECT_EQ(result.converted, 0);
    EXPECT_FALSE(QFile::exists(output(QStringLiteral("all.costyle"))));
}

TEST_F(conversion_run_test, skip_is_not_remembered)
{
    shell_.answer = [](const conversion_question&) { return question_answer::skip; };
    run({xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), white_balance()),
         xmp(QStringLiteral("b.xmp"), QStringLiteral("B"), white_balance())});

    EXPECT_EQ(shell_.questions.size(), 2u);
}

TEST_F(conversion_run_test, skip_all_skips_later_presets_before_any_question)
{
    shell_.answer = [](const conversion_question& question) {
        return question.kind == preset_question::white_balance ? question_answer::skip_all : question_answer::convert;
    };
    const QString first = xmp(QStringLiteral("first.xmp"), QStringLiteral("First"), white_balance());
    // Raises the calibration flag too, whose question was never answered.
    const QString second =
        xmp(QStringLiteral("second.xmp"), QStringLiteral("Second"), merged({white_balance(), calibration()}));
    const QString third = xmp(QStringLiteral("third.xmp"), QStringLiteral("Third"), calibration());

    const conversion_result result = run({first, second, third});

    ASSERT_EQ(shell_.questions.size(), 2u);
    EXPECT_EQ(shell_.questions[0].file, first);
    EXPECT_EQ(shell_.questions[1].file, third);
    EXPECT_EQ(shell_.questions[1].kind, preset_question::camera_calibration);
    EXPECT_EQ(result.skipped, 2);
    EXPECT_EQ(result.converted, 1);
    EXPECT_FALSE(QFile::exists(output(QStringLiteral("second.costyle"))));
    EXPECT_TRUE(QFile::exists(output(QStringLiteral("third.costyle"))));
}

TEST_F(conversion_run_test, skip_all_unsupported_covers_lut_and_dehaze)
{
    shell_.answer = [](const conversion_question&) { return question_answer::skip_all; };
    const conversion_result result = run({xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), lut()),
                                          xmp(QStringLiteral("b.xmp"), QStringLiteral("B"), dehaze()),
                                          xmp(QStringLiteral("c.xmp"), QStringLiteral("C"), plain())});

    EXPECT_EQ(shell_.questions.size(), 1u);
    EXPECT_EQ(result.skipped, 2);
    EXPECT_EQ(result.converted, 1);
}

TEST_F(conversion_run_test, convert_all_leaves_the_other_questions)
{
    shell_.answer = [](const conversion_question& question) {
        return question.kind == preset_question::white_balance ? question_answer::convert_all
                                                               : question_answer::convert;
    };
    const conversion_result result =
        run({xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), white_balance()),
             xmp(QStringLiteral("b.xmp"), QStringLiteral("B"), merged({white_balance(), dehaze(), calibration()}))});

    EXPECT_EQ(kinds(shell_.questions),
              (std::vector<preset_question>{preset_question::white_balance, preset_question::unsupported_parameters,
                                            preset_question::camera_calibration}));
    EXPECT_EQ(result.converted, 2);
}

TEST_F(conversion_run_test, closed_box_converts)
{
    shell_.answer = [](const conversion_question&) { return question_answer::closed; };
    const conversion_result result =
        run({xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), merged({white_balance(), calibration()})),
             xmp(QStringLiteral("b.xmp"), QStringLiteral("B"), white_balance())});

    EXPECT_EQ(result.converted, 2);
    // Closing remembers nothing: the second preset is asked again.
    EXPECT_EQ(shell_.questions.size(), 3u);
    EXPECT_TRUE(QFile::exists(output(QStringLiteral("a.costyle"))));
}

TEST_F(conversion_run_test, same_base_name_replaces_separate_style)
{
    const QString first = xmp(QStringLiteral("a.xmp"), QStringLiteral("From XMP"), plain());
    const QString second = write_file(QDir(input_.path()), QStringLiteral("a.lrtemplate"),
                                      lrtemplate_text(QStringLiteral("From template"), plain()));

    const conversion_result result = run({first, second});

    EXPECT_EQ(result.converted, 2);
    EXPECT_TRUE(shell_.questions.empty());
    const QByteArray style = read_file(output(QStringLiteral("a.costyle")));
    EXPECT_TRUE(style.contains("V=\"From template\""));
    EXPECT_EQ(QDir(output_.path()).entryList(QDir::Files).size(), 1);
}

TEST_F(conversion_run_test, pack_collects_in_name_order_and_last_wins)
{
    const conversion_result result = run({xmp(QStringLiteral("b.xmp"), QStringLiteral("B"), plain()),
                                          xmp(QStringLiteral("a.xmp"), QStringLiteral("First A"), plain()),
                                          write_file(QDir(input_.path()), QStringLiteral("a.lrtemplate"),
                                                     lrtemplate_text(QStringLiteral("Second A"), plain()))},
                                         QStringLiteral("stylepack_category"));

    EXPECT_EQ(result.pack_entries.keys(), (QStringList{QStringLiteral("a.costyle"), QStringLiteral("b.costyle")}));
    EXPECT_TRUE(result.pack_entries.value(QStringLiteral("a.costyle")).contains(QStringLiteral("V=\"Second A\"")));
    EXPECT_TRUE(result.pack_entries.first().startsWith(QStringLiteral("<?xml version=\"1.0\"?>")));
    // Nothing goes to the output folder in a pack format.
    EXPECT_TRUE(QDir(output_.path()).entryList(QDir::Files).isEmpty());
}

TEST_F(conversion_run_test, separate_mode_leaves_pack_entries_empty)
{
    const conversion_result result = run({xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), plain())});
    EXPECT_TRUE(result.pack_entries.isEmpty());
    EXPECT_EQ(result.converted, 1);
}

TEST_F(conversion_run_test, separate_style_is_utf8)
{
    run({xmp(QStringLiteral("cafe.xmp"), QStringLiteral("Café"), plain())});
    EXPECT_TRUE(read_file(output(QStringLiteral("cafe.costyle"))).contains("V=\"Caf\xc3\xa9\""));
}

TEST_F(conversion_run_test, target_that_is_a_folder_fails_and_is_left_alone)
{
    ASSERT_TRUE(QDir(output_.path()).mkdir(QStringLiteral("a.costyle")));
    const conversion_result result = run({xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), plain())});

    ASSERT_EQ(shell_.failures.size(), 1u);
    EXPECT_EQ(shell_.failures[0].kind, failure_kind::write_failed);
    EXPECT_EQ(shell_.failures[0].title, QStringLiteral("Can't write style"));
    EXPECT_TRUE(shell_.failures[0].text.startsWith(QStringLiteral("The style ") +
                                                   wrapped(output(QStringLiteral("a.costyle"))) +
                                                   QStringLiteral(" could not be written.<br/>")));
    EXPECT_EQ(result.failed, 1);
    EXPECT_TRUE(QFileInfo(output(QStringLiteral("a.costyle"))).isDir());
}

TEST_F(conversion_run_test, existing_style_survives_a_failed_write)
{
    const QByteArray previous = "previous style, kept";
    write_file(QDir(output_.path()), QStringLiteral("a.costyle"), previous);
    const QString preset = xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), colourful());

    // A file-size limit far below a style's size makes the write itself fail, even
    // for a user who may write everywhere. The signal it raises is ignored for the
    // duration so that the write reports an error instead.
    rlimit saved{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &saved), 0);
    rlimit tiny = saved;
    tiny.rlim_cur = 256;
    auto* previous_handler = signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tiny), 0);
    const conversion_result result = run({preset});
    setrlimit(RLIMIT_FSIZE, &saved);
    signal(SIGXFSZ, previous_handler);

    EXPECT_EQ(result.failed, 1);
    ASSERT_EQ(shell_.failures.size(), 1u);
    EXPECT_EQ(shell_.failures[0].kind, failure_kind::write_failed);
    EXPECT_TRUE(shell_.failures[0].text.endsWith(QStringLiteral("<br/>File too large")));
    EXPECT_EQ(read_file(output(QStringLiteral("a.costyle"))), previous);
    // No temporary file is left behind.
    EXPECT_EQ(QDir(output_.path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a.costyle")});
}

TEST_F(conversion_run_test, unwritable_folder_keeps_existing_style)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "a superuser may write into any folder";
    const QByteArray previous = "previous style, kept";
    write_file(QDir(output_.path()), QStringLiteral("a.costyle"), previous);
    QFile::setPermissions(output_.path(), QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    const conversion_result result = run({xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), plain())});
    QFile::setPermissions(output_.path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);

    EXPECT_EQ(result.failed, 1);
    EXPECT_EQ(read_file(output(QStringLiteral("a.costyle"))), previous);
}

TEST_F(conversion_run_test, progress_and_cancel_hooks)
{
    const QStringList files = {xmp(QStringLiteral("a.xmp"), QStringLiteral("A"), plain()),
                               xmp(QStringLiteral("b.xmp"), QStringLiteral("B"), plain()),
                               xmp(QStringLiteral("c.xmp"), QStringLiteral("C"), plain())};
    shell_.cancel_after = 2;

    const conversion_result result = run(files);

    EXPECT_EQ(shell_.progress_calls, (std::vector<QString>{QStringLiteral("0/3 a.xmp"), QStringLiteral("1/3 b.xmp")}));
    EXPECT_TRUE(result.cancelled);
    EXPECT_EQ(result.converted, 2);
    EXPECT_FALSE(QFile::exists(output(QStringLiteral("c.costyle"))));
}

TEST_F(conversion_run_test, unreadable_file_goes_through_as_an_empty_preset)
{
    // A reader that can't open its file leaves the record empty without an error.
    const QString missing = QDir(input_.path()).filePath(QStringLiteral("gone.xmp"));
    const conversion_result result = run({missing});
    EXPECT_EQ(result.converted, 1);
    EXPECT_TRUE(read_file(output(QStringLiteral("gone.costyle"))).contains("K=\"Name\" V=\"\""));
}

} // namespace
