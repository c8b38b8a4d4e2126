// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "toolkit/drawing/ControlSkin.h"

namespace marquell::toolkit {

/// A light look for push buttons and labels, to be varied by its palettes.
class GenericControlSkin : public ControlSkin {
public:
    Look normalPushButtonDrawingStack(const PushButtonBrick& button) const override;
    Look highlightedPushButtonDrawingStack(const PushButtonBrick& button) const override;
    DrawingPalette labelPalette() const override;

    virtual DrawingPalette defaultNormalFillAndStrokeAndTextColorsPalette() const;
    virtual DrawingPalette defaultHighlightedFillAndStrokeAndTextColorsPalette() const;

    // Functions of drawing operations. The title is the text of the last text provider.
    static void drawPushButton(QPainter& painter, const QRectF& frame,
                               const std::vector<DrawingAsset>& assets,
                               const DrawingPalette& palette);
    static void drawPushButtonWithGradient(QPainter& painter, const QRectF& frame,
                                           const std::vector<DrawingAsset>& assets,
                                           const DrawingPalette& palette);
};

}  // namespace marquell::toolkit
