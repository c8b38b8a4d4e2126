// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/column/ParameterScrollView.h"

#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

#include "toolkit/look/Metrics.h"

namespace marquell::window {

namespace {

constexpr double focusMargin = 8;  // points

}  // namespace

ParameterScrollView::ParameterScrollView(QWidget* parent)
    : QScrollArea(parent), bar_(new QScrollBar(Qt::Vertical, this)) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    // The area's own bar stays hidden and does the scrolling; this one is what the user sees of it.
    QScrollBar* own = verticalScrollBar();
    connect(own, &QScrollBar::valueChanged, bar_, &QScrollBar::setValue);
    connect(bar_, &QScrollBar::valueChanged, own, &QScrollBar::setValue);
    connect(own, &QScrollBar::rangeChanged, this, &ParameterScrollView::placeBar);
    // The area itself looks only after a focus that stays inside.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* control) {
        const bool isInside =
            control != nullptr && widget() != nullptr && widget()->isAncestorOf(control);
        if (isInside) ensureWidgetVisible(control, 0, toolkit::metrics().px(focusMargin));
    });
}

void ParameterScrollView::setDocumentView(QWidget* view) {
    setWidget(view);
    view->setAutoFillBackground(false);  // which the area has just set
    fitDocument();
}

bool ParameterScrollView::isScrolled() const { return verticalScrollBar()->value() > 0; }

bool ParameterScrollView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) fitDocument();
    return QScrollArea::eventFilter(watched, event);
}

void ParameterScrollView::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    fitDocument();
    placeBar();
}

void ParameterScrollView::fitDocument() {
    if (widget() == nullptr || widget()->layout() == nullptr) return;
    const QSize least = widget()->layout()->minimumSize();
    widget()->resize(std::max(viewport()->width(), least.width()), least.height());
}

void ParameterScrollView::placeBar() {
    const QScrollBar* own = verticalScrollBar();
    bar_->setRange(own->minimum(), own->maximum());
    bar_->setPageStep(own->pageStep());
    bar_->setSingleStep(own->singleStep());
    bar_->setValue(own->value());
    const int extent = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, bar_);
    bar_->setGeometry(width() - extent, 0, extent, height());
    bar_->setVisible(own->maximum() > own->minimum());
    bar_->raise();
}

}  // namespace marquell::window
