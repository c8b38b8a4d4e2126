// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/tables/RowSelection.h"

#include <algorithm>

namespace marquell::toolkit {

std::vector<RowRange> rowRangesOf(const QItemSelection& selection) {
    std::vector<RowRange> ranges;
    ranges.reserve(static_cast<std::size_t>(selection.size()));
    for (const QItemSelectionRange& each : selection) {
        if (each.isValid()) ranges.push_back({each.top(), each.bottom()});
    }
    std::ranges::sort(ranges, {}, &RowRange::first);
    std::vector<RowRange> merged;
    for (const RowRange& each : ranges) {
        if (!merged.empty() && each.first <= merged.back().last + 1) {
            merged.back().last = std::max(merged.back().last, each.last);
        } else {
            merged.push_back(each);
        }
    }
    return merged;
}

QItemSelection selectionOf(const std::vector<RowRange>& rows, const QAbstractItemModel& model) {
    QItemSelection selection;
    const int lastRow = model.rowCount() - 1;
    const int lastColumn = model.columnCount() - 1;
    for (const RowRange& each : rows) {
        const int first = std::max(each.first, 0);
        const int last = std::min(each.last, lastRow);
        if (first > last || lastColumn < 0) continue;
        selection.append({model.index(first, 0), model.index(last, lastColumn)});
    }
    return selection;
}

}  // namespace marquell::toolkit
