// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/drawing/GenericControlSkin.h"

#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/drawing/BricksDrawing.h"
#include "toolkit/drawing/DrawingPalette.h"

namespace marquell::toolkit {

ControlSkin::Look GenericControlSkin::normalPushButtonDrawingStack(
    const PushButtonBrick& button) const {
    return DrawingStack{{{.function = drawPushButton,
                          .assets = {button.textProvider()},
                          .palette = defaultNormalFillAndStrokeAndTextColorsPalette()}}};
}

ControlSkin::Look GenericControlSkin::highlightedPushButtonDrawingStack(
    const PushButtonBrick& button) const {
    const GradientAndStrokeAndTextPalette palette{BricksDrawing::standardHighlightGradient(),
                                                  BricksDrawing::standardHighlightedStroke(),
                                                  BricksDrawing::standardHighlightedText()};
    return DrawingStack{{{.function = drawPushButtonWithGradient,
                          .assets = {button.textProvider()},
                          .palette = palette}}};
}

DrawingPalette GenericControlSkin::labelPalette() const {
    const DrawingPalette palette = defaultNormalFillAndStrokeAndTextColorsPalette();
    const auto* expected = std::get_if<FillAndStrokeAndTextPalette>(&palette);
    return expected ? TextColorPalette{expected->textColor} : ControlSkin::labelPalette();
}

DrawingPalette GenericControlSkin::defaultNormalFillAndStrokeAndTextColorsPalette() const {
    return FillAndStrokeAndTextPalette{BricksDrawing::standardFill(),
                                       BricksDrawing::standardStroke(),
                                       BricksDrawing::standardText()};
}

DrawingPalette GenericControlSkin::defaultHighlightedFillAndStrokeAndTextColorsPalette() const {
    return FillAndStrokeAndTextPalette{BricksDrawing::highlightGradientEnd(),
                                       BricksDrawing::standardHighlightedStroke(),
                                       BricksDrawing::standardHighlightedText()};
}

void GenericControlSkin::drawPushButton(QPainter& painter, const QRectF& frame,
                                        const std::vector<DrawingAsset>& assets,
                                        const DrawingPalette& palette) {
    const ShapeColors colors = shapeColors(palette);
    BricksDrawing::drawPushButton(painter, frame, colors.fill, colors.stroke, colors.text,
                                  titleIn(assets), BricksDrawing::lightShadow());
}

void GenericControlSkin::drawPushButtonWithGradient(QPainter& painter, const QRectF& frame,
                                                    const std::vector<DrawingAsset>& assets,
                                                    const DrawingPalette& palette) {
    const GradientShapeColors colors = gradientShapeColors(palette);
    BricksDrawing::drawPushButtonWithGradient(painter, frame, colors.gradient, colors.stroke,
                                              colors.text, titleIn(assets));
}

}  // namespace marquell::toolkit
