// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>

class QPainter;

namespace marquell::toolkit {

/// How a drawing of fixed size fills the frame that it is drawn into.
enum class ResizingBehavior {
    aspectFit,   // as large as fits, undistorted
    aspectFill,  // as small as covers the frame, undistorted
    stretch,     // exactly the frame
    center,      // in its own size
};

/// Where a drawing of the size of `rect` comes to lie in `target`: in its middle.
QRectF apply(ResizingBehavior behavior, const QRectF& rect, const QRectF& target);

/// From now on the painter's coordinates are those of a drawing of the size of `canvas` in
/// `target`.
void fitCanvas(QPainter& painter, ResizingBehavior behavior, const QRectF& canvas,
               const QRectF& target);

}  // namespace marquell::toolkit
