// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/conversion_messages.h"
#include "writer/carried_settings.h"

#include <QString>

enum class outcome_kind { converted, skipped, failed };

// What became of one preset in a run, told once to the shell when the preset's
// turn is over. The command line's per-preset lines and summary and the
// window's account are made from these values.
struct preset_outcome {
    outcome_kind kind = outcome_kind::converted;
    QString file;        // the preset's path as handed to the run
    QString preset_name; // the record's name; empty when it was not read
    // converted: the style file written, or the pack entry it went into
    QString target;
    bool in_pack = false;
    // skipped: the question whose answer (or remembered "Skip All") skipped it,
    // and that question's translated title
    preset_question skipped_by = preset_question::white_balance;
    QString question_title;
    bool skipped_silently = false;
    // failed: the failure's kind and its one line, the title and the reason
    failure_kind failed_as = failure_kind::unreadable_preset;
    QString reason;
    // converted, when the run was asked to learn it: what the style leaves out,
    // and whether it carries nothing of the preset at all
    style_losses losses;
    bool empty_style = false;
};

// The counts of a run: "2 converted, 0 skipped, 1 failed".
struct outcome_counts {
    int converted = 0;
    int skipped = 0;
    int failed = 0;
};

namespace conversion_messages {

// "2 converted, 0 skipped, 1 failed", translated where a translation is loaded.
QString summary_line(const outcome_counts& counts);
// One line about one preset, without its file: "converted into Warm.costyle;
// leaves out …", "skipped: White balance modified by preset", "failed: …".
QString outcome_line(const preset_outcome& outcome);
// What a style leaves out, in words: local adjustments by kind and count, the
// Look, a named white balance, the number of other settings; or "empty style".
QString losses_text(const preset_outcome& outcome);

} // namespace conversion_messages
