// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/tables/SourceListTableViewController.h"

#include <QMimeData>
#include <string_view>
#include <utility>
#include <vector>

#include "lists/tables/SourceTableCellView.h"
#include "platform/MainQueue.h"
#include "platform/UriList.h"

namespace marquell::lists {
namespace {

const QString uriListType = QStringLiteral("text/uri-list");

bool hasFilesFromOutside(const toolkit::TableDrag& drag) {
    return drag.source == nullptr && drag.data.hasFormat(uriListType);
}

/// From the bytes as they came, since names that are no UTF-8 don't survive as texts.
std::vector<std::string> pathsOf(const QMimeData& data) {
    const QByteArray bytes = data.data(uriListType);
    return platform::pathsOfUriList(
        std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

}  // namespace

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
    if (!hasFilesFromOutside(drag)) return Qt::IgnoreAction;
    row = numberOfRows();
    return Qt::CopyAction;
}

bool SourceListTableViewController::acceptDrop(const toolkit::TableDrag& drag, int row) {
    if (!hasFilesFromOutside(drag)) return ListTableViewController::acceptDrop(drag, row);
    // Only after the drop has ended: the program that the files come from waits for that, and an
    // alert may follow.
    platform::MainQueue::installed()->post(
        [&list = listData_, paths = pathsOf(drag.data)] { list.add(paths, true); });
    return true;
}

}  // namespace marquell::lists
