// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/language.h"

#include "vel_toolkit/message_box.h"

#include <QCoreApplication>
#include <QHash>
#include <QLocale>
#include <QSettings>
#include <QVector>

namespace vel {
namespace {

// Codes of the languages translation files and help pages may exist for.
// Korean has a code but no translation, so it is not offered.
const QHash<QLocale::Language, QString>& language_codes()
{
    static const QHash<QLocale::Language, QString> codes = {
        {QLocale::English, QStringLiteral("en")},
        {QLocale::German, QStringLiteral("de")},
        {QLocale::Korean, QStringLiteral("kr")},
    };
    return codes;
}

// The languages the program is translated into.
const QVector<QLocale::Language> supported_languages = {QLocale::German, QLocale::English};

} // namespace

QString get_language_suffix(const QString& key)
{
    const QString stored = QSettings().value(key).toString();
    if (!stored.isEmpty())
        return stored;

    const QLocale::Language system_language = QLocale::system().language();
    const auto code = language_codes().constFind(system_language);
    if (code != language_codes().constEnd() && supported_languages.contains(system_language))
        return *code;
    return language_codes().value(QLocale::English);
}

void ask_for_application_restart_if_language_changed(QWidget* parent, const QString& previous_suffix)
{
    if (get_language_suffix(language_setting_key) == previous_suffix)
        return;

    const QMessageBox::StandardButton answer = message_box::question(
        parent, QCoreApplication::translate("vel::language", "Application language changed"),
        QCoreApplication::translate("vel::language", "The application language has been changed.\n"
                                                     "The application needs to be restarted to use the new language."),
        QCoreApplication::translate("vel::language", "Continue working"),
        QCoreApplication::translate("vel::language", "Quit now"), QMessageBox::Yes);
    // Only an explicit "Quit now" ends the program; closing the box keeps working.
    if (answer == QMessageBox::No)
        QCoreApplication::quit();
}

} // namespace vel
