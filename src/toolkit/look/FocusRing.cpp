// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/FocusRing.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>

#include "toolkit/look/FocusRingView.h"

namespace marquell::toolkit {
namespace {

bool isViewport(const QWidget& view) {
    const auto* area = dynamic_cast<const QAbstractScrollArea*>(view.parentWidget());
    return area != nullptr && area->viewport() == &view;
}

/// The view that the ring lies in: the window or, as the ring is to scroll along and to go where
/// the control goes, the document that scrolls. Null for a control that is a window itself.
QWidget* ringParentFor(const QWidget& control) {
    // Nor has a popup a ring: its current row stands out anyway.
    if (control.isWindow() || control.window()->windowType() == Qt::Popup) return nullptr;
    QWidget* view = control.parentWidget();
    while (!view->isWindow() && !isViewport(*view) && !isViewport(*view->parentWidget())) {
        view = view->parentWidget();
    }
    return view;
}

bool isModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt ||
           key == Qt::Key_Meta || key == Qt::Key_AltGr;
}

bool isFocusByKey(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

}  // namespace

FocusRing::FocusRing(QObject* parent) : QObject(parent) {
    placing_.setSingleShot(true);
    connect(&placing_, &QTimer::timeout, this, &FocusRing::place);
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    auto* view = watched->isWidgetType() ? static_cast<QWidget*>(watched) : nullptr;
    if (view == nullptr || view == ring_) return false;
    switch (event->type()) {
        case QEvent::FocusIn: {
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            if (isFocusByKey(reason)) atKeyboard_ = true;
            if (reason == Qt::MouseFocusReason) atKeyboard_ = false;
            controlChanged(view);
            break;
        }
        case QEvent::FocusOut:
            // An open menu has the keyboard without taking the focus.
            if (static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
                controlChanged(nullptr);
            }
            break;
        case QEvent::KeyPress:
            if (!isModifier(static_cast<QKeyEvent*>(event)->key())) setAtKeyboard(true);
            break;
        case QEvent::MouseButtonPress:
            setAtKeyboard(false);
            break;
        default:
            follow(view, *event);
    }
    return false;
}

void FocusRing::controlChanged(QWidget* control) {
    control_ = control;
    place();
}

void FocusRing::setAtKeyboard(bool atKeyboard) {
    if (atKeyboard_ == atKeyboard) return;
    atKeyboard_ = atKeyboard;
    place();
}

void FocusRing::follow(const QWidget* changed, const QEvent& event) {
    if (control_ == nullptr) return;
    switch (event.type()) {
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::Show:
        case QEvent::Hide:
        case QEvent::ParentChange:
            if (changed == control_ || changed->isAncestorOf(control_)) place();
            break;
        case QEvent::ChildAdded:
            if (ring_ != nullptr && changed == ring_->parentWidget()) ring_->raise();
            break;
        case QEvent::ZOrderChange:
            if (ring_ != nullptr && changed->parentWidget() == ring_->parentWidget()) {
                ring_->raise();
            }
            break;
        case QEvent::Paint:
            // What the ring lies about may have changed with the control's content.
            if (changed == control_) placing_.start();
            break;
        default:
            break;
    }
}

void FocusRing::place() {
    const bool shown =
        control_ != nullptr && control_->isVisible() && (atKeyboard_ || takesWriting(*control_));
    QWidget* parent = shown ? ringParentFor(*control_) : nullptr;
    if (ring_ != nullptr && (ring_->parentWidget() != parent || ring_->control() != control_)) {
        // The parent may be going through its children right now, to hide them or to show them.
        ring_->hide();
        ring_->deleteLater();
        ring_ = nullptr;
    }
    if (parent == nullptr) return;
    if (ring_ == nullptr) ring_ = new FocusRingView(parent, control_);
    ring_->place();
}

}  // namespace marquell::toolkit
