// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>
#include <optional>

#include "toolkit/drawing/DrawingStack.h"

namespace marquell::toolkit {

class CheckBoxBrick;
class PopUpButtonBrick;
class PullDownButtonBrick;
class PushButtonBrick;

/// Answers the looks of bricks. A look that is absent is that of the style: here all are, and a
/// skin overrides those that it has. Stacks may be drawn for as long as the brick lives.
class ControlSkin {
public:
    using Look = std::optional<DrawingStack>;

    virtual ~ControlSkin() = default;

    virtual Look normalPushButtonDrawingStack(const PushButtonBrick& button) const;
    virtual Look highlightedPushButtonDrawingStack(const PushButtonBrick& button) const;
    virtual Look pullDownButtonDrawingStack(const PullDownButtonBrick& pullDownButton) const;
    virtual Look highlightedPullDownButtonDrawingStack(
        const PullDownButtonBrick& pullDownButton) const;
    virtual Look popUpButtonDrawingStack(const PopUpButtonBrick& popUpButton) const;
    virtual Look highlightedPopUpButtonDrawingStack(const PopUpButtonBrick& popUpButton) const;
    virtual Look checkBoxOnDrawingStack(const CheckBoxBrick& checkBox) const;
    virtual Look checkBoxOffDrawingStack(const CheckBoxBrick& checkBox) const;

    /// The colour of labels: red, as whenever a palette is not one that was asked for.
    virtual DrawingPalette labelPalette() const;
};

}  // namespace marquell::toolkit
