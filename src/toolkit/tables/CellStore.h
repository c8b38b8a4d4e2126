// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "toolkit/tables/CellTable.h"

namespace marquell::toolkit {

/// The cells of a table that are in view or near it, made when they are first asked for. Rows and
/// columns count as in the table's source, wherever a column may have been moved to.
class CellStore {
public:
    using CellPtr = std::shared_ptr<TableCellView>;
    /// Told the place of a cell that shows something else than before.
    using ChangeFunc = std::function<void(int row, int column)>;

    /// Source and columns have to outlive the store.
    CellStore(CellTableSource& source, const std::vector<TableColumn>& columns, ChangeFunc changed);
    CellStore(const CellStore&) = delete;
    CellStore& operator=(const CellStore&) = delete;
    ~CellStore();

    /// Kept from now on.
    CellPtr cell(int row, int column);

    /// The kept cell, else a new one that nobody keeps: for what is read but not shown.
    CellPtr cellForReading(int row, int column) const;

    void clear();
    /// Lets go of the cells that are not near.
    void keepOnly(const std::function<bool(int row, int column)>& isNear);

    /// Makes the cells that have come into view, and tells the others there of a change of what is
    /// in view. The upper rows come last: of what cells ask for the newest is fetched first.
    void show(const RowRange& rows, const std::vector<int>& columns);

    /// Whether no cell in view waits for anything.
    bool isComplete() const;

private:
    CellPtr make(int row, int column) const;

    CellTableSource& source_;
    const std::vector<TableColumn>& columns_;
    const ChangeFunc changed_;
    std::map<std::pair<int, int>, CellPtr> cells_;  // by row and column
    RowRange rowsInView_ = {0, -1};
    std::vector<int> columnsInView_;
};

}  // namespace marquell::toolkit
