// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/tables/ListTableViewController.h"

#include <QMimeData>
#include <algorithm>
#include <cmath>
#include <utility>

#include "lists/tables/RowSets.h"
#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/look/Surface.h"

namespace marquell::lists {

using toolkit::RowRange;

constexpr double frameWidth = 1;  // points

ListTableViewController::ListTableViewController(StoredListData& listData,
                                                 std::shared_ptr<platform::UserDefaults> defaults)
    : listData_(listData), defaults_(std::move(defaults)), shown_(listData_.value()) {}

ListTableViewController::~ListTableViewController() { delete tableView_.data(); }

void ListTableViewController::build() {
    auto* view = new toolkit::Wall;
    toolkit::setAppearance(view, toolkit::Appearance::system);
    view->setBorders(true, true, true, true);
    // The frame belongs to the column that the list lies on, whatever the list looks like.
    view->setBorderColor(color(toolkit::ColorRole::listFrame, toolkit::Surface::column));

    auto* table = new ListTable(*this);
    view->factory().internalAddBrick(
        table, [](toolkit::LayoutConstraintMaker& make) { make.fillContainer(frameWidth); });
    actions_.emplace(*table, RowActions::Functions{.remove = [this] { removeSelected(); },
                                                   .moveUp = [this] { moveSelected(true); },
                                                   .moveDown = [this] { moveSelected(false); }});
    height_ = std::make_shared<toolkit::LayoutConstraint>(view, toolkit::LayoutAttribute::height,
                                                          toolkit::Relation::equal, 0);
    // Stronger than the wish of what scrolls the list's surroundings to be as low as can be.
    height_->setPriority(toolkit::LayoutPriority::high);
    addConstraints(view, {height_});
    tableView_ = table;
    table->metricsDidChange = [this] { followContentHeight(); };
    updateWhenDefaultsStorageKeyIsChanged_.emplace(listData_.storageKey, defaults_, true,
                                                   [this](auto&, const auto&) { reload(); });
    setView(view);
}

void ListTableViewController::reload() {
    shown_ = listData_.value();
    if (tableView_ == nullptr) return;
    tableView_->reloadData();
    followContentHeight();
    updateActions();
}

void ListTableViewController::followContentHeight() {
    const double scale = toolkit::metrics().scale();
    // The layout may round the two lines of the frame up.
    height_->setConstant((tableView_->contentHeight() + 2 * std::ceil(scale)) / scale);
}

int ListTableViewController::numberOfRows() const { return static_cast<int>(shown_.size()); }

const std::string& ListTableViewController::textOf(int row) const {
    return shown_.texts().at(static_cast<std::size_t>(row));
}

void ListTableViewController::selectionDidChange() { updateActions(); }

void ListTableViewController::updateActions() {
    if (tableView_ == nullptr) return;
    const auto rows = tableView_->selectedRows();
    const int last = numberOfRows() - 1;
    const bool isAny = !rows.empty();
    const bool isOneRange = rows.size() == 1;
    actions_->setEnabled({.remove = isAny,
                          .moveUp = isAny && !(isOneRange && rows.front().first == 0),
                          .moveDown = isAny && !(isOneRange && rows.back().last == last),
                          .selectAll = last >= 0});
}

void ListTableViewController::removeSelected() {
    const auto rows = tableView_->selectedRows();
    if (rows.empty()) return;
    listData_.deleteAt(indexSetOf(rows));
    const int next = std::min(rows.front().first, numberOfRows() - 1);
    tableView_->selectRows({{next, next}});
}

void ListTableViewController::removeRow(int row) {
    const auto selected = tableView_->selectedRows();
    listData_.deleteAt({static_cast<std::size_t>(row)});
    auto left = rowsWithout(selected, row);
    if (left.empty() && !selected.empty()) {
        const int next = std::min(row, numberOfRows() - 1);
        left = {{next, next}};
    }
    tableView_->selectRows(left);
}

bool ListTableViewController::isButtonAtKeyboard() const {
    // Of the window, which may not be the active one.
    const QWidget* focused = tableView_->window()->focusWidget();
    return focused != nullptr && tableView_->viewport()->isAncestorOf(focused);
}

void ListTableViewController::moveSelected(bool up) {
    const auto rows = tableView_->selectedRows();
    if (rows.empty()) return;
    const int target =
        up ? std::max(rows.front().first - 1, 0) : std::min(rows.back().last + 2, numberOfRows());
    move(indexSetOf(rows), static_cast<std::size_t>(target));
}

void ListTableViewController::move(const IndexSet& rows, std::size_t toRow) {
    const auto above = std::distance(rows.begin(), rows.lower_bound(toRow));
    const int first = static_cast<int>(toRow) - static_cast<int>(above);
    const int last = first + static_cast<int>(rows.size()) - 1;
    listData_.move(rows, toRow);
    tableView_->selectRows({{first, last}});
    tableView_->scrollTo(tableView_->currentIndex());
    if (first == last && isButtonAtKeyboard()) tableView_->focusButtonOf(first);
}

std::unique_ptr<QMimeData> ListTableViewController::writeRows(const std::vector<RowRange>& rows) {
    if (rows.empty()) return nullptr;
    listData_.draggedIndices = indexSetOf(rows);
    auto data = std::make_unique<QMimeData>();
    data->setData(QString::fromStdString(listData_.internalPasteboardType),
                  QByteArrayLiteral("dummy"));
    return data;
}

bool ListTableViewController::isOwnDrag(const toolkit::TableDrag& drag) const {
    // Rows that an earlier drag has left behind must not be taken for those of another table.
    return drag.source == tableView_ && listData_.draggedIndices.has_value();
}

bool ListTableViewController::acceptDrop(const toolkit::TableDrag& drag, int row) {
    if (!isOwnDrag(drag)) return false;
    move(*std::exchange(listData_.draggedIndices, std::nullopt), static_cast<std::size_t>(row));
    return true;
}

}  // namespace marquell::lists
