// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/tables/CellStore.h"

#include <algorithm>

namespace marquell::toolkit {

CellStore::CellStore(CellTableSource& source, const std::vector<TableColumn>& columns,
                     ChangeFunc changed)
    : source_(source), columns_(columns), changed_(std::move(changed)) {}

CellStore::~CellStore() { clear(); }

CellStore::CellPtr CellStore::make(int row, int column) const {
    return source_.viewFor(columns_.at(static_cast<std::size_t>(column)), row);
}

CellStore::CellPtr CellStore::cell(int row, int column) {
    const auto found = cells_.find({row, column});
    if (found != cells_.end()) return found->second;
    CellPtr made = make(row, column);
    made->onChange = [this, row, column] { changed_(row, column); };
    cells_.emplace(std::pair(row, column), made);
    return made;
}

CellStore::CellPtr CellStore::cellForReading(int row, int column) const {
    const auto found = cells_.find({row, column});
    return found != cells_.end() ? found->second : make(row, column);
}

void CellStore::clear() {
    keepOnly([](int, int) { return false; });
}

void CellStore::keepOnly(const std::function<bool(int row, int column)>& isNear) {
    std::erase_if(cells_, [&](const auto& entry) {
        const auto [row, column] = entry.first;
        if (isNear(row, column)) return false;
        entry.second->onChange = {};  // others may hold the cell still
        return true;
    });
}

void CellStore::show(const RowRange& rows, const std::vector<int>& columns) {
    const bool isSame = rows.first == rowsInView_.first && rows.last == rowsInView_.last &&
                        columns == columnsInView_;
    rowsInView_ = rows;
    columnsInView_ = columns;
    for (int row = rows.last; row >= rows.first; --row) {
        for (const int column : columns) {
            const auto found = cells_.find({row, column});
            if (found == cells_.end()) {
                cell(row, column);
            } else if (!isSame) {
                found->second->viewMoved();
            }
        }
    }
}

bool CellStore::isComplete() const {
    return std::ranges::all_of(cells_, [this](const auto& entry) {
        const auto [row, column] = entry.first;
        const bool isInView = row >= rowsInView_.first && row <= rowsInView_.last &&
                              std::ranges::count(columnsInView_, column) > 0;
        return !isInView || entry.second->isComplete();
    });
}

}  // namespace marquell::toolkit
