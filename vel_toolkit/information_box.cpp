// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/information_box.h"

#include "vel_toolkit/clickable_label.h"
#include "vel_toolkit/component_versions.h"
#include "vel_toolkit/dark_style.h"
#include "vel_toolkit/processor_features.h"
#include "vel_toolkit/stk_layout.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QUrl>

namespace vel {
namespace {

QString settings_file()
{
    return QSettings().fileName();
}

} // namespace

QVector<QPair<QString, QString>> information_box::rows()
{
    QVector<QPair<QString, QString>> result;
    const QVector<component_version> components = component_versions();
    // The first component is the program itself.
    result.append({tr("Program"), components.first().name});
    result.append({tr("Version"), components.first().version});
    for (int i = 1; i < components.size(); ++i)
        result.append({components[i].name, components[i].version});
    result.append({tr("Operating system"), operating_system_description()});
    result.append({tr("Processor"), processor_name()});
    const QStringList features = processor_features();
    result.append({tr("Processor features"),
                   features.isEmpty() ? tr("none detected") : features.join(QLatin1Char(' '))});
    result.append({tr("Settings file"), settings_file()});
    return result;
}

QString information_box::report_text()
{
    QString text;
    for (const auto& [label, value] : rows())
        text += label + QStringLiteral(": ") + value + QLatin1Char('\n');
    return text;
}

information_box::information_box(QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Application Information"));
    setStyleSheet(dark_style::dialog_sheet());

    auto* grid = new stk::qt::layout(this, {20, 16, 20, 16}, {16, 6});
    const QVector<QPair<QString, QString>> shown = rows();
    int row = 0;
    for (const auto& [label, value] : shown) {
        auto* name = grid->cell(row, 0, new QLabel(label, this), 1, 1, Qt::AlignTop | Qt::AlignLeft);
        name->setStyleSheet(QStringLiteral("color:white;"));
        QLabel* field = nullptr;
        if (row == shown.size() - 1) {
            // The settings file leads to its folder: the usual first step of support.
            auto* link = new clickable_label(value, this);
            link->setToolTip(tr("Click to show the folder of the settings file."));
            link->setStyleSheet(QStringLiteral("color:rgb(232,164,60);"));
            connect(link, &clickable_label::clicked, this, &information_box::reveal_settings_folder);
            field = link;
        } else {
            field = new QLabel(value, this);
            field->setTextInteractionFlags(Qt::TextSelectableByMouse);
        }
        grid->cell(row, 1, field);
        ++row;
    }

    auto* buttons = grid->cell(row, 0, new QDialogButtonBox(this), 1, 2);
    QPushButton* copy = buttons->addButton(tr("Copy to Clipboard"), QDialogButtonBox::ActionRole);
    connect(copy, &QPushButton::clicked, this, [] { QApplication::clipboard()->setText(report_text()); });
    buttons->addButton(tr("Close"), QDialogButtonBox::AcceptRole)->setDefault(true);
    for (QAbstractButton* button : buttons->buttons())
        button->setStyleSheet(dark_style::text_button_sheet());
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    grid->setRowMinimumHeight(row, 40);

    setFixedSize(sizeHint());
}

void information_box::reveal_settings_folder() const
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(settings_file()).absolutePath()));
}

void information_box::show_modal(QWidget* parent)
{
    information_box box(parent);
    box.exec();
}

} // namespace vel
