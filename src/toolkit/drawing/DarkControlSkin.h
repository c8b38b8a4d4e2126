// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "toolkit/drawing/GenericControlSkin.h"

namespace marquell::toolkit {

/// A dark look for push buttons, pull-down buttons and check boxes.
class DarkControlSkin : public GenericControlSkin {
public:
    Look highlightedPushButtonDrawingStack(const PushButtonBrick& button) const override;
    Look pullDownButtonDrawingStack(const PullDownButtonBrick& pullDownButton) const override;
    Look highlightedPullDownButtonDrawingStack(
        const PullDownButtonBrick& pullDownButton) const override;
    Look checkBoxOnDrawingStack(const CheckBoxBrick& checkBox) const override;
    Look checkBoxOffDrawingStack(const CheckBoxBrick& checkBox) const override;

    DrawingPalette defaultNormalFillAndStrokeAndTextColorsPalette() const override;
    DrawingPalette defaultHighlightedFillAndStrokeAndTextColorsPalette() const override;

    /// The functions of the skin's operations; the title is the text of the last text provider.
    class DrawingFunctions {
    public:
        static void drawCheckBoxInOnState(QPainter& painter, const QRectF& frame,
                                          const std::vector<DrawingAsset>& assets,
                                          const DrawingPalette& palette);
        static void drawCheckBoxInOffState(QPainter& painter, const QRectF& frame,
                                           const std::vector<DrawingAsset>& assets,
                                           const DrawingPalette& palette);
    };

    static void drawRoundedPullDownButton(QPainter& painter, const QRectF& frame,
                                          const std::vector<DrawingAsset>& assets,
                                          const DrawingPalette& palette);
};

}  // namespace marquell::toolkit
