// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <functional>

#include "toolkit/tables/CellTable.h"

namespace marquell::lists {

/// What can be done with the selected rows of a list by key, and in its context menu.
class RowActions {
public:
    struct Functions {
        std::function<void()> remove, moveUp, moveDown;
    };
    /// What makes sense at the moment.
    struct Enabled {
        bool remove, moveUp, moveDown, selectAll;
    };

    /// Adds the actions to the table, which owns them and has to outlive this object.
    RowActions(toolkit::CellTable& table, const Functions& functions);

    void setEnabled(const Enabled& enabled);

private:
    QAction* add(const char* title, const QList<QKeySequence>& keys,
                 const std::function<void()>& function);
    void showMenu(const QPoint& place);

    toolkit::CellTable& table_;
    QAction* remove_ = nullptr;
    QAction* moveUp_ = nullptr;
    QAction* moveDown_ = nullptr;
    QAction* selectAll_ = nullptr;
};

}  // namespace marquell::lists
