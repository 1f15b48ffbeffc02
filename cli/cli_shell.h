// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/conversion_run.h"
#include "cli/cli_options.h"

// Answers the run's questions from the command-line options, printing one
// warning line per question, and prints one error line per failure.
class cli_shell final : public conversion_shell {
public:
    explicit cli_shell(const cli_options& options);

    question_answer ask(const conversion_question& question) override;
    void report_failure(const conversion_failure& failure) override;
    // With -v, one line per preset: what became of it.
    void report_outcome(const preset_outcome& outcome) override;
    // The line of a preset whose style a later one replaced.
    void report_lost(const preset_outcome& earlier) override;
    QString output_folder() override;
    void progress(int index, int count, const QString& file) override;

private:
    const cli_options& options_;
};

// "file: title: text" without markup, on one line.
QString failure_line(const conversion_failure& failure);
