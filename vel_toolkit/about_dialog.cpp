// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/about_dialog.h"

#include "vel_toolkit/component_versions.h"
#include "vel_toolkit/dark_style.h"
#include "vel_toolkit/stk_layout.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

namespace vel {
namespace {

// GNU FreeFont release the embedded FreeSans files come from.
const QString freefont_release = QStringLiteral("20120503");

// The program's icon in the box, in logical pixels.
constexpr int icon_size = 64;

QString version_of(const QString& component)
{
    for (const component_version& entry : component_versions()) {
        if (entry.name == component)
            return entry.version;
    }
    return QString();
}

} // namespace

QVector<library_info> default_libraries()
{
    return {
        {QStringLiteral("Qt"), version_of(QStringLiteral("Qt")),
         QStringLiteral("GNU Lesser General Public License v3")},
        {QStringLiteral("libzip"), version_of(QStringLiteral("libzip")), QStringLiteral("BSD 3-Clause License")},
        {QStringLiteral("zlib"), version_of(QStringLiteral("zlib")), QStringLiteral("zlib License")},
        {about_dialog::tr("FreeSans fonts"), QStringLiteral("GNU FreeFont %1").arg(freefont_release),
         about_dialog::tr("GNU General Public License v3 with font exception")},
    };
}

about_dialog::about_dialog(QWidget* parent, const QVector<library_info>& libraries)
    : QDialog(parent)
{
    const QString program = QCoreApplication::applicationName();
    const QString domain = QCoreApplication::organizationDomain();
    setWindowTitle(tr("About %1").arg(program));
    setStyleSheet(dark_style::dialog_sheet());

    auto* grid = new stk::qt::layout(this, {20, 20, 20, 16}, {16, 8});

    auto* icon = grid->cell(0, 0, new QLabel(this), 2, 1, Qt::AlignTop);
    icon->setPixmap(QApplication::windowIcon().pixmap(QSize(icon_size, icon_size)));

    auto* title = grid->cell(0, 1, new QLabel(this));
    title->setTextFormat(Qt::RichText);
    title->setText(QStringLiteral("<span style=\"font-size:18pt;font-weight:bold;color:white\">%1</span><br/>%2")
                       .arg(program.toHtmlEscaped(),
                            tr("Version %1").arg(QCoreApplication::applicationVersion()).toHtmlEscaped()));

    auto* maker = grid->cell(1, 1, new QLabel(this));
    maker->setTextFormat(Qt::RichText);
    maker->setOpenExternalLinks(true);
    const QString link_style = QStringLiteral("color:rgb(232,164,60);text-decoration:none");
    maker->setText(
        QStringLiteral("%1<br/>%2: <a style=\"%5\" href=\"https://www.%3\">www.%3</a><br/>"
                       "%4: <a style=\"%5\" href=\"mailto:support@%3\">support@%3</a><br/><br/>%6")
            .arg(QCoreApplication::organizationName().toHtmlEscaped(), tr("Website"), domain, tr("Support"),
                 link_style,
                 tr("Licensed under the GNU General Public License, version 3 or later.").toHtmlEscaped()));

    QString library_table =
        QStringLiteral("<b>%1</b><table cellspacing=\"0\" cellpadding=\"2\">").arg(tr("Libraries used"));
    for (const library_info& library : libraries) {
        library_table += QStringLiteral("<tr><td style=\"padding-right:12px;color:white\">%1</td>"
                                        "<td style=\"padding-right:12px\">%2</td><td>%3</td></tr>")
                             .arg(library.name.toHtmlEscaped(), library.version.toHtmlEscaped(),
                                  library.licence.toHtmlEscaped());
    }
    library_table += QStringLiteral("</table>");
    auto* list = grid->cell(2, 0, new QLabel(library_table, this), 1, 2);
    list->setTextFormat(Qt::RichText);
    list->setContentsMargins(0, 12, 0, 4);

    // The text column takes what the library table needs beyond the icon.
    grid->setColumnStretch(1, 1);

    auto* buttons = grid->cell(3, 0, new QDialogButtonBox(this), 1, 2);
    buttons->addButton(tr("Close"), QDialogButtonBox::AcceptRole)->setDefault(true);
    for (QAbstractButton* button : buttons->buttons())
        button->setStyleSheet(dark_style::text_button_sheet());
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    setFixedSize(sizeHint());
}

} // namespace vel
