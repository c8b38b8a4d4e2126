// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/tables/TagListTableViewController.h"

#include <QPainter>
#include <string_view>

#include "lists/tables/TagTableCellView.h"
#include "lists/tables/TagTableDescriptionCellView.h"
#include "metadata/TagManager.h"
#include "platform/Localization.h"
#include "toolkit/look/ColorRole.h"

namespace marquell::lists {
namespace {

constexpr const char* nameColumn = "name";
// Points.
constexpr double nameWidth = 200;
constexpr double frameWidth = 1;

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace

TagListTableViewController::TagListTableViewController(ColumnListData& columnList)
    : columnList_(columnList) {}

TagListTableViewController::~TagListTableViewController() { delete tableView_.data(); }

void TagListTableViewController::build() {
    auto* view = new toolkit::Wall;
    // What the table leaves uncovered is its frame.
    view->backgroundDrawingFunc = [view](QPainter& painter, const QRectF& frame) {
        painter.fillRect(frame, color(toolkit::ColorRole::listFrame, view));
    };
    tableView_ = new ListTable(*this);
    tableView_->setAccessibleName(
        QString::fromStdString(platform::localized("Tag Table", "accessible name")));
    tableView_->setColumns({{nameColumn, {}, nameWidth}, {"description", {}}}, false);
    view->factory().internalAddBrick(
        tableView_, [](toolkit::LayoutConstraintMaker& make) { make.fillContainer(frameWidth); });
    setView(view);
    tableView_->reloadData();
}

const std::string& TagListTableViewController::columnId(int row) const {
    return listData_.data.at(static_cast<std::size_t>(row));
}

QString TagListTableViewController::title(int row) const {
    return text(metadata::TagManager::shared().displayName(columnId(row)));
}

bool TagListTableViewController::isSeparator(int row) const {
    return listData_.isSeparator(static_cast<std::size_t>(row));
}

std::shared_ptr<toolkit::TableCellView> TagListTableViewController::viewFor(
    const toolkit::TableColumn& column, int row) {
    if (isSeparator(row)) return std::make_shared<TagTableDescriptionCellView>();
    if (column.identifier != nameColumn) {
        return std::make_shared<TagTableDescriptionCellView>(title(row));
    }
    const std::string& id = columnId(row);
    const auto abbreviation = metadata::TagManager::shared().abbreviation(id);
    return std::make_shared<TagTableCellView>(title(row), text(abbreviation.value_or("")),
                                              [this, &id] { columnList_.add(id); });
}

std::vector<toolkit::TableCommand> TagListTableViewController::commands() {
    return {{.title = QString::fromStdString(platform::localized("Add to Columns", "menu item")),
             .key = {},
             .isEnabled = tableView_->selectedRow() >= 0,
             .run = [this] { addSelected(); }}};
}

void TagListTableViewController::addSelected() {
    std::vector<std::string> ids;
    for (const toolkit::RowRange& range : tableView_->selectedRows()) {
        for (int row = range.first; row <= range.last; ++row) {
            if (!isSeparator(row)) ids.push_back(columnId(row));
        }
    }
    columnList_.insertAtRow(columnList_.value().size(), ids);
}

int TagListTableViewController::rowForTyped(const QString& typed, int from) const {
    const int count = numberOfRows();
    for (int i = 0; i < count; ++i) {
        const int row = (from + i) % count;
        if (!isSeparator(row) && title(row).startsWith(typed, Qt::CaseInsensitive)) return row;
    }
    return -1;
}

}  // namespace marquell::lists
