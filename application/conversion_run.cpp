// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/conversion_run.h"

#include "application/pack_entry_names.h"
#include "application/preset_reading.h"
#include "application/preset_step.h"
#include "importer/lightroom_importer.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <exception>

namespace {

enum class turn_outcome { converted, skipped, failed };

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

class conversion_run {
public:
    conversion_run(const conversion_options& options, conversion_shell& shell)
        : options_(options), shell_(shell), separate_(!is_pack(options.format)),
          labels_(conversion_messages::translated_labels())
    {
    }

    conversion_result run(const QVector<preset_source>& presets)
    {
        conversion_result result;
        const int count = presets.size();
        const std::unique_ptr<preset_steps> steps = make_preset_steps(presets, options_.colour_space, options_.jobs);
        for (int i = 0; i < count; ++i) {
            if (shell_.cancelled()) {
                result.cancelled = true;
                break;
            }
            shell_.progress(i, count, presets.at(i).path);
            switch (convert(*steps, i, presets.at(i), result.pack_entries)) {
            case turn_outcome::converted:
                ++result.converted;
                break;
            case turn_outcome::skipped:
                ++result.skipped;
                break;
            case turn_outcome::failed:
                ++result.failed;
                break;
            }
        }
        return result;
    }

private:
    turn_outcome convert(preset_steps& steps, int index, const preset_source& preset,
                         QMap<QString, QString>& pack_entries)
    {
        if (preset_format_of(preset.path) == preset_format::unsupported) {
            shell_.report_failure(conversion_messages::unsupported_format(preset.path));
            return turn_outcome::failed;
        }
        try {
            return convert_readable(steps, *steps.read(index), pack_entries);
        } catch (const std::exception& error) {
            shell_.report_failure(
                conversion_messages::unreadable_preset(preset.path, QString::fromUtf8(error.what())));
            return turn_outcome::failed;
        }
    }

    turn_outcome convert_readable(preset_steps& steps, preset_step& step, QMap<QString, QString>& pack_entries)
    {
        const preset_source& preset = step.source;
        const QString& path = preset.path;
        const lightroom_importer& record = step.record;

        const QString style_name = QFileInfo(path).completeBaseName() + QStringLiteral(".costyle");
        const QString folder = preset.subfolder.isEmpty()
                                   ? shell_.output_folder()
                                   : shell_.output_folder() + QLatin1Char('/') + preset.subfolder;
        const QString target = folder + QLatin1Char('/') + style_name;

        const bool unsupported = step.dehaze || step.lut;
        if (skipped_silently(step.white_balance, unsupported, step.camera_calibration))
            return turn_outcome::skipped;
        if (!answered_convert(step.white_balance, white_balance_,
                              [&] { return conversion_messages::white_balance_question(path, record.name, labels_); }))
            return turn_outcome::skipped;
        if (!answered_convert(unsupported, unsupported_, [&] {
                return conversion_messages::unsupported_parameters_question(path, record.name, step.lut, step.dehaze,
                                                                            labels_);
            }))
            return turn_outcome::skipped;
        if (!answered_convert(step.camera_calibration, camera_calibration_, [&] {
                return conversion_messages::camera_calibration_question(path, record.name, labels_);
            }))
            return turn_outcome::skipped;

        steps.build(step);
        if (!step.converted) {
            shell_.report_failure(conversion_messages::conversion_failed(path));
            return turn_outcome::failed;
        }
        const QString& document = step.document;

        if (!separate_) {
            bool renamed = false;
            const QString entry = entry_names_.entry_for(style_name, preset.subfolder, renamed);
            if (renamed)
                qWarning().noquote() << QStringLiteral("%1: another folder holds a preset of the same name; its style "
                                                       "goes into the pack as %2.")
                                            .arg(path, entry);
            pack_entries.insert(entry, document);
            return turn_outcome::converted;
        }
        QString reason;
        // Only a subfolder of a folder tree is made here; the output folder
        // itself is the shell's.
        if (!preset.subfolder.isEmpty() && !QDir().mkpath(folder)) {
            shell_.report_failure(conversion_messages::write_failed(path, target, QStringLiteral("Can't create the folder.")));
            return turn_outcome::failed;
        }
        if (!write_style(target, document, reason)) {
            shell_.report_failure(conversion_messages::write_failed(path, target, reason));
            return turn_outcome::failed;
        }
        return turn_outcome::converted;
    }

    // The remembered "Skip All" answers, tested before any question is shown.
    bool skipped_silently(bool white_balance, bool unsupported, bool camera_calibration) const
    {
        return (white_balance_.skip_all && white_balance) || (unsupported_.skip_all && unsupported) ||
               (camera_calibration_.skip_all && camera_calibration);
    }

    template <typename make_question>
    bool answered_convert(bool raised, answer_memory& memory, make_question question)
    {
        if (!raised || !memory.ask)
            return true;
        return goes_on(shell_.ask(question()), memory);
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
    pack_entry_names entry_names_;
};

} // namespace

conversion_result run_conversion(const QVector<preset_source>& presets, const conversion_options& options,
                                 conversion_shell& shell)
{
    return conversion_run(options, shell).run(presets);
}

conversion_result run_conversion(const QStringList& files, const conversion_options& options, conversion_shell& shell)
{
    return run_conversion(presets_of_files(files), options, shell);
}
