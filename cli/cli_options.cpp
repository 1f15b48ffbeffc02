// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cli_options.h"

#include <QCommandLineParser>

namespace {

QStringList colour_space_names()
{
    QStringList names;
    for (const colour_space space : all_colour_spaces)
        names.append(colour_space_name(space));
    return names;
}

// "raw (default), adobe, srgb, prophoto, widegamut."
QString colour_space_help()
{
    QStringList names = colour_space_names();
    names.first() += QStringLiteral(" (default)");
    return names.join(QStringLiteral(", ")) + QLatin1Char('.');
}

// "raw, adobe, srgb, prophoto or widegamut"
QString colour_space_choice()
{
    QStringList names = colour_space_names();
    const QString last = names.takeLast();
    return names.join(QStringLiteral(", ")) + QStringLiteral(" or ") + last;
}

parsed_command_line usage_error(const QString& message)
{
    parsed_command_line parsed;
    parsed.outcome = parse_outcome::usage_error;
    parsed.text = message;
    return parsed;
}

// Reads one of the answer options; false for a value other than convert or skip.
bool read_answer(const QCommandLineParser& parser, const QString& option, question_answer& answer)
{
    if (!parser.isSet(option))
        return true;
    const QString value = parser.value(option).toLower();
    if (value == QLatin1String("convert"))
        answer = question_answer::convert;
    else if (value == QLatin1String("skip"))
        answer = question_answer::skip;
    else
        return false;
    return true;
}

} // namespace

parsed_command_line parse_command_line(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Converts Lightroom develop presets (.lrtemplate, .xmp, .dng) into Capture One styles.\n"
                       "Folders are searched for presets in all their subfolders. Lightroom profiles are\n"
                       "skipped, and a look found twice in different folders is written once. Messages and the summary\n"
                       "go to standard error; standard output carries only --stdout and --inspect output.\n"
                       "Exit status: 0 when nothing failed, 1 when a preset failed, 2 for wrong usage."));
    const QCommandLineOption output({QStringLiteral("o"), QStringLiteral("output")},
                                    QStringLiteral("Folder for separate .costyle files (default: the current "
                                                   "folder; created if missing)."),
                                    QStringLiteral("DIR"));
    const QCommandLineOption colorspace({QStringLiteral("c"), QStringLiteral("colorspace")},
                                        colour_space_help(), QStringLiteral("NAME"),
                                        colour_space_name(colour_space::raw));
    const QCommandLineOption pack({QStringLiteral("p"), QStringLiteral("pack")},
                                  QStringLiteral("Write one .costylepack archive instead of separate files."),
                                  QStringLiteral("FILE"));
    const QCommandLineOption category(QStringLiteral("category"),
                                      QStringLiteral("With --pack: put the styles in a folder named after the pack."));
    const QCommandLineOption white_balance(QStringLiteral("white-balance"),
                                           QStringLiteral("Answer for presets with white-balance settings "
                                                          "(default convert)."),
                                           QStringLiteral("convert|skip"));
    const QCommandLineOption unsupported(QStringLiteral("unsupported"),
                                         QStringLiteral("Answer for presets with a LUT or Dehaze (default convert)."),
                                         QStringLiteral("convert|skip"));
    const QCommandLineOption calibration(QStringLiteral("calibration"),
                                         QStringLiteral("Answer for presets with camera calibration (default "
                                                        "convert)."),
                                         QStringLiteral("convert|skip"));
    const QCommandLineOption to_stdout(QStringLiteral("stdout"),
                                       QStringLiteral("Print the style of the one preset given to standard output."));
    const QCommandLineOption jobs({QStringLiteral("j"), QStringLiteral("jobs")},
                                  QStringLiteral("Presets read and converted at once (default: the number of "
                                                 "cores). Output comes in the same order whatever the number."),
                                  QStringLiteral("N"));
    const QCommandLineOption from_lightroom(
        QStringLiteral("from-lightroom"),
        QStringLiteral("Also convert the presets in this user's Lightroom folders (Lightroom Classic's and Camera "
                       "Raw's XMP presets, older Lightroom's templates)."));
    const QCommandLineOption to_capture_one(
        QStringLiteral("to-capture-one"),
        QStringLiteral("Write the styles into this user's Capture One styles folder, each in the folder of its "
                       "Lightroom group, instead of --output."));
    const QCommandLineOption inspect(QStringLiteral("inspect"),
                                     QStringLiteral("Print what each preset holds as JSON; write nothing."));
    const QCommandLineOption verbose({QStringLiteral("v"), QStringLiteral("verbose")},
                                     QStringLiteral("Also print the debug log lines."));
    const QCommandLineOption quiet({QStringLiteral("q"), QStringLiteral("quiet")}, QStringLiteral("Only errors."));
    // Not addVersionOption: it would take -v, which is --verbose here.
    const QCommandLineOption version(QStringLiteral("version"), QStringLiteral("Print the version."));

    parser.addOptions({output, colorspace, pack, category, white_balance, unsupported, calibration, to_stdout,
                       from_lightroom, to_capture_one, jobs, inspect, verbose, quiet});
    const QCommandLineOption help = parser.addHelpOption();
    parser.addOption(version);
    parser.addPositionalArgument(QStringLiteral("PRESET|FOLDER"),
                                 QStringLiteral("Preset files (.lrtemplate, .xmp, .dng) and folders of presets."),
                                 QStringLiteral("PRESET|FOLDER..."));

    if (!parser.parse(arguments))
        return usage_error(parser.errorText());

    parsed_command_line parsed;
    if (parser.isSet(help)) {
        parsed.outcome = parse_outcome::help;
        parsed.text = parser.helpText();
        return parsed;
    }
    if (parser.isSet(version)) {
        parsed.outcome = parse_outcome::version;
        return parsed;
    }

    cli_options& options = parsed.options;
    options.inputs = parser.positionalArguments();
    options.pack_path = parser.value(pack);
    options.category = parser.isSet(category);
    options.to_stdout = parser.isSet(to_stdout);
    options.inspect = parser.isSet(inspect);
    options.from_lightroom = parser.isSet(from_lightroom);
    options.to_capture_one = parser.isSet(to_capture_one);
    if (parser.isSet(jobs)) {
        bool number = false;
        options.jobs = parser.value(jobs).toInt(&number);
        if (!number || options.jobs < 1)
            return usage_error(QStringLiteral("--jobs takes a whole number of at least 1, not '%1'.").arg(parser.value(jobs)));
    }
    if (parser.isSet(output))
        options.output_folder = parser.value(output);

    const std::optional<colour_space> named = parse_colour_space(parser.value(colorspace).toLower());
    if (!named)
        return usage_error(QStringLiteral("Unknown colour space '%1' (%2).")
                               .arg(parser.value(colorspace), colour_space_choice()));
    options.space = *named;
    const std::pair<const QCommandLineOption*, question_answer*> answers[] = {{&white_balance, &options.white_balance},
                                                                              {&unsupported, &options.unsupported},
                                                                              {&calibration, &options.calibration}};
    for (const auto& [option, answer] : answers) {
        const QString name = option->names().constFirst();
        if (!read_answer(parser, name, *answer))
            return usage_error(QStringLiteral("--%1 takes convert or skip, not '%2'.").arg(name, parser.value(name)));
    }
    if (parser.isSet(verbose) && parser.isSet(quiet))
        return usage_error(QStringLiteral("--verbose and --quiet exclude each other."));
    options.level = parser.isSet(verbose) ? verbosity::verbose
                    : parser.isSet(quiet) ? verbosity::quiet
                                          : verbosity::normal;

    if (options.to_capture_one) {
        for (const QCommandLineOption* other : {&pack, &output, &category, &to_stdout, &inspect}) {
            if (parser.isSet(*other))
                return usage_error(QStringLiteral("--to-capture-one writes separate styles into Capture One's styles "
                                                  "folder; it can't be used with --%1.")
                                       .arg(other->names().constLast()));
        }
    }
    const int modes = int(parser.isSet(pack)) + int(options.to_stdout) + int(options.inspect);
    if (modes > 1)
        return usage_error(QStringLiteral("Only one of --pack, --stdout and --inspect can be given."));
    if (modes == 1 && parser.isSet(output))
        return usage_error(QStringLiteral("--output is for separate styles; it can't be used with --pack, "
                                          "--stdout or --inspect."));
    if (options.category && !parser.isSet(pack))
        return usage_error(QStringLiteral("--category needs --pack."));
    if (parser.isSet(pack) && options.pack_path.isEmpty())
        return usage_error(QStringLiteral("--pack needs a file name."));
    if (parser.isSet(output) && options.output_folder.isEmpty())
        return usage_error(QStringLiteral("--output needs a folder name."));
    if (options.inputs.isEmpty() && !options.from_lightroom)
        return usage_error(QStringLiteral("No preset or folder given."));
    if (options.to_stdout && (options.inputs.size() != 1 || options.from_lightroom))
        return usage_error(QStringLiteral("--stdout takes exactly one preset."));
    return parsed;
}
