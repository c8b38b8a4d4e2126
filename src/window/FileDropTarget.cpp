// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/FileDropTarget.h"

#include <QDropEvent>
#include <QPointer>
#include <QWidget>
#include <utility>

#include "lists/tables/DroppedFiles.h"
#include "platform/MainQueue.h"

namespace marquell::window {
void FileDropTarget::install(QWidget& view, Add add, Show show) {
    view.setAcceptDrops(true);
    view.installEventFilter(new FileDropTarget(view, std::move(add), std::move(show)));
}

FileDropTarget::FileDropTarget(QWidget& view, Add add, Show show)
    : QObject(&view), add_(std::move(add)), show_(std::move(show)) {}

bool FileDropTarget::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove: {
            const bool areFiles = accept(static_cast<QDropEvent&>(*event));
            if (event->type() == QEvent::DragEnter) show_(areFiles);
            return true;
        }
        case QEvent::DragLeave:
            show_(false);
            return true;
        case QEvent::Drop:
            show_(false);
            drop(static_cast<QDropEvent&>(*event));
            return true;
        default:
            return QObject::eventFilter(watched, event);
    }
}

bool FileDropTarget::accept(QDropEvent& event) const {
    const bool areFiles = lists::areFilesFromOutside(*event.mimeData(), event.source());
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(areFiles);
    return areFiles;
}

void FileDropTarget::drop(QDropEvent& event) {
    if (!accept(event)) return;
    auto paths = lists::droppedPaths(*event.mimeData());
    if (paths.empty()) return;
    // The program that the files come from waits for the drop to end: no alert before that.
    platform::MainQueue::installed()->post(
        [target = QPointer<const FileDropTarget>(this), paths = std::move(paths)] {
            if (target != nullptr) target->add_(paths);
        });
}

}  // namespace marquell::window
