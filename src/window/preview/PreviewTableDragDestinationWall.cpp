// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/PreviewTableDragDestinationWall.h"

#include <QDropEvent>
#include <QMimeData>
#include <algorithm>

#include "toolkit/bricks/CallIfSet.h"

namespace marquell::window {

PreviewTableDragDestinationWall::PreviewTableDragDestinationWall(lists::ColumnListData& columnList)
    : columnList_(columnList) {
    setAcceptDrops(true);
}

/// What isn't accepted goes on to the view below.
bool PreviewTableDragDestinationWall::accept(QDropEvent& event) const {
    const bool areColumns =
        event.mimeData()->hasFormat(QLatin1String(lists::ColumnListData::externalPasteboardType));
    if (areColumns) event.setDropAction(Qt::CopyAction);
    event.setAccepted(areColumns);
    return areColumns;
}

void PreviewTableDragDestinationWall::setDragIsForMe(bool dragIsForMe) {
    if (dragIsForMe_ == dragIsForMe) return;
    dragIsForMe_ = dragIsForMe;
    toolkit::callIfSet(showDrop, dragIsForMe);
}

void PreviewTableDragDestinationWall::dragEnterEvent(QDragEnterEvent* event) {
    setDragIsForMe(accept(*event));
}

void PreviewTableDragDestinationWall::dragMoveEvent(QDragMoveEvent* event) { accept(*event); }

void PreviewTableDragDestinationWall::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
    setDragIsForMe(false);
}

void PreviewTableDragDestinationWall::dropEvent(QDropEvent* event) {
    const bool isForMe = accept(*event) && dragIsForMe_;
    setDragIsForMe(false);
    if (!isForMe || !obtainDraggedColumnIds) return;
    std::vector<std::string> ids = obtainDraggedColumnIds();
    std::ranges::reverse(ids);
    for (const std::string& id : ids) columnList_.add(id);
}

}  // namespace marquell::window
