// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QItemSelection>
#include <vector>

#include "toolkit/tables/CellTable.h"

namespace marquell::toolkit {

/// The rows of a selection of whole rows: in order, neighbours in one range.
std::vector<RowRange> rowRangesOf(const QItemSelection& selection);

/// The rows that the model has of these.
QItemSelection selectionOf(const std::vector<RowRange>& rows, const QAbstractItemModel& model);

}  // namespace marquell::toolkit
