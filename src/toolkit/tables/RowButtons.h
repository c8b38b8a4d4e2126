// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <vector>

#include "toolkit/tables/CellStore.h"
#include "toolkit/tables/RowButtonBrick.h"

namespace marquell::toolkit {

/// The buttons of the rows in view, which are views of their own: they are moved from row to row
/// rather than made anew.
class RowButtons {
public:
    /// Both have to outlive it.
    RowButtons(CellTable& table, CellStore& cells);

    /// Has the rows in view show their buttons, and no others. The one that takes the keyboard
    /// stays wherever its row is; without that row, the last row's takes it.
    void place();

    void showSelection();

    /// Gives the keyboard to the row's button; false if the row has none in view.
    bool setFocus(int row);

private:
    /// For each row that shall show a button, the column that it is in.
    std::map<int, int> wanted() const;
    std::map<int, RowButtonBrick*>::const_iterator focused() const;
    void keepFocusInTable();
    void retire(const std::map<int, int>& columns);
    void stow(RowButtonBrick* brick);
    RowButtonBrick* spareOrNew();
    void press(const RowButtonBrick& brick);

    CellTable& table_;
    CellStore& cells_;
    std::map<int, RowButtonBrick*> shown_;  // by row; the viewport owns them
    std::vector<RowButtonBrick*> spare_;
};

}  // namespace marquell::toolkit
