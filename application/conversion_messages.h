// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// The questions a preset may raise, in the order they are asked.
enum class preset_question { white_balance, unsupported_parameters, camera_calibration };

// Why a preset produced no style.
enum class failure_kind {
    unsupported_format, // the suffix selects no reader (the window shows a critical box)
    unreadable_preset,  // a reader or the writer threw (critical box)
    conversion_failed,  // create_costyle reported failure (warning box)
    write_failed        // the style file could not be written (the window stays silent)
};

// Button labels of a question box, translated once per run.
struct question_labels {
    QString convert;
    QString skip;
    QString convert_all;
    QString skip_all;
};

// One question about one preset. Title and text are translated; the text is
// rich text in which the preset's name is already set in white bold.
struct conversion_question {
    preset_question kind;
    QString file; // the preset's path as handed to the run
    QString title;
    QString text;
    question_labels labels;
};

// One preset that produced no style; text is rich text like a question's.
struct conversion_failure {
    failure_kind kind;
    QString file;
    QString title;
    QString text;
};

// The user texts of a conversion run. They are translated in the context of the
// main window, whose translations carry them.
namespace conversion_messages {

// Where users send presets the program cannot handle.
extern const QString support_address;

// Sets a preset or file name in white bold for a rich-text box.
QString wrap_name(const QString& name);

question_labels translated_labels();

conversion_question white_balance_question(const QString& file, const QString& preset_name,
                                           const question_labels& labels);
// Lists "LUT" before "Dehaze", one line each, for the flags that are raised.
conversion_question unsupported_parameters_question(const QString& file, const QString& preset_name, bool lut,
                                                    bool dehaze, const question_labels& labels);
conversion_question camera_calibration_question(const QString& file, const QString& preset_name,
                                                const question_labels& labels);

conversion_failure unsupported_format(const QString& file);
conversion_failure unreadable_preset(const QString& file, const QString& error);
conversion_failure conversion_failed(const QString& file);
conversion_failure write_failed(const QString& file, const QString& target, const QString& reason);

// The text of a question or failure for a plain-text reader: line breaks become
// single spaces and the name highlighting is removed, so the result is one line.
QString plain_text(const QString& rich_text);

} // namespace conversion_messages
