// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/other_files.h"
#include "conversion/preset_outcome.h"

#include <QString>
#include <QVector>
#include <QWidget>

class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// The account of the last run, shown quietly in the main window below the
// output folder once a run is over: one line with the counts (and the style
// pack's fate), buttons that open the folder the styles went to and copy the
// account as plain text, and one row per preset in run order with its
// outcome and what its style leaves out. The list can be folded away. The
// next run replaces the account; nothing of it is stored.
class run_account : public QWidget {
    Q_OBJECT

public:
    explicit run_account(QWidget* parent = nullptr);

    // Empties the account for a new run; it stays hidden until show_run().
    void begin();
    // A preset's row, added when its turn is over; the counts line follows.
    void add(const preset_outcome& outcome);
    // A row whose outcome changed later (lost to a later style, not saved).
    void update(const preset_outcome& outcome);
    // Shows the account of a run whose styles went into folder.
    void show_run(const outcome_counts& counts, const QString& folder);
    // The style pack's fate, after show_run().
    void pack_written(const QString& path);
    void pack_not_written(const QString& path, const QString& reason);
    // A line below the list, the account's last: what to do next.
    void show_closing_line(const QString& text);
    // A drop or pick that held no preset at all.
    // others: files of known kinds that are no presets, found instead.
    void show_nothing_found(const other_files& others = {});

    QString summary() const;
    QString pack_line() const;
    QString closing_line() const;
    QString plain_text() const;
    const QVector<preset_outcome>& outcomes() const { return outcomes_; }

signals:
    // The account's height changed (shown, folded, unfolded).
    void height_changed();

private slots:
    void open_folder();
    void copy_text();
    void toggle_list();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void set_folded(bool folded);
    void fill(QTreeWidgetItem& item, const preset_outcome& outcome);
    void show_counts_so_far();
    // Each column as wide as its texts, none but the last wider than its
    // share of the list, whose width is known only once it is laid out.
    void fit_columns();

    QLabel* summary_label_ = nullptr;
    QLabel* pack_label_ = nullptr;
    QLabel* closing_label_ = nullptr;
    QPushButton* open_button_ = nullptr;
    QPushButton* copy_button_ = nullptr;
    QPushButton* fold_button_ = nullptr;
    QTreeWidget* list_ = nullptr;
    QVector<preset_outcome> outcomes_;
    QString folder_;
};
