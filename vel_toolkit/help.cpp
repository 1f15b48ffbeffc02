// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/help.h"

#include "vel_toolkit/language.h"
#include "vel_toolkit/private_folder.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>
#include <QTextBrowser>
#include <QUrl>

namespace vel {

namespace {

constexpr QSize help_window_size(800, 600);

} // namespace

shortcut_key_names platform_shortcut_key_names()
{
#ifdef Q_OS_MACOS
    return shortcut_key_names::command_key;
#else
    return shortcut_key_names::control_key;
#endif
}

QString replace_shortcut_names(QString text, shortcut_key_names names)
{
    // The order matters: the escapes must outlive the first two replacements.
    if (names == shortcut_key_names::command_key) {
        text.replace(QLatin1String("Ctrl"), QLatin1String("Cmd"));
        text.replace(QLatin1String("Strg"), QLatin1String("Cmd"));
    }
    text.replace(QLatin1String("StXrg"), QLatin1String("Ctrl"));
    text.replace(QLatin1String("CtXrl"), QLatin1String("Ctrl"));
    return text;
}

void open_help(const QString& path_template, const url_opener& open_url)
{
    const QString code = get_language_suffix(language_setting_key);
    const QString resource_name = path_template.arg(code);

    QByteArray page;
    QFile resource(resource_name);
    if (resource.open(QIODevice::ReadOnly))
        page = resource.readAll();
    if (page.isEmpty()) {
        qWarning() << "Could not open help file for language" << code << "with template" << path_template
                   << "resulting in" << resource_name;
        return;
    }
    const QString text = replace_shortcut_names(QString::fromUtf8(page), platform_shortcut_key_names());

    // The browser cannot read compiled-in resources: it gets a copy, one per
    // language, replaced on every opening, in a folder only this user writes
    // in. QSaveFile renames a new file over the name, so a file already there
    // is replaced, never written through; a link it would follow to its
    // target is removed first.
    const QString program = QCoreApplication::applicationName().toLower().remove(QLatin1Char(' '));
    const QString folder = private_folder();
    const QString copy_name = folder + QStringLiteral("/%1_help_%2.html").arg(program, code);
    if (QFileInfo(copy_name).isSymLink())
        QFile::remove(copy_name);
    QSaveFile copy(copy_name);
    copy.setDirectWriteFallback(false);
    bool written = !folder.isEmpty() && QDir().mkpath(folder) && copy.open(QIODevice::WriteOnly);
    if (written) {
        QTextStream stream(&copy);
        stream.setCodec("UTF-8");
        stream << text;
        stream.flush();
        written = copy.commit();
    }
    if (!written) {
        // Help still shows, in the program's own window.
        qWarning() << "Could not write the help page to" << copy_name << ":" << copy.errorString();
        show_help_window(text);
        return;
    }
    if (!open_url(QUrl::fromLocalFile(copy_name)))
        show_help_window(text);
}

void show_help_window(const QString& html)
{
    // Without a program to open web pages (no xdg-open, say) the page is
    // shown here; links to the web still go to whatever the desktop offers.
    auto* browser = new QTextBrowser();
    browser->setAttribute(Qt::WA_DeleteOnClose);
    browser->setAttribute(Qt::WA_QuitOnClose, false);
    browser->setOpenExternalLinks(true);
    browser->setWindowTitle(QCoreApplication::translate("vel::help", "Help"));
    browser->setStyleSheet(QStringLiteral("QTextBrowser{background-color:rgb(47,47,47);color:rgb(230,230,230);}"));
    browser->setHtml(html);
    browser->resize(help_window_size);
    browser->show();
}

} // namespace vel
