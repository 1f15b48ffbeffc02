// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QPair>
#include <QString>
#include <QVector>

namespace vel {

// What a support request needs to know about the program's surroundings:
// program and version, Qt, libzip and zlib, operating system, processor and
// its features, and where the settings are stored.
class information_box : public QDialog {
    Q_OBJECT

public:
    explicit information_box(QWidget* parent = nullptr);

    // The shown rows as (label, value) pairs, in order.
    static QVector<QPair<QString, QString>> rows();

    // The rows as plain text, one "label: value" per line, as copied to the clipboard.
    static QString report_text();

    // Opens the box modally over parent.
    static void show_modal(QWidget* parent);

private:
    void reveal_settings_folder() const;
};

} // namespace vel
