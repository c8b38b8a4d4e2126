// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/drawing/BricksDrawing.h"

#include <QPainter>
#include <QPainterPath>
#include <array>
#include <span>

#include "toolkit/look/ControlBox.h"
#include "toolkit/look/Glyph.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/look/TextLine.h"

namespace marquell::toolkit {
namespace {

constexpr QRectF smallCanvas(0, 0, 16, 16);
constexpr QRectF knobCanvas(0, 0, 20, 20);

void fillRounded(QPainter& painter, const QRectF& box, double radius, const QBrush& brush) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawRoundedRect(box, radius, radius);
    painter.restore();
}

/// Layers that grow outwards from the shape and add up to its shadow. `point`: the length of one in
/// the painter's coordinates.
void castShadow(QPainter& painter, const QRectF& box, double radius, const DrawingShadow& shadow,
                double point) {
    constexpr int layers = 4;
    QColor tint = shadow.color;
    tint.setAlphaF(tint.alphaF() / (2 * layers));
    for (int i = 1; i <= layers; ++i) {
        const double grown = point * shadow.blurRadius * i / layers;
        const QRectF layer = box.adjusted(-grown, -grown, grown, grown);
        fillRounded(painter, layer.translated(point * shadow.offset), radius + grown, tint);
    }
}

/// The box of a button, which leaves room for the shadow.
QRectF buttonBox(const QPainter& painter, const QRectF& frame) {
    const double room = 2 * metrics().scale();
    return snapped(painter, frame.adjusted(room, room, -room, -room));
}

double buttonRadius() { return controlRadius(ControlSize::mini); }

QColor unlessClear(const QColor& color) { return color.alpha() > 0 ? color : QColor(); }

void drawTitle(QPainter& painter, const QRectF& box, const QColor& color, const QString& title,
               Qt::Alignment alignment) {
    painter.save();
    painter.setPen(color);
    drawTextLine(painter, box, title, alignment);
    painter.restore();
}

void drawCenteredTitle(QPainter& painter, const QRectF& box, const QColor& color,
                       const QString& title) {
    const double padding = metrics().px(8);
    drawTitle(painter, box.adjusted(padding, 0, -padding, 0), color, title, Qt::AlignHCenter);
}

/// An open line through the points of a canvas.
void drawStrokes(QPainter& painter, std::span<const QPointF> points, double width,
                 const QColor& color) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(points.data(), static_cast<int>(points.size()));
}

/// The box of a check box and its title; answers where the box is.
QRectF drawCheckBox(QPainter& painter, const QRectF& frame, const QColor& fill,
                    const QColor& stroke, const QColor& textColor, const QString& title) {
    const double side = metrics().px(16);
    const QRectF box(frame.left(), frame.center().y() - side / 2, side, side);
    drawBox(painter, box, controlRadius(ControlSize::mini), unlessClear(fill), unlessClear(stroke));
    drawTitle(painter, frame.adjusted(side + metrics().px(8), 0, 0, 0), textColor, title,
              Qt::AlignLeading);
    return snapped(painter, box);
}

}  // namespace

void BricksDrawing::drawPushButton(QPainter& painter, const QRectF& frame, const QColor& fill,
                                   const QColor& stroke, const QColor& textColor,
                                   const QString& title, const DrawingShadow& shadow) {
    const QRectF box = buttonBox(painter, frame);
    if (fill.alpha() > 0) castShadow(painter, box, buttonRadius(), shadow, metrics().scale());
    drawBox(painter, box, buttonRadius(), unlessClear(fill), unlessClear(stroke));
    drawCenteredTitle(painter, box, textColor, title);
}

void BricksDrawing::drawPushButtonWithGradient(QPainter& painter, const QRectF& frame,
                                               const QGradientStops& gradient, const QColor& stroke,
                                               const QColor& textColor, const QString& title) {
    const QRectF box = buttonBox(painter, frame);
    QLinearGradient downwards(box.topLeft(), box.bottomLeft());
    downwards.setStops(gradient);
    const double half = hairline(painter) / 2;
    fillRounded(painter, box.adjusted(half, half, -half, -half), buttonRadius() - half, downwards);
    drawBox(painter, box, buttonRadius(), QColor(), unlessClear(stroke));
    drawCenteredTitle(painter, box, textColor, title);
}

void BricksDrawing::drawRoundedRegularButton(QPainter& painter, const QRectF& frame,
                                             const QString& title) {
    drawPushButton(painter, frame, standardFill(), standardStroke(), standardText(), title,
                   lightShadow());
}

void BricksDrawing::drawRoundedRegularButtonHighlighted(QPainter& painter, const QRectF& frame,
                                                        const QString& title) {
    drawPushButtonWithGradient(painter, frame, standardHighlightGradient(),
                               standardHighlightedStroke(), standardHighlightedText(), title);
}

void BricksDrawing::drawDarkRoundedRegularButton(QPainter& painter, const QRectF& frame,
                                                 const QString& title) {
    const DrawingShadow none = {Qt::transparent, {}, 0};  // it would glow on a dark ground
    drawPushButton(painter, frame, darkFill(), darkStroke(), darkText(), title, none);
}

void BricksDrawing::drawRoundedPullDownButton(QPainter& painter, const QRectF& frame,
                                              const QColor& fill, const QColor& stroke,
                                              const QColor& textColor, const QString& title) {
    const QRectF box = buttonBox(painter, frame);
    drawBox(painter, box, buttonRadius(), unlessClear(fill), unlessClear(stroke));
    const double padding = metrics().px(8);
    const double arrowSide = metrics().px(16);
    QRectF arrow(0, 0, arrowSide, arrowSide);
    arrow.moveCenter(QPointF(box.right() - padding / 2 - arrowSide / 2, box.center().y()));
    drawCanvas2(painter, arrow, textColor);
    QRectF line = box.adjusted(padding, 0, 0, 0);
    line.setRight(arrow.left());
    drawTitle(painter, line, textColor, title, Qt::AlignLeading);
}

void BricksDrawing::drawDarkRoundedPullDownButton(QPainter& painter, const QRectF& frame,
                                                  const QString& title) {
    drawRoundedPullDownButton(painter, frame, darkFill(), darkStroke(), darkText(), title);
}

void BricksDrawing::drawCheckBoxInOnState(QPainter& painter, const QRectF& frame,
                                          const QColor& fill, const QColor& stroke,
                                          const QColor& textColor, const QString& title) {
    const QRectF box = drawCheckBox(painter, frame, fill, stroke, textColor, title);
    drawCheck(painter, box, textColor);
}

void BricksDrawing::drawCheckBoxInOffState(QPainter& painter, const QRectF& frame,
                                           const QColor& fill, const QColor& stroke,
                                           const QColor& textColor, const QString& title) {
    drawCheckBox(painter, frame, fill, stroke, textColor, title);
}

void BricksDrawing::drawCheck(QPainter& painter, const QRectF& frame, const QColor& color,
                              ResizingBehavior resizing) {
    constexpr std::array points = {QPointF(4.5, 8.25), QPointF(6.75, 10.5), QPointF(11.5, 5.5)};
    painter.save();
    fitCanvas(painter, resizing, smallCanvas, frame);
    drawStrokes(painter, points, 2, color);
    painter.restore();
}

void BricksDrawing::drawSliderKnob(QPainter& painter, const QRectF& frame, const QColor& fill,
                                   const QColor& stroke, ResizingBehavior resizing) {
    constexpr QRectF knob(2, 2, 16, 16);
    constexpr double radius = 8;
    painter.save();
    fitCanvas(painter, resizing, knobCanvas, frame);
    if (fill.alpha() > 0) castShadow(painter, knob, radius, lightShadow(), 1);
    drawBox(painter, knob, radius, unlessClear(fill), unlessClear(stroke));
    painter.restore();
}

void BricksDrawing::drawCanvas2(QPainter& painter, const QRectF& frame, const QColor& color,
                                ResizingBehavior resizing) {
    constexpr std::array down = {QPointF(4, 6), QPointF(8, 10), QPointF(12, 6)};
    painter.save();
    fitCanvas(painter, resizing, smallCanvas, frame);
    drawStrokes(painter, down, 1.5, color);
    painter.restore();
}

void BricksDrawing::drawCanvas3(QPainter& painter, const QRectF& frame, const QColor& color,
                                ResizingBehavior resizing) {
    constexpr std::array up = {QPointF(5, 6), QPointF(8, 3), QPointF(11, 6)};
    constexpr std::array down = {QPointF(5, 10), QPointF(8, 13), QPointF(11, 10)};
    painter.save();
    fitCanvas(painter, resizing, smallCanvas, frame);
    drawStrokes(painter, up, 1.5, color);
    drawStrokes(painter, down, 1.5, color);
    painter.restore();
}

}  // namespace marquell::toolkit
