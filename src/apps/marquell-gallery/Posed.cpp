// SPDX-License-Identifier: GPL-3.0-or-later
#include "Posed.h"

#include <QEvent>

#include "toolkit/look/FocusRingView.h"

namespace marquell::gallery {
namespace {

class Follower : public QObject {
public:
    explicit Follower(toolkit::FocusRingView* ring) : QObject(ring), ring_(ring) {}

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Move || event->type() == QEvent::Resize) ring_->place();
        return false;
    }

private:
    toolkit::FocusRingView* const ring_;
};

}  // namespace

void poseWithRing(QWidget* view) {
    auto* ring = new toolkit::FocusRingView(view->parentWidget(), view);
    QObject::connect(view, &QObject::destroyed, ring, &QObject::deleteLater);
    view->installEventFilter(new Follower(ring));
    ring->place();
    ring->show();
}

}  // namespace marquell::gallery
