// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/FileDropTarget.h"

#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QWidget>
#include <utility>

#include "platform/MainQueue.h"
#include "platform/UriList.h"

namespace marquell::window {
namespace {

QString uriListType() { return QStringLiteral("text/uri-list"); }

}  // namespace

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
    const bool areFiles = event.source() == nullptr && event.mimeData()->hasFormat(uriListType());
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(areFiles);
    return areFiles;
}

void FileDropTarget::drop(QDropEvent& event) {
    if (!accept(event)) return;
    const QByteArray list = event.mimeData()->data(uriListType());
    auto paths = platform::pathsOfUriList({list.data(), static_cast<std::size_t>(list.size())});
    if (paths.empty()) return;
    // The program that the files come from waits for the drop to end: no alert before that.
    platform::MainQueue::installed()->post(
        [target = QPointer<const FileDropTarget>(this), paths = std::move(paths)] {
            if (target != nullptr) target->add_(paths);
        });
}

}  // namespace marquell::window
