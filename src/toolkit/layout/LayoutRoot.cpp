// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/layout/LayoutRoot.h"

#include <QEvent>
#include <QWidget>
#include <cassert>
#include <unordered_map>
#include <utility>

#include "toolkit/layout/LayoutSystem.h"

namespace marquell::toolkit {
namespace {

/// Events of a view after which its root has to look again.
bool changesLayout(QEvent::Type type) {
    switch (type) {
        case QEvent::LayoutRequest:
        case QEvent::ShowToParent:
        case QEvent::HideToParent:
        case QEvent::ParentChange:
        case QEvent::ChildAdded:
        case QEvent::ChildRemoved:
        case QEvent::FontChange:
        case QEvent::StyleChange:
        case QEvent::LayoutDirectionChange:
            return true;
        default:
            return false;
    }
}

LayoutRoot* rootOn(const QWidget* view) { return dynamic_cast<LayoutRoot*>(view->layout()); }

}  // namespace

struct LayoutRoot::Parts {
    Parts(const QWidget* view, LayoutRoot* owner) : system(view), root(owner) {}

    void bringUpToDate() {
        if (!outdated || working) return;
        working = true;
        outdated = false;
        system.synchronize();
        watchViews();
        working = false;
        missed = false;
    }

    /// Listens to the views that belong to the root, and no longer to those that have moved away.
    void watchViews() {
        for (QWidget* view : system.views()) {
            if (watched.contains(view)) continue;
            view->installEventFilter(root);
            watched.emplace(view, QObject::connect(view, &QObject::destroyed, root, [this, view] {
                                watched.erase(view);
                                system.forget(view);
                            }));
        }
        std::erase_if(watched, [this](const auto& entry) {
            if (LayoutRoot::above(entry.first) == root) return false;
            entry.first->removeEventFilter(root);
            QObject::disconnect(entry.second);
            system.forget(entry.first);
            return true;
        });
    }

    void place(const QRect& rect) {
        working = true;
        system.place(rect);
        working = false;
        // Views may have answered to their new sizes by changes that want another look.
        if (std::exchange(missed, false)) root->invalidate();
    }

    LayoutSystem system;
    LayoutRoot* const root;
    std::unordered_map<QWidget*, QMetaObject::Connection> watched;
    bool outdated = true;
    bool working = false;  // moving and measuring the views makes them call for another look
    bool missed = false;   // such a call, while they were moved
};

LayoutRoot* LayoutRoot::install(QWidget* view) {
    if (LayoutRoot* present = rootOn(view)) return present;
    assert(!view->layout());  // Qt gives a view one layout only
    return new LayoutRoot(view);
}

LayoutRoot* LayoutRoot::at(const QWidget* view) {
    for (; view; view = view->parentWidget()) {
        if (LayoutRoot* root = rootOn(view)) return root;
        if (view->isWindow()) return nullptr;
    }
    return nullptr;
}

LayoutRoot* LayoutRoot::above(const QWidget* view) {
    return view->isWindow() ? nullptr : at(view->parentWidget());
}

LayoutRoot::LayoutRoot(QWidget* view) : QLayout(view), parts_(std::make_unique<Parts>(view, this)) {
    setContentsMargins(0, 0, 0, 0);
    view->installEventFilter(this);
}

LayoutRoot::~LayoutRoot() = default;

QStringList LayoutRoot::conflicts() const { return parts_->system.conflicts(); }

void LayoutRoot::layoutNow() { setGeometry(parentWidget()->contentsRect()); }

QSize LayoutRoot::minimumSize() const {
    if (!parentWidget()->isVisible()) parts_->outdated = true;
    parts_->bringUpToDate();
    return parts_->system.minimumSize();
}

QSize LayoutRoot::sizeHint() const { return minimumSize(); }

void LayoutRoot::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    if (parts_->working) return;
    parts_->bringUpToDate();
    parts_->place(rect);
}

void LayoutRoot::invalidate() {
    parts_->missed = parts_->working;
    if (parts_->working) return;
    parts_->outdated = true;
    QLayout::invalidate();
    // Qt has hidden views wait, but the room that they need may be kept for them.
    LayoutRoot* around = parentWidget()->isVisible() ? nullptr : above(parentWidget());
    if (around) around->invalidate();
}

bool LayoutRoot::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    const bool isRoot = watched == parent();
    if (isRoot && type == QEvent::LayoutDirectionChange) parts_->system.startAnew();
    // While a root is hidden, nobody tells it of the changes below it.
    const bool comesIntoView = isRoot && type == QEvent::Show;
    const bool isRootsOwnRequest = isRoot && type == QEvent::LayoutRequest;
    if (comesIntoView || (changesLayout(type) && !isRootsOwnRequest)) invalidate();
    return QLayout::eventFilter(watched, event);
}

Qt::Orientations LayoutRoot::expandingDirections() const { return Qt::Horizontal | Qt::Vertical; }

void LayoutRoot::addItem(QLayoutItem* item) {
    // Only Qt's own layouts add items; views come by constraints.
    delete item;
}

int LayoutRoot::count() const { return 0; }

QLayoutItem* LayoutRoot::itemAt(int) const { return nullptr; }

QLayoutItem* LayoutRoot::takeAt(int) { return nullptr; }

void layoutChanged(const QWidget* view) {
    LayoutRoot* own = LayoutRoot::at(view);
    LayoutRoot* around = LayoutRoot::above(view);
    if (own) own->invalidate();
    if (around && around != own) around->invalidate();
}

}  // namespace marquell::toolkit
