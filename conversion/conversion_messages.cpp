// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/conversion_messages.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>

// Every text is translated in the main window's context, written out at each call
// so that lupdate finds it: the window's translations carry these texts.

namespace {

const QString name_open = QStringLiteral("<font color=\"white\"><b>");
const QString name_close = QStringLiteral("</b></font>");

QString file_name(const QString& file)
{
    return QFileInfo(file).fileName();
}

// The template's own line breaks as spaces, for a message on one line.
QString plain_template(const QString& text)
{
    static const QRegularExpression line_breaks(QStringLiteral("(?:<br/?>)+"));
    return QString(text).replace(line_breaks, QStringLiteral(" ")).trimmed();
}

// A name or an error text on one line.
QString one_line(const QString& text)
{
    static const QRegularExpression line_ends(QStringLiteral("[\\r\\n]+"));
    return QString(text).replace(line_ends, QStringLiteral(" "));
}

struct composed {
    QString rich;
    QString plain;
};

// Fills a translated template whose placeholders take names or texts from
// outside (preset names, file names, error texts), in one step, so that a
// "%2" inside a name stays as it is. The rich text sets each one escaped in
// white bold (or, for texts, escaped only); the plain line has them as they
// are, with the template's line breaks as spaces.
composed compose(const QString& text, const QString& name, const QString& detail = QString(), bool detail_is_name = false)
{
    const QString rich_detail = detail_is_name ? conversion_messages::wrap_name(detail) : detail.toHtmlEscaped();
    const QString plain = plain_template(text);
    if (!text.contains(QLatin1String("%2")))
        return {text.arg(conversion_messages::wrap_name(name)), plain.arg(one_line(name))};
    return {text.arg(conversion_messages::wrap_name(name), rich_detail), plain.arg(one_line(name), one_line(detail))};
}

} // namespace

namespace conversion_messages {

// A reserved domain: the address must never reach a real party.
const QString support_address = QStringLiteral("support@quillmark.example");

QString wrap_name(const QString& name)
{
    return name_open + name.toHtmlEscaped() + name_close;
}

question_labels translated_labels()
{
    return {QCoreApplication::translate("MainWindow", "Convert"), QCoreApplication::translate("MainWindow", "Skip"),
            QCoreApplication::translate("MainWindow", "Convert All"),
            QCoreApplication::translate("MainWindow", "Skip All")};
}

conversion_question white_balance_question(const QString& file, const QString& preset_name,
                                           const question_labels& labels)
{
    const QString title = QCoreApplication::translate("MainWindow", "White balance modified by preset");
    const QString text = QCoreApplication::translate(
        "MainWindow", "Your preset %1 contains values for the white balance.<br/><br/>"
                      "Equal white balance values can lead to different results in Capture One.<br/>"
                      "Thus Stylewright translates the values instead of adapting them visually.<br/>"
                      "Anyway we recommend to keep the white balance settings for neutralizing the image instead of "
                      "using them for creating a look.<br/>"
                      "For this reason they should not be inside a preset.");
    const composed message = compose(text, preset_name);
    return {preset_question::white_balance, file, preset_name, title, message.rich, message.plain, labels};
}

conversion_question unsupported_parameters_question(const QString& file, const QString& preset_name, bool lut,
                                                    bool dehaze, const question_labels& labels)
{
    QString list;
    if (lut)
        list += QStringLiteral("- ") + QCoreApplication::translate("MainWindow", "LUT") + QStringLiteral("<br/>");
    if (dehaze)
        list += QStringLiteral("- ") + QCoreApplication::translate("MainWindow", "Dehaze") + QStringLiteral("<br/>");
    const QString title = QCoreApplication::translate("MainWindow", "Unsupported parameters in preset");
    const QString text = QCoreApplication::translate(
        "MainWindow", "Your selected preset %1 contains the following parameters, which can't be mapped in Capture One:"
                      "<br/>%2<br/>These parameters will be ignored.");
    // The list first, in the same step that keeps "%1" for the name.
    const composed message = compose(text.arg(QStringLiteral("%1"), list), preset_name);
    return {preset_question::unsupported_parameters, file, preset_name, title, message.rich, message.plain, labels};
}

conversion_question camera_calibration_question(const QString& file, const QString& preset_name,
                                                const question_labels& labels)
{
    const QString title = QCoreApplication::translate("MainWindow", "Camera calibration modified by preset");
    const QString text = QCoreApplication::translate(
        "MainWindow",
        "The preset %1 contains values for the camera calibration.<br/>"
        "These settings may influence the resulting look significantly but will not be converted to "
        "Capture One.<br/>"
        "We recommend to reserve these parameters for the calibration of your camera and not for creating "
        "creative looks.");
    const composed message = compose(text, preset_name);
    return {preset_question::camera_calibration, file, preset_name, title, message.rich, message.plain, labels};
}

conversion_failure unsupported_format(const QString& file)
{
    const QString title = QCoreApplication::translate("MainWindow", "Unsupported preset format");
    const QString text =
        QCoreApplication::translate("MainWindow", "Your preset %1 is in a format Stylewright can't convert.");
    const composed message = compose(text, file_name(file));
    return {failure_kind::unsupported_format, file, QString(), title, message.rich, message.plain};
}

conversion_failure unreadable_preset(const QString& file, const QString& error)
{
    const QString title = QCoreApplication::translate("MainWindow", "Can't read preset");
    const QString text =
        QCoreApplication::translate("MainWindow",
                                    "Your preset %1 can't be processed by Stylewright.<br/><br/>"
                                    "Please contact the Quillmark support and send them a screenshot of this message "
                                    "and the preset file stated above to ") +
        support_address + QStringLiteral("<br/><br/>Error: %2");
    const composed message = compose(text, file_name(file), error);
    return {failure_kind::unreadable_preset, file, error, title, message.rich, message.plain};
}

conversion_failure conversion_failed(const QString& file)
{
    const QString title = QCoreApplication::translate("MainWindow", "Preset conversion failed");
    // The lone "<br>" is part of the text as the translations know it.
    const QString text =
        QCoreApplication::translate("MainWindow",
                                    "The preset %1 could not be converted to Capture One format.<br>"
                                    "Please contact Quillmark support and send them a screenshot of this message "
                                    "and the preset file stated above to ") +
        support_address + QStringLiteral("<br/><br/>");
    const composed message = compose(text, file_name(file));
    return {failure_kind::conversion_failed, file, QString(), title, message.rich, message.plain};
}

conversion_failure write_failed(const QString& file, const QString& target, const QString& reason)
{
    const QString title = QCoreApplication::translate("MainWindow", "Can't write style");
    const QString text = QCoreApplication::translate("MainWindow", "The style %1 could not be written.<br/>%2");
    const composed message = compose(text, target, reason);
    return {failure_kind::write_failed, file, reason, title, message.rich, message.plain};
}

conversion_failure no_develop_settings(const QString& file)
{
    const QString title = QCoreApplication::translate("MainWindow", "Not a DNG preset");
    const QString text = QCoreApplication::translate("MainWindow", "The DNG file %1 holds no develop settings.");
    const QString reason = QCoreApplication::translate("MainWindow", "it holds no develop settings");
    const composed message = compose(text, file_name(file));
    return {failure_kind::no_develop_settings, file, reason, title, message.rich, message.plain};
}

} // namespace conversion_messages
