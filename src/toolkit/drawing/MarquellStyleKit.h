// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPixmap>
#include <QSizeF>

#include "toolkit/drawing/ResizingBehavior.h"

class QPainter;

namespace marquell::toolkit {

/// The parts of the window that the program draws itself. Lengths in points; "lower" and "top" are
/// what is seen. Icons have a canvas of 19 x 19; `Mini` is the small drawing for the segments of
/// the preview modes, the others fill the canvas.
class MarquellStyleKit {
public:
    static const QColor& parameterWallBlue();
    static const QColor& sampleColor();

    /// Fills the frame with the blue of the parameter wall; the colour's own frame plays no part.
    static void drawParameterWallBackground(QPainter& painter, const QRectF& frame,
                                            const QRectF& paramColorFrame);
    static void drawRightWallBackground(QPainter& painter, const QRectF& frame);
    /// Draws nothing: the ground of the column shows through.
    static void drawFragmentTop(QPainter& painter, const QRectF& frame);
    /// A line along the lower edge that closes the fragment above.
    static void drawFragmentBottom(QPainter& painter, const QRectF& frame);
    static void drawFragmentBackground(QPainter& painter, const QRectF& frame);
    /// A white panel in `theFrame`; in `paramColorFrame` a bar on the left and a band for the
    /// title, `height` high, at the top.
    static void drawFragmentFrame(QPainter& painter, const QRectF& paramColorFrame,
                                  const QRectF& theFrame, double height);
    static void drawRoundedSquareMask(QPainter& painter, const QRectF& frame);

    // The icons of the two preview modes: a small table, a page of text.
    static void drawTablePreviewIcon(QPainter& painter, const QRectF& frame,
                                     const QColor& color = parameterWallBlue(),
                                     ResizingBehavior resizing = ResizingBehavior::aspectFit);
    static void drawTablePreviewIconMini(QPainter& painter, const QRectF& frame,
                                         const QColor& color = parameterWallBlue(),
                                         ResizingBehavior resizing = ResizingBehavior::aspectFit);
    static void drawTextOutputIcon(QPainter& painter, const QRectF& frame,
                                   const QColor& color = parameterWallBlue(),
                                   ResizingBehavior resizing = ResizingBehavior::aspectFit);
    static void drawTextOutputIconMini(QPainter& painter, const QRectF& frame,
                                       const QColor& color = parameterWallBlue(),
                                       ResizingBehavior resizing = ResizingBehavior::aspectFit);
    // What the images with twice and three times the pixels show: the same.
    static void drawTablePreviewIconMini2(QPainter& painter, const QRectF& frame,
                                          const QColor& color = parameterWallBlue(),
                                          ResizingBehavior resizing = ResizingBehavior::aspectFit);
    static void drawTablePreviewIconMini3(QPainter& painter, const QRectF& frame,
                                          const QColor& color = parameterWallBlue(),
                                          ResizingBehavior resizing = ResizingBehavior::aspectFit);
    static void drawTextOutputIconMini2(QPainter& painter, const QRectF& frame,
                                        const QColor& color = parameterWallBlue(),
                                        ResizingBehavior resizing = ResizingBehavior::aspectFit);
    static void drawTextOutputIconMini3(QPainter& painter, const QRectF& frame,
                                        const QColor& color = parameterWallBlue(),
                                        ResizingBehavior resizing = ResizingBehavior::aspectFit);

    // The icons as images, made once for each colour and each number of device pixels to the point.
    static QPixmap imageOfTablePreviewIcon(double devicePixelRatio,
                                           const QColor& color = parameterWallBlue());
    static QPixmap imageOfTablePreviewIconMini(double devicePixelRatio,
                                               const QColor& color = parameterWallBlue());
    static QPixmap imageOfTextOutputIcon(double devicePixelRatio,
                                         const QColor& color = parameterWallBlue());
    static QPixmap imageOfTextOutputIconMini(double devicePixelRatio,
                                             const QColor& color = parameterWallBlue());

    // The same with twice and three times the pixels, whatever the screen has.
    static QPixmap imageOfTablePreviewIconMini2();
    static QPixmap imageOfTablePreviewIconMini3();
    static QPixmap imageOfTextOutputIconMini2();
    static QPixmap imageOfTextOutputIconMini3();

    // Drawn anew at each call, one pixel to the point.
    static QPixmap imageOfFragmentBackground(const QSizeF& imageSize);
    static QPixmap imageOfRoundedSquareMask(const QSizeF& imageSize);
};

}  // namespace marquell::toolkit
