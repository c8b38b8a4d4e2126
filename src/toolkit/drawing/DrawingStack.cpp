// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/drawing/DrawingStack.h"

namespace marquell::toolkit {

void DrawingStack::draw(QPainter& painter, const QRectF& frame) const {
    for (const DrawingOperation& operation : operations) {
        painter.save();
        operation.function(painter, operation.frameAdjuster(frame), operation.assets,
                           operation.palette);
        painter.restore();
    }
}

}  // namespace marquell::toolkit
