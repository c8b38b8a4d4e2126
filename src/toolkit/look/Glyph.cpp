// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/Glyph.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "toolkit/look/Metrics.h"

namespace marquell::toolkit {
namespace {

/// A glyph as strokes about its middle, in points.
struct Strokes {
    double width;
    Qt::PenCapStyle cap;
    std::span<const QPointF> points;
    bool polyline;  // or a line from each point to the next but one
    bool onGrid;    // upright and level edges, which are to be sharp
};

constexpr std::array crossPoints = {QPointF(-3, -3), QPointF(3, 3), QPointF(-3, 3), QPointF(3, -3)};
constexpr std::array plusPoints = {QPointF(-5, 0), QPointF(5, 0), QPointF(0, -5), QPointF(0, 5)};
constexpr std::array chevronPoints = {QPointF(-4, -2), QPointF(0, 2), QPointF(4, -2)};
constexpr std::array checkPoints = {QPointF(-3.5, 0.25), QPointF(-1.25, 2.5), QPointF(3.5, -2.5)};

const Strokes& strokesOf(Glyph glyph) {
    static const std::array<Strokes, 4> all = {{
        {1.25, Qt::RoundCap, crossPoints, false, false},
        {2, Qt::FlatCap, plusPoints, false, true},
        {1.5, Qt::RoundCap, chevronPoints, true, false},
        {2, Qt::RoundCap, checkPoints, true, false},
    }};
    return all.at(static_cast<std::size_t>(glyph));
}

}  // namespace

double sharpWidth(const QPainter& painter, double width) {
    const QTransform transform = painter.deviceTransform();
    const double ratio = std::hypot(transform.m11(), transform.m12());
    return std::max(1.0, std::round(width * ratio)) / ratio;
}

double hairline(const QPainter& painter) { return sharpWidth(painter, 1); }

QPointF snapped(const QPainter& painter, const QPointF& point) {
    const QTransform transform = painter.deviceTransform();
    const QPointF device = transform.map(point);
    const QPointF whole(std::round(device.x()), std::round(device.y()));
    return transform.inverted().map(whole);
}

QRectF snapped(const QPainter& painter, const QRectF& rect) {
    return {snapped(painter, rect.topLeft()), snapped(painter, rect.bottomRight())};
}

void drawGlyph(QPainter& painter, Glyph glyph, const QRectF& box, const QColor& color) {
    const Strokes& strokes = strokesOf(glyph);
    const double scale = metrics().scale();
    double width = strokes.width * scale;
    QPointF middle = box.center();
    if (strokes.onGrid) {
        width = sharpWidth(painter, width);
        const QPointF half(width / 2, width / 2);
        middle = snapped(painter, middle - half) + half;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, width / scale, Qt::SolidLine, strokes.cap, Qt::RoundJoin));
    painter.translate(middle);
    painter.scale(scale, scale);
    const int count = static_cast<int>(strokes.points.size());
    if (strokes.polyline) {
        painter.drawPolyline(strokes.points.data(), count);
    } else {
        for (std::size_t i = 0; i + 1 < strokes.points.size(); i += 2) {
            painter.drawLine(strokes.points[i], strokes.points[i + 1]);
        }
    }
    painter.restore();
}

}  // namespace marquell::toolkit
