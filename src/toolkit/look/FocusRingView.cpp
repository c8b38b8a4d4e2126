// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/FocusRingView.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Glyph.h"

namespace marquell::toolkit {

FocusRingView::FocusRingView(QWidget* parent, const QWidget* control)
    : QFocusFrame(parent), control_(control) {
    setAttribute(Qt::WA_NoSystemBackground);
}

void FocusRingView::place() {
    FocusRingShape shape = focusRingShapeOf(*control_);
    shape.rect.translate(control_->mapTo(parentWidget(), QPoint(0, 0)));
    if (shape != shape_) {
        shape_ = shape;
        setGeometry(shape.outerRect().toAlignedRect());
        update();
    }
    raise();
    show();
}

void FocusRingView::paintEvent(QPaintEvent* /*event*/) {
    if (control_ == nullptr) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double width = sharpWidth(painter, focusRingWidth());
    const double half = width / 2;
    const QRectF edge = snapped(painter, shape_.outerRect().translated(-pos()));
    painter.setPen(QPen(color(ColorRole::focusRing, control_), width, Qt::SolidLine, Qt::SquareCap,
                        Qt::MiterJoin));
    const double radius = std::max(0.0, shape_.outerRadius() - half);
    painter.drawRoundedRect(edge.adjusted(half, half, -half, -half), radius, radius);
}

}  // namespace marquell::toolkit
