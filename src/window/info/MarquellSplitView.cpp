// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/info/MarquellSplitView.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "toolkit/layout/LayoutRoot.h"
#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Metrics.h"
#include "window/info/SplitDivider.h"

namespace marquell::window {
namespace {

using toolkit::metrics;
using Delegate = MarquellSplitViewDelegate;

int dividerThickness() { return metrics().px(1); }

}  // namespace

MarquellSplitView::MarquellSplitView(QWidget* mainView, QWidget* infoPane, double paneHeight,
                                     bool isCollapsed)
    : delegate_(mainView, infoPane),
      divider_(new SplitDivider(this)),
      paneHeight_(Delegate::constrainHeightOfInfoPane(paneHeight)
                      .value_or(Delegate::minimumHeightOfInfoPane)),
      isCollapsed_(isCollapsed) {
    for (QWidget* view : {mainView, infoPane}) {
        view->setParent(this);
        toolkit::LayoutRoot::install(view);
    }
    infoPane->setVisible(!isCollapsed);
}

void MarquellSplitView::askForPaneHeight(double height) {
    const auto constrained = Delegate::constrainHeightOfInfoPane(height);
    if (constrained) paneHeight_ = *constrained;
    setCollapsed(!constrained);
}

void MarquellSplitView::dragDivider(int position) {
    askForPaneHeight((height() - dividerThickness() - position) / metrics().scale());
}

void MarquellSplitView::toggleByDoubleClick() { askForPaneHeight(isCollapsed_ ? paneHeight_ : 0); }

void MarquellSplitView::setCollapsed(bool isCollapsed) {
    const bool hasFocus = delegate_.infoPane->isAncestorOf(window()->focusWidget());
    if (isCollapsed && hasFocus) delegate_.mainView->setFocus(Qt::OtherFocusReason);
    isCollapsed_ = isCollapsed;
    placeViews();
    delegate_.infoPane->setVisible(!isCollapsed);
}

QSize MarquellSplitView::minimumContentSize() const {
    const QSize above = toolkit::requiredMinimumOf(delegate_.mainView);
    const QSize below = toolkit::requiredMinimumOf(delegate_.infoPane);
    return {std::max(above.width(), below.width()),
            above.height() + dividerThickness() + below.height()};
}

/// Layouts may try several sizes before the first that is seen.
void MarquellSplitView::keepShare() {
    if (!isVisible() || height() == 0) return;
    if (heightOfShares_ > 0 && !isCollapsed_) paneHeight_ *= double(height()) / heightOfShares_;
    heightOfShares_ = height();
}

void MarquellSplitView::placeViews() {
    const int room = height() - dividerThickness();
    const int most = std::max(room - toolkit::requiredMinimumOf(delegate_.mainView).height(), 0);
    const int wanted = static_cast<int>(std::lround(paneHeight_ * metrics().scale()));
    const int paneHeight = isCollapsed_ ? 0 : std::min(wanted, most);
    dividerPosition_ = room - paneHeight;
    delegate_.mainView->setGeometry(0, 0, width(), dividerPosition_);
    delegate_.infoPane->setGeometry(0, height() - paneHeight, width(), paneHeight);
    divider_->place(isCollapsed_);
    update();
}

void MarquellSplitView::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(0, dividerPosition_, width(), dividerThickness(),
                            color(toolkit::ColorRole::divider, this));
}

void MarquellSplitView::resizeEvent(QResizeEvent* /*event*/) {
    keepShare();
    placeViews();
}

void MarquellSplitView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    keepShare();
    placeViews();
}

void MarquellSplitView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange) placeViews();
}

}  // namespace marquell::window
