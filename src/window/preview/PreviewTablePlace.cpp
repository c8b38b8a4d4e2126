// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/PreviewTablePlace.h"

#include <QScrollBar>
#include <algorithm>
#include <bitset>
#include <cstring>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "pipeline/NodePrefetch.h"

namespace marquell::window {
namespace {

using toolkit::RowRange;

// To look for more would take too long.
constexpr int mostSelectedRows = 1000;

/// Answers for a million paths in a few milliseconds whether they are among some few.
class PathSet {
public:
    void add(std::string_view path) {
        paths_.insert(path);
        filter_.set(hash(path));
    }
    bool contains(std::string_view path) const {
        return filter_.test(hash(path)) && paths_.contains(path);
    }

private:
    static constexpr std::size_t filterBits = 16;

    /// By length and last bytes: what tells the paths of a folder apart.
    static std::size_t hash(std::string_view path) {
        std::uint64_t end = path.size();
        const std::size_t length = std::min(path.size(), sizeof end);
        std::memcpy(&end, path.data() + path.size() - length, length);
        return ((end ^ path.size()) * 0x9e3779b97f4a7c15U) >> (64 - filterBits);
    }

    std::unordered_set<std::string_view> paths_;
    std::bitset<1 << filterBits> filter_;
};

int countOf(const std::vector<RowRange>& ranges) {
    int count = 0;
    for (const RowRange& range : ranges) count += range.last - range.first + 1;
    return count;
}

void append(std::vector<RowRange>& ranges, int row) {
    if (!ranges.empty() && ranges.back().last + 1 == row) {
        ranges.back().last = row;
    } else {
        ranges.push_back({row, row});
    }
}

}  // namespace

PreviewTablePlace::PreviewTablePlace(const toolkit::CellTable& table,
                                     const PreviewTableDataSource& source)
    : list_(source.nodes), scrolled_(table.verticalScrollBar()->value()) {
    const auto ranges = table.selectedRows();
    if (countOf(ranges) <= mostSelectedRows) {
        for (const RowRange& range : ranges) {
            for (int row = range.first; row <= range.last; ++row) {
                if (auto node = source.node(row)) selected_.push_back(std::move(node));
            }
        }
    }
    // At the very top new rows above the first one are to be seen.
    if (scrolled_ > 0) {
        const int row = table.rowAt(0);
        if (auto node = source.node(row)) edge_ = {node, table.rowViewportPosition(row)};
    }
}

PreviewTablePlace::Found PreviewTablePlace::findIn(const pipeline::FlatFileList& list) const {
    PathSet selected;
    for (const auto& node : selected_) selected.add(node->absolutePath());
    const std::string_view edge = edge_ ? edge_->node->absolutePath() : std::string_view();
    Found found;
    for (std::size_t i = 0; i < list.files.size(); ++i) {
        pipeline::prefetchAhead(list.files, i);
        const std::string_view path = list.files[i]->absolutePath();
        if (selected.contains(path)) append(found.selected, static_cast<int>(i));
        if (edge_ && path == edge) found.edge = static_cast<int>(i);
    }
    return found;
}

void PreviewTablePlace::restore(toolkit::CellTable& table,
                                const PreviewTableDataSource& source) const {
    const bool isOther = source.nodes != nullptr && source.nodes != list_;
    Found found;
    if (isOther && (edge_ || !selected_.empty())) found = findIn(*source.nodes);
    // Rows of the same numbers would be other files.
    if (isOther) table.selectRows(found.selected);
    QScrollBar& bar = *table.verticalScrollBar();
    bar.setValue(found.edge ? bar.value() + table.rowViewportPosition(*found.edge) - edge_->position
                            : scrolled_);
}

}  // namespace marquell::window
