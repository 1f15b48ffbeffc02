// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/run_account.h"

#include "vel_toolkit/dark_button.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// Rows enough to see a small run at a glance; a longer one scrolls.
constexpr int list_height = 170;

// What a person looks for first comes first: the file, which the name mostly
// repeats, is last; each column's full text is its tooltip.
enum column { preset_column, outcome_column, losses_column, file_column, column_count };

// No column but the last takes more of the list's width than this share, so
// the outcome is in view without scrolling sideways.
constexpr int widest_column_percent = 40;

// Dark like the log window; the text keeps well above 4.5:1 on its ground.
QString list_sheet()
{
    return QStringLiteral("QTreeWidget{background-color:rgb(37,37,37);color:rgb(198,213,210);"
                          "border:1px solid rgb(20,20,20);alternate-background-color:rgb(42,42,42);}"
                          "QHeaderView::section{background-color:rgb(58,58,58);color:rgb(198,213,210);"
                          "border:0px;border-right:1px solid rgb(37,37,37);padding:2px 4px;}"
                          "QTreeWidget::item:selected{background-color:rgb(74,110,150);color:white;}");
}

// The outcome with its paths as the system writes them (C:\\Users\\...); a
// pack's entry keeps the archive's own '/'.
preset_outcome with_native_paths(preset_outcome outcome)
{
    outcome.file = QDir::toNativeSeparators(outcome.file);
    if (!outcome.in_pack)
        outcome.target = QDir::toNativeSeparators(outcome.target);
    return outcome;
}

QString outcome_cell(const preset_outcome& outcome)
{
    switch (outcome.kind) {
    case outcome_kind::converted:
        return (outcome.in_pack        ? QCoreApplication::translate("run_account", "in the pack as %1")
                : outcome.written_over ? QCoreApplication::translate("run_account", "written as %1 over an earlier file")
                                       : QCoreApplication::translate("run_account", "written as %1"))
            .arg(QDir::toNativeSeparators(QFileInfo(outcome.target).fileName()));
    case outcome_kind::skipped:
    case outcome_kind::failed:
    case outcome_kind::lost:
    case outcome_kind::not_saved:
        return conversion_messages::outcome_line(outcome);
    }
    return QString();
}

// Outcomes that left the person without a style they asked for.
bool went_wrong(const preset_outcome& outcome)
{
    return outcome.kind == outcome_kind::failed || outcome.kind == outcome_kind::lost ||
           outcome.kind == outcome_kind::not_saved;
}

const QColor failure_colour(255, 150, 130);
// A style that was written but carries nothing: a warning, not a failure.
const QColor empty_style_colour(230, 200, 110);

// Where a row keeps its preset's place in the run, so that the list can be
// sorted by any column and back.
constexpr int run_order_role = Qt::UserRole;

// Sorts by run order where a column's texts are equal, and by run order
// alone for the column shown unsorted.
class account_item : public QTreeWidgetItem {
public:
    using QTreeWidgetItem::QTreeWidgetItem;
    bool operator<(const QTreeWidgetItem& other) const override
    {
        const int column = treeWidget() ? treeWidget()->sortColumn() : 0;
        const int by_text = text(column).localeAwareCompare(other.text(column));
        if (by_text != 0)
            return by_text < 0;
        return data(0, run_order_role).toInt() < other.data(0, run_order_role).toInt();
    }
};

} // namespace

run_account::run_account(QWidget* parent) : QWidget(parent)
{
    auto* column_layout = new QVBoxLayout(this);
    column_layout->setContentsMargins(0, 10, 0, 0);
    column_layout->setSpacing(5);

    auto* top = new QHBoxLayout;
    top->setSpacing(6);
    summary_label_ = new QLabel(this);
    summary_label_->setObjectName(QStringLiteral("account_summary"));
    summary_label_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    top->addWidget(summary_label_, 1);

    const auto add_button = [&](const QString& text, const QString& tip, void (run_account::*slot)()) {
        auto* button = new vel::dark_button(QString(), this);
        button->setText(text);
        button->setToolTip(tip);
        connect(button, &QPushButton::clicked, this, slot);
        top->addWidget(button);
        return button;
    };
    open_button_ = add_button(tr("Open Folder"), tr("Show the folder the styles were written to"),
                              &run_account::open_folder);
    copy_button_ = add_button(tr("Copy"), tr("Copy this account as plain text"), &run_account::copy_text);
    fold_button_ = add_button(tr("Hide Details"), tr("Show or hide the list of presets"), &run_account::toggle_list);
    column_layout->addLayout(top);

    pack_label_ = new QLabel(this);
    pack_label_->setObjectName(QStringLiteral("account_pack"));
    pack_label_->setWordWrap(true);
    pack_label_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    pack_label_->hide();
    column_layout->addWidget(pack_label_);

    list_ = new QTreeWidget(this);
    list_->setObjectName(QStringLiteral("account_list"));
    list_->setColumnCount(column_count);
    list_->setHeaderLabels({tr("Preset"), tr("Outcome"), tr("Left out"), tr("File")});
    list_->setRootIsDecorated(false);
    list_->setAlternatingRowColors(true);
    list_->setUniformRowHeights(true);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list_->setFixedHeight(list_height);
    list_->setStyleSheet(list_sheet());
    closing_label_ = new QLabel(this);
    closing_label_->setObjectName(QStringLiteral("account_closing"));
    closing_label_->setWordWrap(true);
    closing_label_->hide();
    list_->header()->setStretchLastSection(true);
    // Sorted by a click on a column's header; until then in run order.
    list_->header()->setSortIndicator(-1, Qt::AscendingOrder);
    list_->setSortingEnabled(true);
    list_->header()->setSortIndicatorShown(true);
    column_layout->addWidget(list_);
    column_layout->addWidget(closing_label_);

    hide();
}

void run_account::begin()
{
    outcomes_.clear();
    list_->clear();
    folder_.clear();
    pack_label_->clear();
    pack_label_->hide();
    closing_label_->clear();
    closing_label_->hide();
    // The last run's counts go at once; this run's fill in as it goes.
    summary_label_->clear();
}

void run_account::add(const preset_outcome& outcome)
{
    outcomes_.append(outcome);
    auto* item = new account_item(list_);
    item->setData(0, run_order_role, outcomes_.size() - 1);
    fill(*item, outcome);
    show_counts_so_far();
}

void run_account::update(const preset_outcome& outcome)
{
    for (int i = 0; i < outcomes_.size(); ++i) {
        if (outcomes_.at(i).index != outcome.index)
            continue;
        outcomes_[i] = outcome;
        for (int row = 0; row < list_->topLevelItemCount(); ++row) {
            QTreeWidgetItem* item = list_->topLevelItem(row);
            if (item->data(0, run_order_role).toInt() == i)
                fill(*item, outcome);
        }
    }
    show_counts_so_far();
}

void run_account::fill(QTreeWidgetItem& item, const preset_outcome& outcome)
{
    const QString name = outcome.preset_name.isEmpty() ? QFileInfo(outcome.file).completeBaseName() : outcome.preset_name;
    item.setText(preset_column, name);
    item.setToolTip(preset_column, name);
    item.setText(file_column, QFileInfo(outcome.file).fileName());
    item.setToolTip(file_column, QDir::toNativeSeparators(outcome.file));
    item.setText(outcome_column, outcome_cell(outcome));
    item.setToolTip(outcome_column, conversion_messages::outcome_line(with_native_paths(outcome)));
    const bool has_style = outcome.kind == outcome_kind::converted || outcome.kind == outcome_kind::lost ||
                           outcome.kind == outcome_kind::not_saved;
    const QString lost = has_style ? conversion_messages::losses_text(outcome) : QString();
    item.setText(losses_column, lost);
    const QString details = has_style ? conversion_messages::losses_details(outcome) : QString();
    item.setToolTip(losses_column, details.isEmpty() ? lost : details);
    QFont font = item.font(losses_column);
    font.setItalic(outcome.empty_style);
    item.setFont(losses_column, font);
    item.setForeground(losses_column, outcome.empty_style ? QBrush(empty_style_colour) : QBrush());
    item.setForeground(outcome_column, went_wrong(outcome) ? QBrush(failure_colour) : QBrush());
}

void run_account::show_counts_so_far()
{
    summary_label_->setText(conversion_messages::summary_line(counts_of(outcomes_)));
}

void run_account::show_run(const outcome_counts& counts, const QString& folder)
{
    folder_ = folder;
    summary_label_->setText(conversion_messages::summary_line(counts));
    open_button_->setEnabled(!folder_.isEmpty() && QFileInfo(folder_).isDir());
    copy_button_->setEnabled(true);
    fold_button_->setEnabled(!outcomes_.isEmpty());
    fit_columns();
    set_folded(outcomes_.isEmpty());
    show();
    emit height_changed();
}

void run_account::fit_columns()
{
    const int widest = list_->viewport()->width() * widest_column_percent / 100;
    for (int c = 0; c < column_count - 1; ++c) {
        list_->resizeColumnToContents(c);
        list_->setColumnWidth(c, std::min(list_->columnWidth(c), widest));
    }
}

void run_account::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fit_columns();
}

void run_account::pack_written(const QString& path)
{
    folder_ = QFileInfo(path).absolutePath();
    open_button_->setEnabled(true);
    pack_label_->setText(tr("Style pack: %1").arg(QDir::toNativeSeparators(path)));
    pack_label_->show();
    emit height_changed();
}

void run_account::pack_not_written(const QString& path, const QString& reason)
{
    pack_label_->setText(path.isEmpty() ? tr("The style pack was not saved.")
                                        : tr("The style pack %1 could not be written: %2")
                                              .arg(QDir::toNativeSeparators(path), reason));
    pack_label_->show();
    emit height_changed();
}

void run_account::show_nothing_found(const other_files& others)
{
    begin();
    summary_label_->setText(others.isEmpty() ? tr("No presets found") : conversion_messages::nothing_found(others));
    open_button_->setEnabled(false);
    copy_button_->setEnabled(true);
    fold_button_->setEnabled(false);
    set_folded(true);
    show();
    emit height_changed();
}

QString run_account::summary() const
{
    return summary_label_->text();
}

void run_account::show_closing_line(const QString& text)
{
    closing_label_->setText(text);
    closing_label_->show();
    emit height_changed();
}

QString run_account::closing_line() const
{
    return closing_label_->isHidden() ? QString() : closing_label_->text();
}

QString run_account::pack_line() const
{
    return pack_label_->isHidden() ? QString() : pack_label_->text();
}

QString run_account::plain_text() const
{
    QStringList lines{summary()};
    if (!pack_line().isEmpty())
        lines << pack_line();
    for (const preset_outcome& outcome : outcomes_) {
        const QString name = outcome.preset_name.isEmpty() ? QString() : outcome.preset_name + QStringLiteral(" – ");
        const preset_outcome shown = with_native_paths(outcome);
        lines << name + shown.file + QStringLiteral(": ") + conversion_messages::outcome_line(shown);
        // What the style leaves out, tool by tool with its settings.
        const QString details = conversion_messages::losses_details(outcome);
        if (outcome.kind == outcome_kind::converted && !details.isEmpty())
            lines << QStringLiteral("    ") + QString(details).replace(QLatin1Char('\n'), QStringLiteral("\n    "));
    }
    if (!closing_line().isEmpty())
        lines << closing_line();
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

void run_account::open_folder()
{
    if (!folder_.isEmpty())
        QDesktopServices::openUrl(QUrl::fromLocalFile(folder_));
}

void run_account::copy_text()
{
    QApplication::clipboard()->setText(plain_text());
}

void run_account::toggle_list()
{
    set_folded(!list_->isHidden());
    emit height_changed();
}

void run_account::set_folded(bool folded)
{
    list_->setHidden(folded);
    fold_button_->setText(folded ? tr("Show Details") : tr("Hide Details"));
}
