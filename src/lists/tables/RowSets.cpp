// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/tables/RowSets.h"

namespace marquell::lists {

using toolkit::RowRange;

IndexSet indexSetOf(const std::vector<RowRange>& rows) {
    IndexSet set;
    for (const RowRange& range : rows) {
        for (int row = range.first; row <= range.last; ++row) {
            set.insert(set.end(), static_cast<std::size_t>(row));
        }
    }
    return set;
}

std::vector<RowRange> rowsWithout(const std::vector<RowRange>& rows, int gone) {
    std::vector<RowRange> left;
    for (RowRange range : rows) {
        if (gone < range.first) --range.first;
        if (gone <= range.last) --range.last;
        if (range.first <= range.last) left.push_back(range);
    }
    return left;
}

}  // namespace marquell::lists
