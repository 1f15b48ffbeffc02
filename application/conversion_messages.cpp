// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/conversion_messages.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>

// Every text is translated in the main window's context, written out at each call
// so that lupdate finds it: the window's translations carry these texts.

namespace {

const QString name_open = QStringLiteral("<font color=\"white\"><b>");
const QString name_close = QStringLiteral("</b></font>");

QString wrapped_file_name(const QString& file)
{
    return conversion_messages::wrap_name(QFileInfo(file).fileName());
}

} // namespace

namespace conversion_messages {

// A reserved domain: the address must never reach a real party.
const QString support_address = QStringLiteral("support@quillmark.example");

QString wrap_name(const QString& name)
{
    return name_open + name + name_close;
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
    return {preset_question::white_balance, file, title, text.arg(wrap_name(preset_name)), labels};
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
    // Both placeholders in one step: a "%2" inside the preset's name stays as it is.
    return {preset_question::unsupported_parameters, file, title, text.arg(wrap_name(preset_name), list), labels};
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
    return {preset_question::camera_calibration, file, title, text.arg(wrap_name(preset_name)), labels};
}

conversion_failure unsupported_format(const QString& file)
{
    const QString title = QCoreApplication::translate("MainWindow", "Unsupported preset format");
    const QString text =
        QCoreApplication::translate("MainWindow", "Your preset %1 is in a format Stylewright can't convert.");
    return {failure_kind::unsupported_format, file, title, text.arg(wrapped_file_name(file))};
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
    // One step for both placeholders: a "%1" in the error text stays as it is.
    return {failure_kind::unreadable_preset, file, title, text.arg(wrapped_file_name(file), error)};
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
    return {failure_kind::conversion_failed, file, title, text.arg(wrapped_file_name(file))};
}

conversion_failure write_failed(const QString& file, const QString& target, const QString& reason)
{
    const QString title = QCoreApplication::translate("MainWindow", "Can't write style");
    const QString text = QCoreApplication::translate("MainWindow", "The style %1 could not be written.<br/>%2");
    return {failure_kind::write_failed, file, title, text.arg(wrap_name(target), reason)};
}

QString plain_text(const QString& rich_text)
{
    static const QRegularExpression line_breaks(QStringLiteral("(?:<br/?>)+"));
    static const QRegularExpression line_ends(QStringLiteral("[\\r\\n]+"));
    QString text = rich_text;
    text.remove(name_open).remove(name_close);
    text.replace(line_breaks, QStringLiteral(" "));
    text.replace(line_ends, QStringLiteral(" "));
    return text.trimmed();
}

} // namespace conversion_messages
