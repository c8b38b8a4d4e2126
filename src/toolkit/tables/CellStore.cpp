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

CellStore::Entry& CellStore::entry(int row, int column) {
    const auto found = cells_.find({row, column});
    if (found != cells_.end()) return found->second;
    const CellPtr made = make(row, column);
    made->onChange = [this, row, column] { changed_(row, column); };
    return cells_.emplace(std::pair(row, column), Entry{made, true}).first->second;
}

CellStore::CellPtr CellStore::cell(int row, int column) { return entry(row, column).cell; }

CellStore::CellPtr CellStore::cellForReading(int row, int column) const {
    const auto found = cells_.find({row, column});
    return found != cells_.end() ? found->second.cell : make(row, column);
}

void CellStore::clear() {
    keepOnly([](int, int) { return false; });
}

void CellStore::keepOnly(const std::function<bool(int row, int column)>& isNear) {
    std::erase_if(cells_, [&](const auto& entry) {
        const auto [row, column] = entry.first;
        if (isNear(row, column)) return false;
        entry.second.cell->onChange = {};  // others may hold the cell still
        return true;
    });
}

void CellStore::show(const RowRange& rows, const std::vector<int>& columns) {
    for (auto& [place, each] : cells_) {
        const auto [row, column] = place;
        if (row < rows.first || row > rows.last || !std::ranges::count(columns, column)) {
            each.isInView = false;
        }
    }
    for (int row = rows.last; row >= rows.first; --row) {
        for (const int column : columns) {
            Entry& each = entry(row, column);
            if (!std::exchange(each.isInView, true)) each.cell->returnedToView();
        }
    }
}

bool CellStore::isComplete() const {
    return std::ranges::all_of(cells_, [](const auto& each) {
        return !each.second.isInView || each.second.cell->isComplete();
    });
}

}  // namespace marquell::toolkit
