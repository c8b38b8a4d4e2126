// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QGradient>

#include "toolkit/drawing/DrawingStack.h"

namespace marquell::toolkit {

/// The colours that a shape with a title takes from a palette.
struct ShapeColors {
    QColor fill, stroke, text;
};

struct GradientShapeColors {
    QGradientStops gradient;
    QColor stroke, text;
};

/// What a palette lacks is clear. One that is not meant for shapes is of the wrong case, and shows
/// it at once: everything is red.
ShapeColors shapeColors(const DrawingPalette& palette);

/// The same for shapes that are filled with a gradient; the wrong one runs from red to blue.
GradientShapeColors gradientShapeColors(const DrawingPalette& palette);

/// The text of the last text provider among the assets; empty without one.
QString titleIn(const std::vector<DrawingAsset>& assets);

}  // namespace marquell::toolkit
