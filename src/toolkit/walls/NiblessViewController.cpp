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
    setOnScreen(false);
    dropView();
    view_ = view;
    if (view_ == nullptr) return;
    view_->installEventFilter(this);
    // A child that is deleted is not hidden before.
    connect(view_, &QObject::destroyed, this, [this] { setOnScreen(false); });
    setOnScreen(view_->isVisible());
}

void NiblessViewController::dropView() {
    if (view_ == nullptr) return;
    view_->removeEventFilter(this);
    disconnect(view_, nullptr, this, nullptr);
    if (view_->parentWidget() == nullptr) delete view_;
}

void NiblessViewController::setOnScreen(bool isOnScreen) {
    if (isOnScreen_ == isOnScreen) return;
    isOnScreen_ = isOnScreen;
    if (isOnScreen) {
        viewDidAppear();
    } else {
        viewDidDisappear();
    }
}

bool NiblessViewController::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    // A hidden view is told so once more when its window is hidden after being minimised.
    if (type == QEvent::Show || type == QEvent::Hide) setOnScreen(type == QEvent::Show);
    return QObject::eventFilter(watched, event);
}

}  // namespace marquell::toolkit
