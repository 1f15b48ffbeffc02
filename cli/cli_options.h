// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/conversion_run.h"
#include "writer/colour_space.h"

#include <QString>
#include <QThread>
#include <QStringList>

enum class verbosity { quiet, normal, verbose };

// What the command line asks for, checked for consistency.
struct cli_options {
    // Presets and folders, as given.
    QStringList inputs;
    // Target of separate styles.
    QString output_folder = QStringLiteral(".");
    colour_space space = colour_space::raw;
    // The style-pack archive; empty for separate styles.
    QString pack_path;
    bool category = false;
    question_answer white_balance = question_answer::convert;
    question_answer unsupported = question_answer::convert;
    question_answer calibration = question_answer::convert;
    bool to_stdout = false;
    bool inspect = false;
    // This user's Lightroom preset folders join the inputs.
    bool from_lightroom = false;
    // Separate styles go into this user's Capture One styles folder, each in
    // its Lightroom group's folder.
    bool to_capture_one = false;
    // Presets worked on at once; every core by default.
    int jobs = QThread::idealThreadCount();
    verbosity level = verbosity::normal;
};

enum class parse_outcome { run, help, version, usage_error };

struct parsed_command_line {
    parse_outcome outcome = parse_outcome::run;
    cli_options options;
    // The help text, or the one-line message of a usage error.
    QString text;
};

// arguments: the whole command line, the program name first.
parsed_command_line parse_command_line(const QStringList& arguments);
