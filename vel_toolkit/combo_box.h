// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QComboBox>

namespace vel {

// A non-editable combo box in the dark look.
class combo_box : public QComboBox {
    Q_OBJECT

public:
    explicit combo_box(QWidget* parent = nullptr);

    // Selects the item whose data equals value exactly; false when none does.
    bool select_data(const QString& value);
};

} // namespace vel
