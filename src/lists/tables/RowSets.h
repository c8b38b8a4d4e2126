// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "lists/StoredListData.h"
#include "toolkit/tables/CellTable.h"

namespace marquell::lists {

IndexSet indexSetOf(const std::vector<toolkit::RowRange>& rows);

/// What is left of these rows, and how they count, when one row has gone.
std::vector<toolkit::RowRange> rowsWithout(const std::vector<toolkit::RowRange>& rows, int gone);

}  // namespace marquell::lists
