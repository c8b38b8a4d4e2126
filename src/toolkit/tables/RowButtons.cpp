// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/tables/RowButtons.h"

#include <QItemSelectionModel>
#include <algorithm>

#include "toolkit/bricks/CallIfSet.h"

namespace marquell::toolkit {

RowButtons::RowButtons(CellTable& table, CellStore& cells) : table_(table), cells_(cells) {}

std::map<int, RowButtonBrick*>::const_iterator RowButtons::focused() const {
    // Of the window, which may not be the active one.
    return std::ranges::find_if(shown_, [](const auto& entry) {
        return entry.second->window()->focusWidget() == entry.second;
    });
}

std::map<int, int> RowButtons::wanted() const {
    std::map<int, int> columns;
    const int count = table_.model()->columnCount();
    const auto look = [&](int row) {
        for (int column = 0; column < count; ++column) {
            if (table_.columnIsInView(column) && cells_.cell(row, column)->button) {
                columns.emplace(row, column);
            }
        }
    };
    const RowRange rows = table_.rowsInView();
    for (int row = rows.first; row <= rows.last; ++row) look(row);
    const auto atKeyboard = focused();
    if (atKeyboard != shown_.end() && atKeyboard->first < table_.model()->rowCount()) {
        look(atKeyboard->first);
    }
    return columns;
}

void RowButtons::keepFocusInTable() {
    const int last = table_.model()->rowCount() - 1;
    auto atKeyboard = focused();
    if (atKeyboard == shown_.end()) return;
    if (atKeyboard->first > last && last >= 0) {
        RowButtonBrick* brick = atKeyboard->second;
        shown_.erase(atKeyboard);
        RowButtonBrick*& place = shown_[last];
        if (place != nullptr) stow(place);
        place = brick;
        atKeyboard = shown_.find(last);
    }
    // A button that is hidden would hand the focus on to any other view.
    if (!wanted().contains(atKeyboard->first)) table_.setFocus(Qt::OtherFocusReason);
}

void RowButtons::stow(RowButtonBrick* brick) {
    brick->hide();
    spare_.push_back(brick);
}

void RowButtons::retire(const std::map<int, int>& columns) {
    std::erase_if(shown_, [&](const auto& entry) {
        if (columns.contains(entry.first)) return false;
        stow(entry.second);
        return true;
    });
}

RowButtonBrick* RowButtons::spareOrNew() {
    if (!spare_.empty()) {
        RowButtonBrick* brick = spare_.back();
        spare_.pop_back();
        return brick;
    }
    auto* brick = new RowButtonBrick(table_, table_.viewport());
    brick->buttonPressFunction = [this, brick] { press(*brick); };
    return brick;
}

void RowButtons::place() {
    keepFocusInTable();  // may lead here again, so it comes before all else
    const auto columns = wanted();
    retire(columns);
    for (const auto& [row, column] : columns) {
        RowButtonBrick*& brick = shown_[row];
        if (brick == nullptr) brick = spareOrNew();
        const auto cell = cells_.cell(row, column);
        const QModelIndex index = table_.model()->index(row, column);
        brick->show(row, column, *cell->button, table_.visualRect(index));
    }
    showSelection();
}

void RowButtons::showSelection() {
    for (const auto& [row, brick] : shown_) {
        const QModelIndex index = table_.model()->index(row, brick->column());
        brick->setOnSelection(table_.selectionModel()->isSelected(index));
    }
}

bool RowButtons::setFocus(int row) {
    const auto found = shown_.find(row);
    if (found == shown_.end()) return false;
    found->second->setFocus(Qt::OtherFocusReason);
    return true;
}

void RowButtons::press(const RowButtonBrick& brick) {
    // The action may have all cells made anew; this one stays until it has run.
    const auto cell = cells_.cell(brick.row(), brick.column());
    if (cell->button) callIfSet(cell->button->action);
}

}  // namespace marquell::toolkit
