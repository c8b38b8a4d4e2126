// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "lists/SourceListData.h"
#include "lists/tables/ListTableViewController.h"

namespace marquell::lists {

/// The table of the sources: rows that the user can order, delete and drop files between.
class SourceListTableViewController : public ListTableViewController {
public:
    /// The list, whose settings `defaults` are, has to outlive it.
    SourceListTableViewController(SourceListData& listData,
                                  std::shared_ptr<platform::UserDefaults> defaults);

    /// Shows, or no longer, that files dropped now would come behind the last row.
    void showDropAtEnd(bool isShown);

    std::shared_ptr<toolkit::TableCellView> viewFor(const toolkit::TableColumn& column,
                                                    int row) override;
    /// Files of other programs go to the end.
    Qt::DropAction validateDrop(const toolkit::TableDrag& drag, int& row) override;
    bool acceptDrop(const toolkit::TableDrag& drag, int row) override;

private:
    SourceListData& listData_;
};

}  // namespace marquell::lists
