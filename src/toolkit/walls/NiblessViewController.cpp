// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/walls/NiblessViewController.h"

#include <QEvent>

namespace marquell::toolkit {

NiblessViewController::NiblessViewController(bool delayedBuild, BuildFunc buildFunc)
    : buildFunc_(std::move(buildFunc)), delayedBuild_(delayedBuild) {}

NiblessViewController::~NiblessViewController() { dropView(); }

void NiblessViewController::build() {
    if (buildFunc_) buildFunc_(*this);
}

void NiblessViewController::setView(Wall* view) {
    if (view == view_) return;
    dropView();
    view_ = view;
    if (view_ == nullptr) return;
    isOnScreen_ = view_->isVisible();
    view_->installEventFilter(this);
}

void NiblessViewController::dropView() {
    if (view_ == nullptr) return;
    view_->removeEventFilter(this);
    if (view_->parentWidget() == nullptr) delete view_;
}

bool NiblessViewController::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    // A hidden view is told so once more when its window is hidden after being minimised.
    if (type == QEvent::Show && !isOnScreen_) {
        isOnScreen_ = true;
        viewDidAppear();
    } else if (type == QEvent::Hide && isOnScreen_) {
        isOnScreen_ = false;
        viewDidDisappear();
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace marquell::toolkit
