// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "lists/ColumnListData.h"
#include "lists/tables/ListTableViewController.h"

namespace marquell::lists {

/// The table of the columns: rows that the user can order, delete and drop columns between.
class ColumnListTableViewController : public ListTableViewController {
public:
    /// The list, whose settings `defaults` are, has to outlive it.
    ColumnListTableViewController(ColumnListData& listData,
                                  std::shared_ptr<platform::UserDefaults> defaults);

    /// The columns that are dragged from elsewhere in the program (externalPasteboardType).
    std::function<std::vector<std::string>()> obtainDraggedColumnIds;

    std::shared_ptr<toolkit::TableCellView> viewFor(const toolkit::TableColumn& column,
                                                    int row) override;
    Qt::DropAction validateDrop(const toolkit::TableDrag& drag, int& row) override;
    bool acceptDrop(const toolkit::TableDrag& drag, int row) override;

private:
    ColumnListData& listData_;
};

}  // namespace marquell::lists
