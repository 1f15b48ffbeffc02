// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/conversion_messages.h"
#include "writer/carried_settings.h"
#include "writer/loss_groups.h"

#include <QString>
#include <QVector>

enum class outcome_kind {
    converted,
    skipped,
    failed,
    lost,     // converted, then replaced by a later style of the same name in this run
    not_saved // converted into a style pack that was not saved
};

// Why a preset that was read wrote no style although nothing failed.
enum class skip_reason {
    question,   // the answer to a question, or a remembered "Skip All"
    profile,    // a Lightroom profile, not a develop preset
    same_style  // an earlier preset of the run gave the same style, written once
};

// What became of one preset in a run, told once to the shell when the preset's
// turn is over. The command line's per-preset lines and summary and the
// window's account are made from these values.
struct preset_outcome {
    outcome_kind kind = outcome_kind::converted;
    int index = -1;      // the preset's place in the run, from 0
    QString file;        // the preset's path as handed to the run
    QString preset_name; // the record's name; empty when it was not read
    // converted: the style file written, or the pack entry it went into
    QString target;
    bool in_pack = false;
    // converted: a file of the target's name was there before the run
    bool written_over = false;
    // lost: the later preset whose style took the target
    QString replaced_by;
    // skipped: why; for a question, the question whose answer (or remembered
    // "Skip All") skipped it and that question's translated title; for the
    // same style, the earlier preset's path as handed to the run
    skip_reason skipped_as = skip_reason::question;
    QString same_as;
    preset_question skipped_by = preset_question::white_balance;
    QString question_title;
    bool skipped_silently = false;
    // failed: the failure's kind and its one line, the title and the reason;
    // not_saved: why the pack was not saved
    failure_kind failed_as = failure_kind::unreadable_preset;
    QString reason;
    // converted, when the run was asked to learn it: what the style leaves out,
    // and whether it carries nothing of the preset at all
    style_losses losses;
    bool empty_style = false;
};

// The counts of a run: "2 converted, 0 skipped, 1 failed". Converted are the
// styles that exist when the run is over; lost and not saved ones are counted
// apart, and named only when there are any.
struct outcome_counts {
    int converted = 0;
    int skipped = 0;
    int failed = 0;
    int lost = 0;
    int not_saved = 0;
};

// The counts of these outcomes.
outcome_counts counts_of(const QVector<preset_outcome>& outcomes);

namespace conversion_messages {

// "2 converted, 0 skipped, 1 failed", translated where a translation is loaded;
// "2 converted, 1 lost to a later style of the same name, 3 not saved, 0
// skipped, 1 failed" when styles were lost or not saved.
QString summary_line(const outcome_counts& counts);
// Why the styles of a pack whose save dialog was cancelled were not saved.
QString pack_cancelled();
// The last word after styles went into Capture One's styles folder.
QString restart_capture_one();
// One line about one preset, without its file: "converted into Warm.costyle;
// leaves out …", "skipped: White balance modified by preset", "failed: …".
QString outcome_line(const preset_outcome& outcome);
// The line a skip other than by a question gets of its own, with the file:
// "Look.xmp is a Lightroom profile, …"; empty for a skip by a question.
QString skip_line(const preset_outcome& outcome);
// What a style leaves out, in a photographer's words: the tools it lacks
// ("lens corrections", "local adjustments (2 linear gradients)", "white
// balance “Daylight”", "3 other settings"), or "empty style".
QString losses_text(const preset_outcome& outcome);
// The same, one line per tool with the settings keys it holds:
// "Lens corrections: AutoLateralCA, LensProfileEnable".
QString losses_details(const preset_outcome& outcome);
// A tool's words, translated: "lens corrections".
QString loss_group_words(loss_group group);

} // namespace conversion_messages
