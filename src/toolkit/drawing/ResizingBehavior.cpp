// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/drawing/ResizingBehavior.h"

#include <QPainter>
#include <algorithm>

namespace marquell::toolkit {
namespace {

QSizeF fittedSize(ResizingBehavior behavior, const QSizeF& size, const QSizeF& target) {
    switch (behavior) {
        case ResizingBehavior::aspectFit:
            return size.scaled(target, Qt::KeepAspectRatio);
        case ResizingBehavior::aspectFill:
            return size.scaled(target, Qt::KeepAspectRatioByExpanding);
        case ResizingBehavior::stretch:
            return target;
        case ResizingBehavior::center:
            break;
    }
    return size;
}

}  // namespace

QRectF apply(ResizingBehavior behavior, const QRectF& rect, const QRectF& target) {
    QRectF fitted(QPointF(), fittedSize(behavior, rect.size(), target.size()));
    fitted.moveCenter(target.center());
    return fitted;
}

void fitCanvas(QPainter& painter, ResizingBehavior behavior, const QRectF& canvas,
               const QRectF& target) {
    const QRectF fitted = apply(behavior, canvas, target);
    painter.translate(fitted.topLeft());
    painter.scale(fitted.width() / canvas.width(), fitted.height() / canvas.height());
    painter.translate(-canvas.topLeft());
}

}  // namespace marquell::toolkit
