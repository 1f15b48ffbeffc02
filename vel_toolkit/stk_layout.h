// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGridLayout>
#include <QWidget>

namespace stk::qt {

struct margins {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

struct spacings {
    int horizontal = 0;
    int vertical = 0;
};

// A grid of cells whose margins and spacings are given in one place, so a
// window's layout reads as a table of what sits where.
class layout : public QGridLayout {
    Q_OBJECT

public:
    explicit layout(QWidget* parent = nullptr, margins outer = {}, spacings between = {});

    // Places widget in the cell (row, column), spanning the given rows and
    // columns, and returns it so it can be set up on the same line.
    template<class widget_type>
    widget_type* cell(int row, int column, widget_type* widget, int row_span = 1, int column_span = 1,
                      Qt::Alignment alignment = Qt::Alignment())
    {
        addWidget(widget, row, column, row_span, column_span, alignment);
        return widget;
    }

    // Places an inner layout in the cell (row, column).
    template<class layout_type>
    layout_type* cell_layout(int row, int column, layout_type* inner, int row_span = 1, int column_span = 1)
    {
        addLayout(inner, row, column, row_span, column_span);
        return inner;
    }
};

} // namespace stk::qt
