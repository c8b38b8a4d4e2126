// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/tables/ColumnListTableViewController.h"

#include <QMimeData>
#include <string_view>
#include <utility>

#include "lists/tables/ColumnTableCellView.h"
#include "metadata/TagManager.h"

namespace marquell::lists {
namespace {

bool hasColumnsFromElsewhere(const toolkit::TableDrag& drag) {
    return drag.data.hasFormat(QLatin1String(ColumnListData::externalPasteboardType));
}

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace

ColumnListTableViewController::ColumnListTableViewController(
    ColumnListData& listData, std::shared_ptr<platform::UserDefaults> defaults)
    : ListTableViewController(listData, std::move(defaults)), listData_(listData) {}

std::shared_ptr<toolkit::TableCellView> ColumnListTableViewController::viewFor(
    const toolkit::TableColumn& /*column*/, int row) {
    const auto& tags = metadata::TagManager::shared();
    const std::string& id = textOf(row);
    return std::make_shared<ColumnTableCellView>(text(tags.displayName(id)),
                                                 text(tags.abbreviation(id).value_or("")),
                                                 [this, row] { removeRow(row); });
}

Qt::DropAction ColumnListTableViewController::validateDrop(const toolkit::TableDrag& drag,
                                                           int& /*row*/) {
    return hasColumnsFromElsewhere(drag) || isOwnDrag(drag) ? Qt::MoveAction : Qt::IgnoreAction;
}

bool ColumnListTableViewController::acceptDrop(const toolkit::TableDrag& drag, int row) {
    if (!hasColumnsFromElsewhere(drag)) return ListTableViewController::acceptDrop(drag, row);
    if (obtainDraggedColumnIds) {
        listData_.insertAtRow(static_cast<std::size_t>(row), obtainDraggedColumnIds());
    }
    return true;
}

}  // namespace marquell::lists
