// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QRectF>

namespace marquell::toolkit {

/// The small signs on controls, drawn as vectors in one colour at paint time.
enum class Glyph { cross, plus, chevronDown, check };

/// Draws the glyph in the middle of `box` in its own size: 6 x 6, 10 x 10, 8 x 4 and 9 x 7 points.
void drawGlyph(QPainter& painter, Glyph glyph, const QRectF& box, const QColor& color);

/// The width of a line as sharp as the device can show it, in the painter's coordinates: whole
/// device pixels, at least one.
double sharpWidth(const QPainter& painter, double width);

/// The sharp width of a line of one px.
double hairline(const QPainter& painter);

/// The point, or the edges of the rectangle, moved onto the nearest device pixels.
QPointF snapped(const QPainter& painter, const QPointF& point);
QRectF snapped(const QPainter& painter, const QRectF& rect);

}  // namespace marquell::toolkit
