// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/combo_box.h"

#include "vel_toolkit/dark_style.h"

#include <QListView>

namespace vel {

combo_box::combo_box(QWidget* parent)
    : QComboBox(parent)
{
    setEditable(false);
    // A plain list view takes the style sheet; the platform's popup would stay light.
    setView(new QListView(this));
    setStyleSheet(dark_style::combo_box_sheet());
    setCursor(Qt::PointingHandCursor);
}

bool combo_box::select_data(const QString& value)
{
    const int index = findData(value, Qt::UserRole, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0)
        return false;
    setCurrentIndex(index);
    return true;
}

} // namespace vel
