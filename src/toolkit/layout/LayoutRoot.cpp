// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/layout/LayoutRoot.h"

#include <QEvent>
#include <QWidget>
#include <unordered_set>

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
    }

    void watchViews() {
        for (QWidget* view : system.views()) {
            if (!watched.insert(view).second) continue;
            view->installEventFilter(root);
            QObject::connect(view, &QObject::destroyed, root, [this, view] {
                watched.erase(view);
                system.forget(view);
            });
        }
    }

    LayoutSystem system;
    LayoutRoot* const root;
    std::unordered_set<QWidget*> watched;
    bool outdated = true;
    bool working = false;  // so that moving the views does not ask for another look at them
};

LayoutRoot* LayoutRoot::install(QWidget* view) {
    if (LayoutRoot* present = rootOn(view)) return present;
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

void LayoutRoot::layoutNow() { setGeometry(parentWidget()->rect()); }

QSize LayoutRoot::minimumSize() const {
    parts_->bringUpToDate();
    return parts_->system.minimumSize();
}

QSize LayoutRoot::sizeHint() const { return minimumSize(); }

void LayoutRoot::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    parts_->bringUpToDate();
    if (parts_->working) return;
    parts_->working = true;
    parts_->system.place(rect.size());
    parts_->working = false;
}

void LayoutRoot::invalidate() {
    if (parts_->working) return;
    parts_->outdated = true;
    QLayout::invalidate();
}

bool LayoutRoot::eventFilter(QObject* watched, QEvent* event) {
    if (changesLayout(event->type())) {
        if (event->type() == QEvent::LayoutDirectionChange) parts_->system.startAnew();
        const bool isRootsOwnRequest =
            watched == parent() && event->type() == QEvent::LayoutRequest;
        if (!isRootsOwnRequest) invalidate();
    }
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
