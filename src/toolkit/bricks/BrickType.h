// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>

class QPainter;

namespace marquell::toolkit {

class ControlSkin;

/// The size of the bricks that a factory makes.
enum class BrickSize { standard, mini, small, inherited };

/// What every brick can do beside what its control can.
class BrickType {
public:
    virtual ~BrickType() = default;

    /// The sizes of controls with the fonts that go with them.
    virtual BrickType& regular() = 0;
    virtual BrickType& small() = 0;
    virtual BrickType& mini() = 0;

    /// Takes the drawing stacks of this kind of brick from a skin.
    virtual void apply(const ControlSkin& skin) = 0;

    /// Draws the brick as the style does, whatever its skin, into a frame in its own coordinates.
    virtual void delegateDrawingToSuper(QPainter& painter, const QRectF& frame) = 0;
};

}  // namespace marquell::toolkit
