// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/drawing/DarkControlSkin.h"

#include "toolkit/bricks/CheckBoxBrick.h"
#include "toolkit/bricks/PullDownButtonBrick.h"
#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/drawing/BricksDrawing.h"
#include "toolkit/drawing/DrawingPalette.h"

namespace marquell::toolkit {
namespace {

/// The look of any button of the skin.
template <typename Button>
DrawingStack stackOf(const DrawingOperation::Function& function, const Button& button,
                     const DrawingPalette& palette) {
    return {{{.function = function, .assets = {button.textProvider()}, .palette = palette}}};
}

}  // namespace

ControlSkin::Look DarkControlSkin::highlightedPushButtonDrawingStack(
    const PushButtonBrick& button) const {
    return stackOf(drawPushButton, button, defaultHighlightedFillAndStrokeAndTextColorsPalette());
}

ControlSkin::Look DarkControlSkin::pullDownButtonDrawingStack(
    const PullDownButtonBrick& pullDownButton) const {
    return stackOf(drawRoundedPullDownButton, pullDownButton,
                   defaultNormalFillAndStrokeAndTextColorsPalette());
}

ControlSkin::Look DarkControlSkin::highlightedPullDownButtonDrawingStack(
    const PullDownButtonBrick& pullDownButton) const {
    return stackOf(drawRoundedPullDownButton, pullDownButton,
                   defaultHighlightedFillAndStrokeAndTextColorsPalette());
}

ControlSkin::Look DarkControlSkin::checkBoxOnDrawingStack(const CheckBoxBrick& checkBox) const {
    return stackOf(DrawingFunctions::drawCheckBoxInOnState, checkBox,
                   defaultNormalFillAndStrokeAndTextColorsPalette());
}

ControlSkin::Look DarkControlSkin::checkBoxOffDrawingStack(const CheckBoxBrick& checkBox) const {
    return stackOf(DrawingFunctions::drawCheckBoxInOffState, checkBox,
                   defaultNormalFillAndStrokeAndTextColorsPalette());
}

DrawingPalette DarkControlSkin::defaultNormalFillAndStrokeAndTextColorsPalette() const {
    return FillAndStrokeAndTextPalette{BricksDrawing::darkFill(), BricksDrawing::darkStroke(),
                                       Qt::green};
}

DrawingPalette DarkControlSkin::defaultHighlightedFillAndStrokeAndTextColorsPalette() const {
    return FillAndStrokeAndTextPalette{BricksDrawing::darkHighlightedFill(),
                                       BricksDrawing::darkHighlightedStroke(),
                                       BricksDrawing::darkHighlightedText()};
}

void DarkControlSkin::drawRoundedPullDownButton(QPainter& painter, const QRectF& frame,
                                                const std::vector<DrawingAsset>& assets,
                                                const DrawingPalette& palette) {
    const ShapeColors colors = shapeColors(palette);
    BricksDrawing::drawRoundedPullDownButton(painter, frame, colors.fill, colors.stroke,
                                             colors.text, titleIn(assets));
}

void DarkControlSkin::DrawingFunctions::drawCheckBoxInOnState(
    QPainter& painter, const QRectF& frame, const std::vector<DrawingAsset>& assets,
    const DrawingPalette& palette) {
    const ShapeColors colors = shapeColors(palette);
    BricksDrawing::drawCheckBoxInOnState(painter, frame, colors.fill, colors.stroke, colors.text,
                                         titleIn(assets));
}

void DarkControlSkin::DrawingFunctions::drawCheckBoxInOffState(
    QPainter& painter, const QRectF& frame, const std::vector<DrawingAsset>& assets,
    const DrawingPalette& palette) {
    const ShapeColors colors = shapeColors(palette);
    BricksDrawing::drawCheckBoxInOffState(painter, frame, colors.fill, colors.stroke, colors.text,
                                          titleIn(assets));
}

}  // namespace marquell::toolkit
