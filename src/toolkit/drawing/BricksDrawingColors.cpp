// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/drawing/BricksDrawing.h"
#include "toolkit/look/ColorRole.h"

namespace marquell::toolkit {
namespace {

QColor rgba(float red, float green, float blue, float alpha) {
    return QColor::fromRgbF(red, green, blue, alpha);
}

QColor halfway(const QColor& a, const QColor& b) {
    return rgba((a.redF() + b.redF()) / 2, (a.greenF() + b.greenF()) / 2,
                (a.blueF() + b.blueF()) / 2, (a.alphaF() + b.alphaF()) / 2);
}

/// The house's light grey, half translucent.
QColor lightShadowColor() {
    QColor gray = color(ColorRole::waitingText, Surface::light);
    gray.setAlphaF(0.5F);
    return gray;
}

struct Cache {
    QColor standardFill = rgba(1.0F, 1.0F, 1.0F, 1.0F);
    QColor standardStroke = rgba(0.46F, 0.46F, 0.46F, 1.0F);
    QColor standardText = rgba(0.0F, 0.0F, 0.0F, 1.0F);
    QColor standardHighlightedText = rgba(1.0F, 1.0F, 1.0F, 1.0F);
    QColor standardHighlightedStroke = rgba(0.0F, 0.345F, 0.88F, 1.0F);
    QColor darkFill = rgba(0.218F, 0.212F, 0.212F, 1.0F);
    QColor darkStroke = rgba(0.8F, 0.8F, 0.8F, 1.0F);
    QColor darkText = rgba(0.851F, 0.851F, 0.851F, 0.969F);
    QColor darkHighlightedFill = rgba(0.634F, 0.634F, 0.634F, 1.0F);
    QColor darkHighlightedStroke = rgba(0.393F, 0.8F, 0.32F, 0.0F);
    QColor darkHighlightedText = rgba(0.0F, 0.0F, 0.0F, 1.0F);
    QColor highlightGradientStart = rgba(0.352F, 0.666F, 0.993F, 1.0F);
    QColor highlightGradientEnd = rgba(0.0F, 0.484F, 0.905F, 1.0F);
    QGradientStops standardHighlightGradient = {
        {0.0, highlightGradientStart},
        {0.5, halfway(highlightGradientStart, highlightGradientEnd)},
        {1.0, highlightGradientEnd}};
    DrawingShadow lightShadow = {
        .color = lightShadowColor(), .offset = QPointF(0, 0.5), .blurRadius = 2};
};

const Cache& cache() {
    static const Cache cache;
    return cache;
}

}  // namespace

const QColor& BricksDrawing::standardFill() { return cache().standardFill; }
const QColor& BricksDrawing::standardStroke() { return cache().standardStroke; }
const QColor& BricksDrawing::standardText() { return cache().standardText; }
const QColor& BricksDrawing::standardHighlightedText() { return cache().standardHighlightedText; }
const QColor& BricksDrawing::standardHighlightedStroke() {
    return cache().standardHighlightedStroke;
}
const QColor& BricksDrawing::darkFill() { return cache().darkFill; }
const QColor& BricksDrawing::darkStroke() { return cache().darkStroke; }
const QColor& BricksDrawing::darkText() { return cache().darkText; }
const QColor& BricksDrawing::darkHighlightedFill() { return cache().darkHighlightedFill; }
const QColor& BricksDrawing::darkHighlightedStroke() { return cache().darkHighlightedStroke; }
const QColor& BricksDrawing::darkHighlightedText() { return cache().darkHighlightedText; }
const QColor& BricksDrawing::highlightGradientStart() { return cache().highlightGradientStart; }
const QColor& BricksDrawing::highlightGradientEnd() { return cache().highlightGradientEnd; }
const QGradientStops& BricksDrawing::standardHighlightGradient() {
    return cache().standardHighlightGradient;
}
const DrawingShadow& BricksDrawing::lightShadow() { return cache().lightShadow; }

}  // namespace marquell::toolkit
