// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/tables/RowActions.h"

#include <QMenu>

#include "platform/Localization.h"

namespace marquell::lists {

RowActions::RowActions(toolkit::CellTable& table, const Functions& functions) : table_(table) {
    remove_ = add("Remove", {Qt::Key_Delete, Qt::Key_Backspace}, functions.remove);
    moveUp_ = add("Move Up", {Qt::ALT | Qt::Key_Up}, functions.moveUp);
    moveDown_ = add("Move Down", {Qt::ALT | Qt::Key_Down}, functions.moveDown);
    // The table knows the key itself. Two actions with it in one window would put it out of force.
    selectAll_ = add("Select All", {}, [&table] { table.selectAll(); });
    table.setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(&table, &QWidget::customContextMenuRequested, &table,
                     [this](const QPoint& place) { showMenu(place); });
}

QAction* RowActions::add(const char* title, const QList<QKeySequence>& keys,
                         const std::function<void()>& function) {
    auto* action =
        new QAction(QString::fromStdString(platform::localized(title, "menu item")), &table_);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(action, &QAction::triggered, &table_, function);
    table_.addAction(action);
    return action;
}

void RowActions::setEnabled(const Enabled& enabled) {
    remove_->setEnabled(enabled.remove);
    moveUp_->setEnabled(enabled.moveUp);
    moveDown_->setEnabled(enabled.moveDown);
    selectAll_->setEnabled(enabled.selectAll);
}

void RowActions::showMenu(const QPoint& place) {
    auto* menu = new QMenu(&table_);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(table_.actions());
    menu->popup(table_.viewport()->mapToGlobal(place));
}

}  // namespace marquell::lists
