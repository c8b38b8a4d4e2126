// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/info/SplitDivider.h"

#include <QMouseEvent>

#include "toolkit/look/Metrics.h"
#include "window/info/MarquellSplitView.h"

namespace marquell::window {
namespace {

// Points, with the divider.
constexpr double gripBelow = 8;
constexpr double gripAbove = 5;

}  // namespace

SplitDivider::SplitDivider(MarquellSplitView* splitView)
    : QWidget(splitView), splitView_(*splitView) {
    setCursor(Qt::SplitVCursor);
}

void SplitDivider::place(bool isAbove) {
    const int y = splitView_.dividerPosition();
    const int height = toolkit::metrics().px(isAbove ? gripAbove : gripBelow);
    const int top = isAbove ? splitView_.height() - height : y;
    setGeometry(0, top, splitView_.width(), height);
    raise();
}

int SplitDivider::heightInSplitView(const QMouseEvent& event) const {
    return splitView_.mapFromGlobal(event.globalPosition()).toPoint().y();
}

void SplitDivider::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    grip_ = heightInSplitView(*event) - splitView_.dividerPosition();
}

void SplitDivider::mouseMoveEvent(QMouseEvent* event) {
    if (grip_) splitView_.dragDivider(heightInSplitView(*event) - *grip_);
}

void SplitDivider::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) grip_.reset();
}

void SplitDivider::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) splitView_.toggleByDoubleClick();
}

}  // namespace marquell::window
