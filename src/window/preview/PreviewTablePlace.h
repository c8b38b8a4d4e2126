// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "pipeline/Node.h"
#include "toolkit/tables/CellTable.h"
#include "window/preview/PreviewTableDataSource.h"

namespace marquell::window {

/// What of a list is selected and in view, to be found again in the list that takes its place: by
/// the paths of the nodes, since another scan makes other nodes.
class PreviewTablePlace {
public:
    PreviewTablePlace(const toolkit::CellTable& table, const PreviewTableDataSource& source);

    /// Selects the rows that are still there and scrolls so that the first row that was in view is
    /// where it was. What isn't looked for by path, or not found, stays by the number of the row.
    void restore(toolkit::CellTable& table, const PreviewTableDataSource& source) const;

private:
    struct Found {
        std::vector<toolkit::RowRange> selected;
        std::optional<int> edge;
    };
    Found findIn(const pipeline::FlatFileList& list) const;

    /// A row at the upper edge of the view.
    struct Edge {
        std::shared_ptr<pipeline::Node> node;
        int position;  ///< of the row in the view, in px; 0 or less
    };

    std::shared_ptr<const pipeline::FlatFileList> list_;
    std::vector<std::shared_ptr<pipeline::Node>> selected_;
    int scrolled_;  // px
    std::optional<Edge> edge_;
};

}  // namespace marquell::window
