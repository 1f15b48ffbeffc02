// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cli_program.h"
#include "cli/standard_streams.h"

#include "conversion/conversion_run.h"
#include "conversion/editor_folders.h"
#include "conversion/held_log.h"
#include "conversion/other_files.h"
#include "conversion/preset_source.h"
#include "conversion/stylepack_writer.h"
#include "cli/cli_options.h"
#include "cli/cli_output.h"
#include "cli/cli_shell.h"
#include "cli/preset_report_json.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThreadPool>

#include <cerrno>
#include <optional>

namespace {

constexpr int exit_success = 0;
constexpr int exit_failure = 1;
constexpr int exit_usage = 2;

const QString program_name = QStringLiteral("stylewright-cli");

// A document that did not reach standard output is a failure like any other,
// not a silent success.
bool write_document(const QByteArray& bytes, QString* reason = nullptr)
{
    errno = 0;
    if (cli_output::write_stdout(bytes))
        return true;
    const QString why = qt_error_string(errno);
    cli_output::error_line(QStringLiteral("Can't write to standard output: %1.").arg(why));
    if (reason != nullptr)
        *reason = why;
    return false;
}

int refuse_usage(const QString& message)
{
    cli_output::raw_line(program_name + QStringLiteral(": ") + message + QStringLiteral(" Try '") + program_name +
                         QStringLiteral(" --help'."));
    return exit_usage;
}

// A preset named on the command line that is not there.
bool missing(const preset_source& preset)
{
    return !preset.in_archive && !QFileInfo::exists(preset.path);
}

// What one preset's report came to, with the log lines made on the way.
// One preset's report as the array element of --inspect's output, and the
// log lines made on the way.
struct preset_report {
    QByteArray json;
    QString error;
    held_lines lines;
};

preset_report report_on(const preset_source& file)
{
    preset_report report;
    report.json = inspect_preset(file, !missing(file), report.error);
    return report;
}

// The reports of all presets, made on up to jobs threads; their log lines are
// held back (the caller holds the log) to come out in preset order.
std::vector<preset_report> reports_of(const QVector<preset_source>& files, int jobs)
{
    std::vector<preset_report> reports(std::size_t(files.size()));
    QThreadPool pool;
    pool.setMaxThreadCount(jobs);
    for (int i = 0; i < files.size(); ++i) {
        pool.start([&reports, &files, i] {
            held_lines lines;
            log_holding::hold_into(&lines);
            reports[std::size_t(i)] = report_on(files.at(i));
            log_holding::hold_into(nullptr);
            reports[std::size_t(i)].lines = std::move(lines);
        });
    }
    pool.waitForDone();
    return reports;
}

int inspect(const QVector<preset_source>& files, bool archives_failed, int jobs)
{
    bool failed = archives_failed;
    std::optional<log_holding> holding;
    std::vector<preset_report> reports;
    if (jobs > 1) {
        holding.emplace();
        reports = reports_of(files, jobs);
    }
    // The array as QJsonDocument writes it indented, put together from its elements.
    QByteArray document = "[\n";
    for (int i = 0; i < files.size(); ++i) {
        const preset_report report = jobs <= 1 ? report_on(files.at(i)) : std::move(reports[std::size_t(i)]);
        log_holding::release(report.lines);
        document += report.json + (i + 1 < files.size() ? ",\n" : "\n");
        if (!report.error.isEmpty()) {
            cli_output::error_line(files.at(i).path + QStringLiteral(": ") + report.error);
            failed = true;
        }
    }
    document += "]\n";
    if (!write_document(document))
        failed = true;
    return failed ? exit_failure : exit_success;
}

int convert(const cli_options& options, const QVector<preset_source>& files, int archive_failures)
{
    if (options.to_stdout && files.size() != 1)
        return refuse_usage(QStringLiteral("--stdout takes exactly one preset, not %1.").arg(files.size()));

    int unreadable = archive_failures;
    QVector<preset_source> presets;
    for (const preset_source& file : files) {
        if (missing(file)) {
            cli_output::error_line(file.path + QStringLiteral(": No such file or folder."));
            ++unreadable;
            continue;
        }
        // The readers take a file they cannot open for an empty preset, which
        // would turn a permission problem into an empty style.
        QFile readable(file.path);
        if (!file.in_archive && !readable.open(QIODevice::ReadOnly)) {
            cli_output::error_line(file.path + QStringLiteral(": Can't open the file: %1.").arg(readable.errorString()));
            ++unreadable;
            continue;
        }
        presets.append(file);
    }
    const bool separate = options.pack_path.isEmpty() && !options.to_stdout;
    if (separate && !QDir().mkpath(options.output_folder)) {
        cli_output::error_line(QStringLiteral("Can't create the output folder %1.").arg(options.output_folder));
        return exit_failure;
    }

    conversion_options conversion;
    // The run collects the styles for a pack in every format but "separate"; the
    // one style for standard output is collected the same way.
    conversion.format = separate           ? output_format::separate
                        : options.category ? output_format::stylepack_category
                                           : output_format::stylepack;
    conversion.colour_space = colour_space_name(options.space);
    conversion.jobs = options.jobs;
    // What each style leaves out is only told with -v.
    conversion.learn_losses = options.level == verbosity::verbose;
    conversion.lightroom_groups = options.to_capture_one;
    cli_shell shell(options);
    conversion_result result = run_conversion(presets, conversion, shell);
    cli_output::end_progress();

    // Every style that went into a pack that was not saved says so.
    const auto not_saved = [&result](const QString& reason) {
        for (const preset_outcome& outcome : result.pack_not_saved(reason))
            cli_output::result_line(outcome.file + QStringLiteral(": ") + conversion_messages::outcome_line(outcome));
    };
    if (options.to_stdout) {
        if (QString reason; !result.pack_entries.isEmpty() && !write_document(result.pack_entries.first().toUtf8(), &reason))
            not_saved(reason);
    } else if (!separate) {
        if (result.pack_entries.isEmpty()) {
            cli_output::log_line(QtWarningMsg,
                                 QStringLiteral("No style was converted; %1 was not written.").arg(options.pack_path));
        } else if (QString reason; !write_stylepack(options.pack_path, result.pack_entries, options.category, &reason)) {
            cli_output::error_line(QStringLiteral("%1: The style pack could not be written: %2.").arg(options.pack_path, reason));
            not_saved(reason);
        }
    }

    outcome_counts counts = result.counts();
    // Presets that never reached the run: missing, unreadable, refused by an archive.
    counts.failed += unreadable;
    cli_output::result_line(conversion_messages::summary_line(counts));
    if (options.to_capture_one && counts.converted > 0)
        cli_output::result_line(conversion_messages::restart_capture_one());
    return counts.failed > 0 || counts.not_saved > 0 ? exit_failure : exit_success;
}

// Adds this user's Lightroom folders to the inputs and sends the styles to
// Capture One's styles folder, as asked; false (with its line said) when a
// folder asked for is not there, before anything is read or written.
bool find_editor_folders(cli_options& options, const editor_folders& folders)
{
    const auto join = [](const QStringList& paths) {
        QStringList shown;
        for (const QString& path : paths)
            shown << QDir::toNativeSeparators(path);
        return shown.join(QStringLiteral(" and "));
    };
    if ((options.from_lightroom || options.to_capture_one) && folders.layout == folder_layout::none) {
        cli_output::error_line(QStringLiteral("%1: Lightroom's and Capture One's folders are looked for only on macOS "
                                              "and Windows, where the two programs run.")
                                   .arg(options.from_lightroom ? QStringLiteral("--from-lightroom")
                                                               : QStringLiteral("--to-capture-one")));
        return false;
    }
    if (options.from_lightroom) {
        const QStringList found = folders.existing_lightroom_presets();
        for (const QString& folder : folders.lightroom_presets) {
            if (!found.contains(folder))
                cli_output::log_line(QtInfoMsg, QStringLiteral("No Lightroom preset folder at %1.")
                                                    .arg(QDir::toNativeSeparators(folder)));
        }
        if (found.isEmpty()) {
            cli_output::error_line(QStringLiteral("--from-lightroom: none of Lightroom's preset folders exists "
                                                  "(looked for %1).")
                                       .arg(join(folders.lightroom_presets)));
            return false;
        }
        options.inputs = found + options.inputs;
    }
    if (options.to_capture_one) {
        if (!folders.capture_one_styles_exist()) {
            cli_output::error_line(QStringLiteral("--to-capture-one: Capture One's styles folder %1 does not exist; "
                                                  "start Capture One once to make it.")
                                       .arg(QDir::toNativeSeparators(folders.capture_one_styles)));
            return false;
        }
        options.output_folder = folders.capture_one_styles;
    }
    return true;
}

} // namespace

int run_cli(const QStringList& arguments)
{
    return run_cli(arguments, this_system_editor_folders());
}

int run_cli(const QStringList& arguments, const editor_folders& folders)
{
    keep_standard_streams_byte_exact();
    const parsed_command_line parsed = parse_command_line(arguments);
    switch (parsed.outcome) {
    case parse_outcome::help:
        cli_output::write_stdout(parsed.text.toUtf8());
        return exit_success;
    case parse_outcome::version:
        cli_output::write_stdout(
            QStringLiteral("Stylewright %1\n").arg(QCoreApplication::applicationVersion()).toUtf8());
        return exit_success;
    case parse_outcome::usage_error:
        return refuse_usage(parsed.text);
    case parse_outcome::run:
        break;
    }

    cli_options options = parsed.options;
    cli_output::install(options.level);
    if (!find_editor_folders(options, folders))
        return exit_failure;
    const gathered_presets gathered = gather_presets(options.inputs);
    for (const empty_place& folder : gathered.empty_folders)
        cli_output::log_line(QtWarningMsg, folder.path + QStringLiteral(": ") +
                                               conversion_messages::nothing_found(folder.others));
    for (const archive_failure& failure : gathered.archive_failures) {
        const QString where = failure.entry.isEmpty() ? failure.archive : failure.archive + QLatin1Char('/') + failure.entry;
        cli_output::error_line(where + QStringLiteral(": ") + failure.reason);
    }
    const int archive_failures = gathered.archive_failures.size();
    if (options.inspect)
        return inspect(gathered.presets, archive_failures > 0, options.jobs);
    return convert(options, gathered.presets, archive_failures);
}
