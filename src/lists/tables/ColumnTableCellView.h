// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "lists/tables/ListTableCellView.h"

namespace marquell::lists {

/// Shows the title of a column, and behind it what tells it from equally named ones.
class ColumnTableCellView : public ListTableCellView {
public:
    /// `abbreviation` may be empty.
    ColumnTableCellView(const QString& mainTitle, const QString& abbreviation,
                        std::function<void()> remove);
};

}  // namespace marquell::lists
