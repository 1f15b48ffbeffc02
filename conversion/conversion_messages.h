// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// How errors travel, from a file on disk to the person at the window or the
// command line:
// - The template readers and the DNG reader throw std::runtime_error with
//   their message (a DNG without develop settings throws no_develop_settings,
//   which the run words apart); the 3DL
//   reader throws stk::exception ("ERROR while loading 3DL LUT: ..."). The XMP
//   reader and the curve functions log a warning and go on with what they have;
//   a reader that cannot open its file leaves the record empty.
// - The conversion run catches every exception per preset and turns it, and
//   every question it must ask, into a value below (kind, file, preset name or
//   reason, and the wording in rich and plain form), handed to the shell
//   through conversion_shell. Nothing is thrown past the run.
// - Archives and style packs return what went wrong (archive_problem, libzip's
//   text) and log warnings; no box is opened by the core.
// - Each shell words the values its way: the window shows the rich text in its
//   boxes, names escaped; the command line prints the plain line on standard
//   error. Neither strips markup from a finished text.

#include <QString>

// The questions a preset may raise, in the order they are asked.
enum class preset_question { white_balance, unsupported_parameters, camera_calibration };

// Why a preset produced no style.
enum class failure_kind {
    unsupported_format, // the suffix selects no reader (the window shows a critical box)
    unreadable_preset,  // a reader or the writer threw (critical box)
    conversion_failed,  // create_costyle reported failure (warning box)
    write_failed,       // the style file could not be written (the window stays silent)
    no_develop_settings // a DNG without develop settings: a photo, not a preset (the window stays silent)
};

// Button labels of a question box, translated once per run.
struct question_labels {
    QString convert;
    QString skip;
    QString convert_all;
    QString skip_all;
};

// One question about one preset, as a value: what is asked, about which file
// and preset, and its translated wording in both forms a shell shows, the rich
// text of a box (the preset's name escaped and set in white bold) and one
// plain line (the name as it is).
struct conversion_question {
    preset_question kind;
    QString file; // the preset's path as handed to the run
    QString preset_name;
    QString title;
    QString text;
    QString plain;
    question_labels labels;
};

// One preset that produced no style, as a value like a question; reason is the
// reader's or the file system's own text, where there is one.
struct conversion_failure {
    failure_kind kind;
    QString file;
    QString reason;
    QString title;
    QString text;
    QString plain;
};

// The user texts of a conversion run. They are translated in the context of the
// main window, whose translations carry them.
namespace conversion_messages {

// Where users send presets the program cannot handle.
extern const QString support_address;

// Sets a preset or file name, escaped, in white bold for a rich-text box.
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
conversion_failure no_develop_settings(const QString& file);


} // namespace conversion_messages
