// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/tables/SourceListTableViewController.h"

#include <utility>

#include "lists/tables/DroppedFiles.h"
#include "lists/tables/SourceTableCellView.h"
#include "platform/MainQueue.h"

namespace marquell::lists {
SourceListTableViewController::SourceListTableViewController(
    SourceListData& listData, std::shared_ptr<platform::UserDefaults> defaults)
    : ListTableViewController(listData, std::move(defaults)), listData_(listData) {}

void SourceListTableViewController::showDropAtEnd(bool isShown) {
    tableView()->showDropGap(isShown ? numberOfRows() : -1);
}

std::shared_ptr<toolkit::TableCellView> SourceListTableViewController::viewFor(
    const toolkit::TableColumn& /*column*/, int row) {
    return std::make_shared<SourceTableCellView>(textOf(row), [this, row] { removeRow(row); });
}

Qt::DropAction SourceListTableViewController::validateDrop(const toolkit::TableDrag& drag,
                                                           int& row) {
    if (isOwnDrag(drag)) return Qt::MoveAction;
    if (!areFilesFromOutside(drag.data, drag.source)) return Qt::IgnoreAction;
    row = numberOfRows();
    return Qt::CopyAction;
}

bool SourceListTableViewController::acceptDrop(const toolkit::TableDrag& drag, int row) {
    if (!areFilesFromOutside(drag.data, drag.source))
        return ListTableViewController::acceptDrop(drag, row);
    // Only after the drop has ended: the program that the files come from waits for that, and an
    // alert may follow.
    platform::MainQueue::installed()->post(
        [&list = listData_, paths = droppedPaths(drag.data)] { list.add(paths, true); });
    return true;
}

}  // namespace marquell::lists
