// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/drawing/MarquellStyleKit.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <functional>

#include "toolkit/look/Glyph.h"
#include "toolkit/look/Metrics.h"

namespace marquell::toolkit {
namespace {

double points(double length) { return length * metrics().scale(); }

/// The frame with its upper left and lower right corners rounded.
QPainterPath leafPath(const QRectF& frame, double radius) {
    const QSizeF corner(2 * radius, 2 * radius);
    QPainterPath path(QPointF(frame.left(), frame.bottom()));
    path.lineTo(frame.left(), frame.top() + radius);
    path.arcTo(QRectF(frame.topLeft(), corner), 180, -90);
    path.lineTo(frame.topRight());
    path.lineTo(frame.right(), frame.bottom() - radius);
    path.arcTo(QRectF(frame.bottomRight() - QPointF(2 * radius, 2 * radius), corner), 0, -90);
    path.closeSubpath();
    return path;
}

/// The frame with its lower right corner rounded.
QPainterPath tabPath(const QRectF& frame, double wantedRadius) {
    const double radius = std::min({wantedRadius, frame.width(), frame.height()});
    const QSizeF corner(2 * radius, 2 * radius);
    QPainterPath path(frame.topLeft());
    path.lineTo(frame.topRight());
    path.lineTo(frame.right(), frame.bottom() - radius);
    path.arcTo(QRectF(frame.bottomRight() - QPointF(2 * radius, 2 * radius), corner), 0, -90);
    path.lineTo(frame.bottomLeft());
    path.closeSubpath();
    return path;
}

QPixmap imageOf(const QSizeF& size, const std::function<void(QPainter&, const QRectF&)>& draw) {
    QPixmap image(size.toSize());
    image.fill(Qt::transparent);
    QPainter painter(&image);
    draw(painter, QRectF(QPointF(), size));
    return image;
}

}  // namespace

const QColor& MarquellStyleKit::parameterWallBlue() {
    static const QColor blue = QColor::fromRgbF(0.088F, 0.42F, 0.696F);
    return blue;
}

const QColor& MarquellStyleKit::sampleColor() {
    static const QColor sample = QColor::fromRgbF(0.037F, 0.669F, 0.894F);
    return sample;
}

void MarquellStyleKit::drawParameterWallBackground(QPainter& painter, const QRectF& frame,
                                                   const QRectF& /*paramColorFrame*/) {
    painter.fillRect(frame, parameterWallBlue());
}

void MarquellStyleKit::drawRightWallBackground(QPainter& painter, const QRectF& frame) {
    painter.fillRect(frame, Qt::white);
}

void MarquellStyleKit::drawFragmentTop(QPainter& /*painter*/, const QRectF& /*frame*/) {}

void MarquellStyleKit::drawFragmentBottom(QPainter& painter, const QRectF& frame) {
    static const QColor grey = QColor::fromRgbF(0.73F, 0.73F, 0.73F);
    const double line = hairline(painter);
    const double inset = points(16);
    QRectF strip = snapped(painter, frame.adjusted(inset, 0, -inset, 0));
    strip.setTop(strip.bottom() - line);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(grey);
    painter.drawRoundedRect(strip, line / 2, line / 2);
    painter.restore();
}

void MarquellStyleKit::drawFragmentBackground(QPainter& painter, const QRectF& frame) {
    static const QColor fill = QColor::fromRgbF(0.427F, 0.68F, 0.89F);
    static const QColor stroke = QColor::fromRgbF(0.138F, 0.692F, 0.87F);
    const double line = hairline(painter);
    const double inset = points(2);
    const double radius = points(8);
    const QRectF edge = snapped(painter, frame.adjusted(inset, inset, -inset, -inset));
    const QRectF inner = edge.adjusted(line, line, -line, -line);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    // A pen of one pixel would not reach into the sharp corners.
    painter.fillPath(leafPath(edge, radius), stroke);
    painter.fillPath(leafPath(inner, radius - line), fill);
    painter.restore();
}

void MarquellStyleKit::drawFragmentFrame(QPainter& painter, const QRectF& paramColorFrame,
                                         const QRectF& theFrame, double height) {
    const QRectF colored = snapped(painter, paramColorFrame);
    QRectF band = colored;
    band.setHeight(points(height));
    QRectF bar = colored;
    bar.setWidth(points(4));
    painter.save();
    painter.fillRect(snapped(painter, theFrame), Qt::white);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(tabPath(snapped(painter, band), points(9)), parameterWallBlue());
    painter.fillRect(snapped(painter, bar), parameterWallBlue());
    painter.restore();
}

void MarquellStyleKit::drawRoundedSquareMask(QPainter& painter, const QRectF& frame) {
    constexpr double radiusOfSide = 0.22;
    const double radius = radiusOfSide * std::min(frame.width(), frame.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(frame, radius, radius);
    painter.restore();
}

QPixmap MarquellStyleKit::imageOfFragmentBackground(const QSizeF& imageSize) {
    return imageOf(imageSize, drawFragmentBackground);
}

QPixmap MarquellStyleKit::imageOfRoundedSquareMask(const QSizeF& imageSize) {
    return imageOf(imageSize, drawRoundedSquareMask);
}

}  // namespace marquell::toolkit
