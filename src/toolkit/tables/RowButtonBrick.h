// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/look/FocusRing.h"
#include "toolkit/tables/TableCellView.h"

namespace marquell::toolkit {

class CellTable;

/// The button of a row. The tabulator doesn't stop at it: it leaves the table, whose arrow keys
/// lead from button to button. The row whose button takes the keyboard is the one selected. The
/// mouse only presses it: what is selected stays so, and the table takes the keyboard.
class RowButtonBrick : public PushButtonBrick, public FocusRingShaped {
public:
    /// `viewport` is the table's.
    RowButtonBrick(CellTable& table, QWidget* viewport);

    /// The room at the end of a row that a button needs, in px.
    static int roomInRow();

    int row() const { return row_; }
    int column() const { return column_; }

    /// Shows the button of a cell that fills `cellRect`.
    void show(int row, int column, const RowButton& button, const QRect& cellRect);
    /// Whether the row is selected.
    void setOnSelection(bool onSelection);

    QRectF focusRingRect() const override { return rect(); }
    double focusRingRadius() const override;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    CellTable& table_;
    int row_ = -1;
    int column_ = 0;
    std::optional<RowButton> shown_;
};

}  // namespace marquell::toolkit
