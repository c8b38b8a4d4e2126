// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QHeaderView>
#include <functional>
#include <vector>

#include "toolkit/tables/CellTable.h"

namespace marquell::toolkit {

/// The widths of a table's columns. Without headers a column keeps its width or shares what the
/// others leave. With headers the columns begin as wide as their titles and the values in view ask
/// for, within limits, and fill the view; from then on the user may drag them.
class ColumnFitting {
public:
    /// The room that a column's title and its values in view take, in px.
    using NaturalWidth = std::function<int(int column)>;

    /// Both have to outlive it.
    ColumnFitting(QHeaderView& header, const std::vector<TableColumn>& columns,
                  NaturalWidth naturalWidth);

    /// There are other columns; `room` px are to be seen of them.
    void start(bool withHeaders, int room);

    void roomChanged(int room);

    /// Cells are in view, or others than before; `areComplete` tells whether none waits for its
    /// value. The first ones are fitted to, and once more if their values come soon: later it would
    /// disturb.
    void cellsShown(const std::function<bool()>& areComplete);

private:
    void fitToContents();
    std::vector<int> firstWidths(int room) const;
    std::vector<int> widths() const;
    void apply(const std::vector<int>& widths);

    QHeaderView& header_;
    const std::vector<TableColumn>& columns_;
    const NaturalWidth naturalWidth_;
    bool withHeaders_ = false;
    int room_ = 0;  // px; 0 for not known yet
    bool isFitted_ = false;
    bool isApplying_ = false;
    QElapsedTimer sinceFit_;  // invalid when there is to be no second one
};

}  // namespace marquell::toolkit
