// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/conversion_run.h"

#include "conversion/style_names.h"
#include "conversion/group_folder.h"
#include "conversion/preset_archive.h"
#include "conversion/preset_reading.h"
#include "conversion/preset_step.h"
#include "conversion/same_styles.h"
#include "importer/dng_packet.h"
#include "importer/lightroom_importer.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSaveFile>

#include <cerrno>
#include <exception>

namespace {

// The remembered answers of one question: asked while ask is true, skipped
// silently once skip_all is set.
struct answer_memory {
    bool ask = true;
    bool skip_all = false;
};

// Applies an answer; returns whether the preset goes on.
bool goes_on(question_answer answer, answer_memory& memory)
{
    switch (answer) {
    case question_answer::convert:
    case question_answer::closed:
        return true;
    case question_answer::convert_all:
        memory.ask = false;
        return true;
    case question_answer::skip:
        return false;
    case question_answer::skip_all:
        memory.skip_all = true;
        return false;
    }
    return true;
}

// The folder of a Lightroom group below Capture One's styles folder: the
// preset's own group, else the folders it was found in (each a group of its
// own), else none.
QString group_subfolder(const QString& group, const QString& found_in)
{
    if (!group.isEmpty())
        return folder_of_group(group);
    QStringList folders = found_in.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (QString& folder : folders)
        folder = folder_of_group(folder);
    return folders.join(QLatin1Char('/'));
}

class conversion_run {
public:
    conversion_run(const conversion_options& options, conversion_shell& shell)
        : options_(options), shell_(shell), separate_(writes_separate_files(options.format)),
          labels_(conversion_messages::translated_labels())
    {
    }

    conversion_result run(const QVector<preset_source>& presets)
    {
        const int count = presets.size();
        const std::unique_ptr<preset_steps> steps =
            make_preset_steps(presets, options_.colour_space, options_.jobs, options_.learn_losses);
        for (int i = 0; i < count; ++i) {
            if (shell_.cancelled()) {
                result_.cancelled = true;
                break;
            }
            shell_.progress(i, count, presets.at(i).path);
            preset_outcome outcome;
            outcome.index = result_.outcomes.size();
            outcome.file = presets.at(i).path;
            convert(*steps, i, presets.at(i), result_.pack_entries, outcome);
            result_.outcomes.append(outcome);
            shell_.report_outcome(outcome);
        }
        return std::move(result_);
    }

private:
    void fail(const conversion_failure& failure, preset_outcome& outcome)
    {
        shell_.report_failure(failure);
        outcome.kind = outcome_kind::failed;
        outcome.failed_as = failure.kind;
        // The title says what failed; the reader's or file system's text, where
        // there is one, why. The support text of a box is not repeated.
        outcome.reason = failure.reason.isEmpty() ? failure.title : failure.title + QStringLiteral(": ") + failure.reason;
    }

    void convert(preset_steps& steps, int index, const preset_source& preset, QMap<QString, QString>& pack_entries,
                 preset_outcome& outcome)
    {
        if (preset_format_of(preset.path) == preset_format::unsupported) {
            fail(conversion_messages::unsupported_format(preset.path), outcome);
            return;
        }
        try {
            convert_readable(steps, *steps.read(index), pack_entries, outcome);
        } catch (const no_develop_settings&) {
            fail(conversion_messages::no_develop_settings(preset.path), outcome);
        } catch (const std::exception& error) {
            fail(conversion_messages::unreadable_preset(preset.path, QString::fromUtf8(error.what())), outcome);
        }
    }

    // Ends the turn of a preset skipped by the answer to question.
    static void skip(preset_outcome& outcome, preset_question question, const QString& title, bool silently)
    {
        outcome.kind = outcome_kind::skipped;
        outcome.skipped_by = question;
        outcome.question_title = title;
        outcome.skipped_silently = silently;
    }

    void convert_readable(preset_steps& steps, preset_step& step, QMap<QString, QString>& pack_entries,
                          preset_outcome& outcome)
    {
        const preset_source& preset = step.source;
        const QString& path = preset.path;
        const lightroom_importer& record = step.record;

        outcome.preset_name = record.name;
        // A profile is known for what it is before anything is asked about it.
        if (step.profile) {
            outcome.kind = outcome_kind::skipped;
            outcome.skipped_as = skip_reason::profile;
            return;
        }
        const QString style_name = QFileInfo(path).completeBaseName() + QStringLiteral(".costyle");
        // Into Capture One's styles folder a style goes to its Lightroom group.
        const QString subfolder =
            options_.lightroom_groups ? group_subfolder(record.extras.group, preset.subfolder) : preset.subfolder;
        const QString folder =
            subfolder.isEmpty() ? shell_.output_folder() : shell_.output_folder() + QLatin1Char('/') + subfolder;

        const bool unsupported = step.dehaze || step.lut;
        const auto white_balance = [&] { return conversion_messages::white_balance_question(path, record.name, labels_); };
        const auto unsupported_parameters = [&] {
            return conversion_messages::unsupported_parameters_question(path, record.name, step.lut, step.dehaze,
                                                                        labels_);
        };
        const auto camera_calibration = [&] {
            return conversion_messages::camera_calibration_question(path, record.name, labels_);
        };
        if (white_balance_.skip_all && step.white_balance)
            return skip(outcome, preset_question::white_balance, white_balance().title, true);
        if (unsupported_.skip_all && unsupported)
            return skip(outcome, preset_question::unsupported_parameters, unsupported_parameters().title, true);
        if (camera_calibration_.skip_all && step.camera_calibration)
            return skip(outcome, preset_question::camera_calibration, camera_calibration().title, true);
        if (!answered_convert(step.white_balance, white_balance_, white_balance, outcome) ||
            !answered_convert(unsupported, unsupported_, unsupported_parameters, outcome) ||
            !answered_convert(step.camera_calibration, camera_calibration_, camera_calibration, outcome))
            return;

        steps.build(step);
        if (!step.converted)
            return fail(conversion_messages::conversion_failed(path), outcome);
        const QString& document = step.document;
        const QString preset_folder = QFileInfo(path).absolutePath();
        // Styles of presets from different folders are kept apart by name,
        // except for files picked one by one, where the later replaces the
        // earlier.
        const QString owner = preset.named_by_folder ? preset_folder : QString();
        // The same look from another folder, archive or group is written once;
        // a preset whose style takes the very same name replaces it instead,
        // and presets of one folder each keep their own file.
        const QByteArray identity = same_styles::identity_of(document);
        const same_styles::first_style* first = same_styles_.first_like(identity);
        // A first style that a later one of its name replaced is gone.
        if (first != nullptr && result_.outcomes.at(first->index).kind != outcome_kind::converted) {
            same_styles_.forget(identity);
            first = nullptr;
        }
        if (first != nullptr && first->folder != preset_folder) {
            const QString name =
                separate_ ? folder + QLatin1Char('/') +
                                entry_names_.separate_name_would_be(subfolder, style_name, owner)
                          : entry_names_.entry_would_be(style_name, owner, label_of(preset));
            if (name != first->name) {
                outcome.kind = outcome_kind::skipped;
                outcome.skipped_as = skip_reason::same_style;
                outcome.same_as = first->file;
                return;
            }
        }
        outcome.kind = outcome_kind::converted;
        outcome.losses = step.losses;
        outcome.empty_style = step.empty_style;

        if (!separate_) {
            bool renamed = false;
            const QString entry = entry_names_.entry_for(style_name, owner, label_of(preset), renamed);
            if (renamed)
                qWarning().noquote() << QStringLiteral("%1: another folder holds a preset of the same name; its style "
                                                       "goes into the pack as %2.")
                                            .arg(path, entry);
            pack_entries.insert(entry, document);
            same_styles_.remember(identity, {path, entry, preset_folder, outcome.index});
            outcome.target = entry;
            outcome.in_pack = true;
            took(entry, outcome);
            return;
        }
        bool renamed = false;
        const QString separate_name = entry_names_.separate_name_for(subfolder, style_name, owner, renamed);
        const QString target = folder + QLatin1Char('/') + separate_name;
        if (renamed)
            qWarning().noquote() << QStringLiteral("%1: this run already wrote a style of the same name from "
                                                   "another folder; this one is written as %2.")
                                        .arg(path, target);
        QString reason;
        // Only a subfolder of a folder tree is made here; the output folder
        // itself is the shell's.
        if (!subfolder.isEmpty() && !QDir().mkpath(folder))
            return fail(conversion_messages::write_failed(path, target, QStringLiteral("Can't create the folder.")),
                        outcome);
        const QString target_key = QDir::cleanPath(QFileInfo(target).absoluteFilePath());
        const bool there_before = !taken_by_.contains(target_key) && QFileInfo::exists(target);
        if (!write_style(target, document, reason))
            return fail(conversion_messages::write_failed(path, target, reason), outcome);
        same_styles_.remember(identity, {path, target, preset_folder, outcome.index});
        outcome.target = target;
        outcome.written_over = there_before;
        took(target_key, outcome);
    }

    // The preset of outcome took the style file or pack entry key; an earlier
    // preset of this run whose style had it is lost.
    void took(const QString& key, const preset_outcome& outcome)
    {
        const auto earlier = taken_by_.constFind(key);
        if (earlier != taken_by_.cend()) {
            preset_outcome& lost = result_.outcomes[earlier.value()];
            if (lost.kind == outcome_kind::converted) {
                lost.kind = outcome_kind::lost;
                lost.replaced_by = outcome.file;
                shell_.report_lost(lost);
            }
        }
        taken_by_.insert(key, outcome.index);
    }

    // Where a preset whose style name another folder took gets its label
    // from: its folder below the one given, else the name of the folder or
    // archive it was found in.
    static QString label_of(const preset_source& preset)
    {
        if (!preset.subfolder.isEmpty())
            return preset.subfolder;
        const QFileInfo folder(QFileInfo(preset.path).absolutePath());
        return is_preset_archive(folder.fileName()) ? folder.completeBaseName() : folder.fileName();
    }

    template <typename make_question>
    bool answered_convert(bool raised, answer_memory& memory, make_question question, preset_outcome& outcome)
    {
        if (!raised || !memory.ask)
            return true;
        const conversion_question asked = question();
        if (goes_on(shell_.ask(asked), memory))
            return true;
        skip(outcome, asked.kind, asked.title, false);
        return false;
    }

    // Through a temporary file renamed over the target: a failed write neither
    // leaves a truncated style nor destroys an earlier one of the same name.
    // Writes the whole document or reports why not. Buffered writes fail late
    // (a full disk, a file-size limit), so the data is flushed and checked here.
    static bool write_whole(QFileDevice& file, const QByteArray& bytes, QString& reason)
    {
        errno = 0;
        if (file.write(bytes) == bytes.size() && file.flush())
            return true;
        const int error = errno;
        reason = error != 0 ? qt_error_string(error) : file.errorString();
        return false;
    }

    // A failed write never leaves a truncated style nor destroys an earlier one
    // of the same name. A new name is written directly, and removed again if
    // writing fails; an existing style is replaced through a temporary file
    // renamed over it, which costs several times as much on most file systems.
    static bool write_style(const QString& target, const QString& document, QString& reason)
    {
        const QByteArray bytes = document.toUtf8();
        QFile fresh(target);
        if (fresh.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            if (write_whole(fresh, bytes, reason))
                return true;
            fresh.remove();
            return false;
        }
        QSaveFile file(target);
        if (!file.open(QIODevice::WriteOnly)) {
            reason = file.errorString();
            return false;
        }
        // QSaveFile::commit renames even when flushing its buffer failed, which
        // would replace the style by a truncated one.
        if (!write_whole(file, bytes, reason)) {
            file.cancelWriting();
            return false;
        }
        if (!file.commit()) {
            reason = file.errorString();
            return false;
        }
        return true;
    }

    const conversion_options& options_;
    conversion_shell& shell_;
    const bool separate_;
    const question_labels labels_;
    answer_memory white_balance_;
    answer_memory unsupported_;
    answer_memory camera_calibration_;
    style_names entry_names_;
    same_styles same_styles_;
    conversion_result result_;
    // Style file (absolute path) or pack entry -> index of the outcome whose
    // style it holds.
    QHash<QString, int> taken_by_;
};


} // namespace

QVector<preset_outcome> conversion_result::pack_not_saved(const QString& reason)
{
    QVector<preset_outcome> changed;
    for (preset_outcome& outcome : outcomes) {
        if (outcome.kind != outcome_kind::converted || !outcome.in_pack)
            continue;
        outcome.kind = outcome_kind::not_saved;
        outcome.reason = reason;
        changed.append(outcome);
    }
    return changed;
}

conversion_result run_conversion(const QVector<preset_source>& presets, const conversion_options& options,
                                 conversion_shell& shell)
{
    return conversion_run(options, shell).run(presets);
}

conversion_result run_conversion(const QStringList& files, const conversion_options& options, conversion_shell& shell)
{
    return run_conversion(presets_of_files(files), options, shell);
}
