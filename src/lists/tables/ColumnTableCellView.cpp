// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/tables/ColumnTableCellView.h"

#include <utility>

namespace marquell::lists {

ColumnTableCellView::ColumnTableCellView(const QString& mainTitle, const QString& abbreviation,
                                         std::function<void()> remove)
    : ListTableCellView(abbreviation.isEmpty() ? mainTitle : mainTitle + u' ' + abbreviation,
                        std::move(remove)) {
    nameLabel.text = mainTitle;
    nameLabel.abbreviation = abbreviation;
}

}  // namespace marquell::lists
