// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cli_options.h"

#include <gtest/gtest.h>

// The command line, read in-process: what each one asks for, or the one line
// that says what is wrong with it.
TEST(cli_options, each_command_line_is_read_or_refused_with_its_reason)
{
    const struct {
        QStringList arguments;
        parse_outcome outcome;
        const char* text; // the usage error, or a summary of the options
    } rows[] = {
        {{"a.xmp"}, parse_outcome::run, "raw . pack= category=0 jobs>0 wb=0 stdout=0 inspect=0"},
        {{"-c", "SRGB", "-p", "x.costylepack", "--category", "-j", "3", "--white-balance", "skip", "a.xmp"},
         parse_outcome::run, "srgb . pack=x.costylepack category=1 jobs=3 wb=1 stdout=0 inspect=0"},
        {{"--inspect", "-o", "out", "a"}, parse_outcome::usage_error,
         "--output is for separate styles; it can't be used with --pack, --stdout or --inspect."},
        {{"-c", "cmyk", "a"}, parse_outcome::usage_error,
         "Unknown colour space 'cmyk' (raw, adobe, srgb, prophoto or widegamut)."},
        {{"-j", "0", "a"}, parse_outcome::usage_error, "--jobs takes a whole number of at least 1, not '0'."},
        {{"-j", "two", "a"}, parse_outcome::usage_error, "--jobs takes a whole number of at least 1, not 'two'."},
        {{"--calibration", "maybe", "a"}, parse_outcome::usage_error, "--calibration takes convert or skip, not 'maybe'."},
        {{"-v", "-q", "a"}, parse_outcome::usage_error, "--verbose and --quiet exclude each other."},
        {{"--category", "a"}, parse_outcome::usage_error, "--category needs --pack."},
        {{"-p", "x", "--stdout", "a"}, parse_outcome::usage_error, "Only one of --pack, --stdout and --inspect can be given."},
        {{}, parse_outcome::usage_error, "No preset or folder given."},
        {{"--version"}, parse_outcome::version, ""},
    };
    for (const auto& row : rows) {
        const parsed_command_line parsed = parse_command_line(QStringList{"stylewright-cli"} + row.arguments);
        EXPECT_EQ(parsed.outcome, row.outcome) << row.arguments.join(' ').toStdString();
        const cli_options& o = parsed.options;
        const QString text = parsed.outcome != parse_outcome::run
            ? (parsed.outcome == parse_outcome::usage_error ? parsed.text : QString())
            : QStringLiteral("%1 %2 pack=%3 category=%4 jobs%5 wb=%6 stdout=%7 inspect=%8")
                  .arg(colour_space_name(o.space), o.output_folder, o.pack_path)
                  .arg(int(o.category))
                  .arg(row.arguments.contains("-j") ? "=" + QString::number(o.jobs) : o.jobs > 0 ? ">0" : "<1")
                  .arg(int(o.white_balance == question_answer::skip))
                  .arg(int(o.to_stdout))
                  .arg(int(o.inspect));
        EXPECT_EQ(text.toStdString(), row.text) << row.arguments.join(' ').toStdString();
    }
}
