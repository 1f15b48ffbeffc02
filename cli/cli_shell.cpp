// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cli_shell.h"

#include "cli/cli_output.h"

cli_shell::cli_shell(const cli_options& options) : options_(options) {}

question_answer cli_shell::ask(const conversion_question& question)
{
    cli_output::log_line(QtWarningMsg, question.file + QStringLiteral(": ") + question.title + QStringLiteral(": ") +
                                           question.plain);
    switch (question.kind) {
    case preset_question::white_balance:
        return options_.white_balance;
    case preset_question::unsupported_parameters:
        return options_.unsupported;
    case preset_question::camera_calibration:
        return options_.calibration;
    }
    return question_answer::convert;
}

void cli_shell::report_failure(const conversion_failure& failure)
{
    cli_output::error_line(failure_line(failure));
}

void cli_shell::report_outcome(const preset_outcome& outcome)
{
    // A profile or a style written once is said without -v: no question
    // told of it.
    const QString skipped = conversion_messages::skip_line(outcome);
    if (!skipped.isEmpty())
        cli_output::result_line(skipped);
    else
        cli_output::log_line(QtInfoMsg, outcome.file + QStringLiteral(": ") + conversion_messages::outcome_line(outcome));
}

void cli_shell::report_lost(const preset_outcome& earlier)
{
    cli_output::result_line(earlier.file + QStringLiteral(": ") + conversion_messages::outcome_line(earlier));
}

QString cli_shell::output_folder()
{
    return options_.output_folder;
}

void cli_shell::progress(int index, int count, const QString& file)
{
    cli_output::progress(index, count, file);
}

QString failure_line(const conversion_failure& failure)
{
    return failure.file + QStringLiteral(": ") + failure.title + QStringLiteral(": ") + failure.plain;
}
