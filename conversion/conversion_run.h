// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/conversion_messages.h"
#include "conversion/output_format.h"
#include "conversion/preset_outcome.h"
#include "conversion/preset_source.h"
#include "writer/colour_space.h"

#include <QMap>
#include <QString>
#include <QStringList>

// A shell's answer to one question. closed: the box was closed without a button,
// which converts the preset like "Convert".
enum class question_answer { convert, skip, convert_all, skip_all, closed };

// What a conversion run needs from the program around it (the window or the
// command-line converter): answers to the questions, the target folder, and
// someone to tell about failures.
class conversion_shell {
public:
    virtual ~conversion_shell() = default;

    virtual question_answer ask(const conversion_question& question) = 0;
    // Called once per failed preset; the run goes on with the next file.
    virtual void report_failure(const conversion_failure& failure) = 0;
    // Called once per preset when its turn is over, whatever became of it.
    virtual void report_outcome(const preset_outcome& outcome) { Q_UNUSED(outcome) }
    // An outcome reported earlier has changed: its style was replaced by a
    // later preset's of the same name (outcome_kind::lost). Told when the
    // later one is written.
    virtual void report_lost(const preset_outcome& earlier) { Q_UNUSED(earlier) }
    // Target folder of separate styles, asked once per preset so that a change
    // made during the run applies to the next preset.
    virtual QString output_folder() = 0;

    // Asked before each preset; true ends the run before that preset.
    virtual bool cancelled() { return false; }
    // Told before each preset: index counts from 0 up to count - 1.
    virtual void progress(int index, int count, const QString& file)
    {
        Q_UNUSED(index)
        Q_UNUSED(count)
        Q_UNUSED(file)
    }
};

struct conversion_options {
    // Separate styles are written into the output folder one by one; the pack
    // formats collect them for a style pack.
    output_format format = output_format::separate;
    // The colour space to convert into, by its name ("raw", "adobe", ...); an
    // unknown name converts without a colour table.
    QString colour_space = colour_space_name(colour_space::raw);
    // How many presets are read and built at once, on as many threads; the
    // questions, writes and messages still come one preset after the other,
    // in order. Only for shells whose answers do not depend on what was shown.
    int jobs = 1;
    // Whether each converted preset's outcome tells what its style leaves out
    // (a mapping that records every key it reads, at some cost per preset).
    bool learn_losses = false;
    // Separate styles go into the folders of their Lightroom groups (as into
    // Capture One's styles folder, whose subfolders are its style groups)
    // instead of the folders their presets were found in.
    bool lightroom_groups = false;
};

struct conversion_result {
    bool cancelled = false;
    // Pack formats only: entry file name -> style document, in name order; a
    // later preset with the same name from the same folder replaces the earlier one.
    QMap<QString, QString> pack_entries;
    // Every preset's outcome, in run order, as it stands now: converted ones
    // are the styles that exist (written, or collected for the pack).
    QVector<preset_outcome> outcomes;

    outcome_counts counts() const { return counts_of(outcomes); }
    // The pack was not saved (reason: libzip's, or pack_cancelled()): every
    // style that went into it is not saved. Returns those outcomes, changed.
    QVector<preset_outcome> pack_not_saved(const QString& reason);
};

// Converts the presets in list order. Each preset is read, checked, asked about
// and converted on its own; only the pack entries and the "All" answers carry
// over from one preset to the next. Never throws for a bad preset.
// Separate styles go into the preset's subfolder below the output folder
// (created when missing); in a pack, a style whose name another subfolder
// already gave gets that subfolder's name added, with a warning in the log.
// Likewise a separate style never replaces one this run wrote from another
// folder: it gets its own folder's name added.
conversion_result run_conversion(const QVector<preset_source>& presets, const conversion_options& options,
                                 conversion_shell& shell);
// Files as the open dialog returns them, each written flat.
conversion_result run_conversion(const QStringList& files, const conversion_options& options, conversion_shell& shell);
