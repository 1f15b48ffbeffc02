// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>

namespace vel {

// A one-line text field in the dark look.
class line_edit : public QLineEdit {
    Q_OBJECT

public:
    explicit line_edit(QWidget* parent = nullptr);
};

} // namespace vel
