// SPDX-License-Identifier: GPL-3.0-or-later
// What the user does with a table: keys, menu, tool tips, drags.
#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QDragLeaveEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>

#include "platform/Localization.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/tables/CellDelegate.h"
#include "toolkit/tables/CellStore.h"
#include "toolkit/tables/CellTable.h"
#include "toolkit/tables/CellTableModel.h"
#include "toolkit/tables/CellText.h"
#include "toolkit/tables/DragPicture.h"
#include "toolkit/tables/RowButtons.h"
#include "toolkit/tables/RowDrops.h"

namespace marquell::toolkit {
namespace {

QKeySequence keyOf(const QKeyEvent& event) {
    return QKeyCombination(event.modifiers() & ~Qt::KeypadModifier, Qt::Key(event.key()));
}

/// The desktop has several keys for copying.
bool answersTo(const TableCommand& command, const QKeySequence& key) {
    if (command.key.isEmpty()) return false;
    if (command.key != QKeySequence(QKeySequence::Copy)) return command.key == key;
    return QKeySequence::keyBindings(QKeySequence::Copy).contains(key);
}

int countOf(const std::vector<RowRange>& rows) {
    int count = 0;
    for (const RowRange& each : rows) count += each.last - each.first + 1;
    return count;
}

}  // namespace

QModelIndex CellTable::moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) {
    const int last = model_->rowCount() - 1;
    QModelIndex target = currentIndex();
    int step = 1;  // over separators
    // To the first row and the last, not to the ends of a row.
    if (cursorAction == MoveHome || cursorAction == MoveEnd) {
        const bool isHome = cursorAction == MoveHome;
        target = model_->index(isHome ? 0 : last, std::max(target.column(), 0));
        step = isHome ? 1 : -1;
    } else {
        target = QTableView::moveCursor(cursorAction, modifiers);
        step = target.row() < currentIndex().row() ? -1 : 1;
    }
    const int row = rowBeyondSeparators(target.row(), step);
    return row == target.row() ? target : model_->index(row, target.column());
}

/// The row itself or the next one that is none; no row of the table if there is none.
int CellTable::rowBeyondSeparators(int row, int step) const {
    while (row >= 0 && row < model_->rowCount() && source_.isSeparator(row)) row += step;
    return row;
}

bool CellTable::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        // Before a shortcut of the window with the same key.
        const QKeySequence key = keyOf(static_cast<QKeyEvent&>(*event));
        const auto commands = source_.commands();
        const bool isOurs = std::ranges::any_of(
            commands, [&](const TableCommand& each) { return answersTo(each, key); });
        if (isOurs || key == QKeySequence::SelectAll) event->accept();
    }
    return QTableView::event(event);
}

bool CellTable::runCommand(const QKeyEvent& event) {
    const QKeySequence key = keyOf(event);
    for (const TableCommand& each : source_.commands()) {
        if (!answersTo(each, key)) continue;
        if (each.isEnabled) each.run();
        return true;
    }
    return false;
}

void CellTable::keyPressEvent(QKeyEvent* event) {
    if (runCommand(*event)) return;
    // Qt would copy what a single cell shows, be it cut.
    if (event->matches(QKeySequence::Copy)) return event->ignore();
    const int toButton = isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
    const bool isPlain = !(event->modifiers() & ~Qt::KeypadModifier);
    if (isPlain && event->key() == toButton) {
        // Rows may have come after the focus, and none of them been made the current one.
        const int row = currentIndex().isValid() ? currentIndex().row() : rowsInView().first;
        scrollTo(model_->index(row, std::max(currentIndex().column(), 0)));
        if (buttons_->setFocus(row)) return;
    }
    QTableView::keyPressEvent(event);
}

void CellTable::keyboardSearch(const QString& typed) {
    const bool goesOn =
        sinceTyped_.isValid() && sinceTyped_.elapsed() < QApplication::keyboardInputInterval();
    sinceTyped_.start();
    typed_ = goesOn ? typed_ + typed : typed;
    const int current = currentIndex().row();
    const int row = source_.rowForTyped(typed_, goesOn ? std::max(current, 0) : current + 1);
    if (row >= 0) goToRow(row);
}

void CellTable::goToRow(int row) {
    const QModelIndex index = model_->index(row, std::max(currentIndex().column(), 0));
    selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

void CellTable::focusButtonOf(int row) {
    row = rowBeyondSeparators(row, row < currentIndex().row() ? -1 : 1);
    if (row < 0 || row >= model_->rowCount()) return;
    goToRow(row);
    if (!buttons_->setFocus(row)) setFocus(Qt::OtherFocusReason);
}

void CellTable::contextMenuEvent(QContextMenuEvent* event) {
    const auto commands = source_.commands();
    if (commands.empty()) return event->ignore();
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const TableCommand& command) {
        auto* item = menu->addAction(command.title, command.run);
        item->setShortcut(command.key);
        item->setShortcutContext(Qt::WidgetShortcut);
        item->setShortcutVisibleInContextMenu(true);
        item->setEnabled(command.isEnabled);
    };
    for (const TableCommand& each : commands) add(each);
    add({QString::fromStdString(platform::localized("Select All", "menu item")),
         QKeySequence::SelectAll, model_->rowCount() > 0, [this] { selectAll(); }});
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QPoint row = visualRect(currentIndex()).bottomLeft();
    menu->popup(byKey ? viewport()->mapToGlobal(row) : event->globalPos());
}

bool CellTable::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
    showCellToolTip(*static_cast<QHelpEvent*>(event));
    return true;
}

void CellTable::showCellToolTip(const QHelpEvent& event) const {
    const QModelIndex index = indexAt(event.pos());
    if (!index.isValid()) {
        QToolTip::hideText();
        return;
    }
    const QRect rect = visualRect(index);
    const auto cell = cells_->cell(index.row(), index.column());
    const int room = delegate_->textRect(rect, *cell, layoutDirection()).width();
    QToolTip::showText(event.globalPos(), toolTipOf(*cell, room), viewport(), rect);
}

void CellTable::dragEnterEvent(QDragEnterEvent* event) { drops_->follow(*event); }
void CellTable::dragMoveEvent(QDragMoveEvent* event) { drops_->follow(*event); }
void CellTable::dragLeaveEvent(QDragLeaveEvent* /*event*/) { drops_->end(); }
void CellTable::dropEvent(QDropEvent* event) { drops_->drop(*event); }

QRegion CellTable::selectedRegion() const {
    const RowRange inView = rowsInView();
    QRegion region;
    for (const RowRange& range : selectedRows()) {
        const int first = std::max(range.first, inView.first);
        const int last = std::min(range.last, inView.last);
        if (first <= last) region += rowRect(first).united(rowRect(last));
    }
    return region;
}

void CellTable::startDrag(Qt::DropActions /*supportedActions*/) {
    // Where there is nothing to drag, Qt goes on by selecting the rows that the pointer passes.
    const auto dragged = selectedRows();
    auto rowData = source_.writeRows(dragged);
    if (rowData == nullptr) return;
    const QRegion rows = selectedRegion();
    const QPoint pointer = viewport()->mapFromGlobal(QCursor::pos());
    auto* drag = new QDrag(this);  // goes when it has ended
    drag->setMimeData(rowData.release());
    drag->setPixmap(dragPicture(*viewport(), rows, pointer, countOf(dragged)));
    drag->setHotSpot(pointer - rows.boundingRect().topLeft());
    drag->exec(Qt::MoveAction | Qt::CopyAction, Qt::MoveAction);
}

}  // namespace marquell::toolkit
