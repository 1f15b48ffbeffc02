// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QString>
#include <QVector>

namespace vel {

// A library the program is built on, for the about box.
struct library_info {
    QString name;
    QString version;
    QString licence;
};

// The libraries every build of the program contains: Qt, libzip, zlib and
// the FreeSans fonts.
QVector<library_info> default_libraries();

// The about box: program, version, maker and the libraries used with their
// licences. Opens centred on its parent.
class about_dialog : public QDialog {
    Q_OBJECT

public:
    explicit about_dialog(QWidget* parent = nullptr, const QVector<library_info>& libraries = default_libraries());
};

} // namespace vel
