// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "lists/ColumnListData.h"
#include "toolkit/walls/Wall.h"

namespace marquell::window {

/// What the preview table lies on. It takes columns that are dropped on the table.
class PreviewTableDragDestinationWall : public toolkit::Wall {
public:
    /// The list, to which columns are added, has to outlive it.
    explicit PreviewTableDragDestinationWall(lists::ColumnListData& columnList);

    /// The columns that are dragged.
    std::function<std::vector<std::string>()> obtainDraggedColumnIds;
    /// Told when columns come over the wall, and when they leave it or are dropped.
    std::function<void(bool areAbove)> showDrop;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    bool accept(QDropEvent& event) const;
    void setDragIsForMe(bool dragIsForMe);

    lists::ColumnListData& columnList_;
    bool dragIsForMe_ = false;
};

}  // namespace marquell::window
