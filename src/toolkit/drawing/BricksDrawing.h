// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QGradient>
#include <QPointF>
#include <QString>

#include "toolkit/drawing/ResizingBehavior.h"

class QPainter;

namespace marquell::toolkit {

/// A soft shadow below a shape.
struct DrawingShadow {
    QColor color;
    QPointF offset;  // in points, y downwards
    double blurRadius = 0;
};

/// The parts of skins: their colours, made once, and the drawings of controls. Buttons and check
/// boxes grow with their frame, have their edges on the pixel grid and take the painter's font; the
/// other drawings have a size of their own and are fitted to the frame.
class BricksDrawing {
public:
    static const QColor& standardFill();
    static const QColor& standardStroke();
    static const QColor& standardText();
    static const QColor& standardHighlightedText();
    static const QColor& standardHighlightedStroke();
    static const QColor& darkFill();
    static const QColor& darkStroke();
    static const QColor& darkText();
    static const QColor& darkHighlightedFill();
    static const QColor& darkHighlightedStroke();
    static const QColor& darkHighlightedText();
    static const QColor& highlightGradientStart();
    static const QColor& highlightGradientEnd();
    static const QGradientStops& standardHighlightGradient();
    static const DrawingShadow& lightShadow();

    /// A shape without fill casts no shadow.
    static void drawPushButton(QPainter& painter, const QRectF& frame, const QColor& fill,
                               const QColor& stroke, const QColor& textColor, const QString& title,
                               const DrawingShadow& shadow);
    static void drawPushButtonWithGradient(QPainter& painter, const QRectF& frame,
                                           const QGradientStops& gradient, const QColor& stroke,
                                           const QColor& textColor, const QString& title);
    static void drawRoundedRegularButton(QPainter& painter, const QRectF& frame,
                                         const QString& title);
    static void drawRoundedRegularButtonHighlighted(QPainter& painter, const QRectF& frame,
                                                    const QString& title);
    static void drawDarkRoundedRegularButton(QPainter& painter, const QRectF& frame,
                                             const QString& title);
    static void drawRoundedPullDownButton(QPainter& painter, const QRectF& frame,
                                          const QColor& fill, const QColor& stroke,
                                          const QColor& textColor, const QString& title);
    static void drawDarkRoundedPullDownButton(QPainter& painter, const QRectF& frame,
                                              const QString& title);

    // A check box of 16 x 16 points at the left, behind it the title.
    static void drawCheckBoxInOnState(QPainter& painter, const QRectF& frame, const QColor& fill,
                                      const QColor& stroke, const QColor& textColor,
                                      const QString& title);
    static void drawCheckBoxInOffState(QPainter& painter, const QRectF& frame, const QColor& fill,
                                       const QColor& stroke, const QColor& textColor,
                                       const QString& title);

    /// The tick alone, 16 x 16.
    static void drawCheck(QPainter& painter, const QRectF& frame, const QColor& color,
                          ResizingBehavior resizing = ResizingBehavior::aspectFit);
    /// 20 x 20.
    static void drawSliderKnob(QPainter& painter, const QRectF& frame, const QColor& fill,
                               const QColor& stroke,
                               ResizingBehavior resizing = ResizingBehavior::aspectFit);
    /// The arrow of a pull-down button, 16 x 16.
    static void drawCanvas2(QPainter& painter, const QRectF& frame, const QColor& color,
                            ResizingBehavior resizing = ResizingBehavior::aspectFit);
    /// The two arrows of a pop-up button, 16 x 16.
    static void drawCanvas3(QPainter& painter, const QRectF& frame, const QColor& color,
                            ResizingBehavior resizing = ResizingBehavior::aspectFit);
};

}  // namespace marquell::toolkit
