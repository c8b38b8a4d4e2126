// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/drawing/ControlSkin.h"

namespace marquell::toolkit {

ControlSkin::Look ControlSkin::normalPushButtonDrawingStack(
    const PushButtonBrick& /*button*/) const {
    return {};
}

ControlSkin::Look ControlSkin::highlightedPushButtonDrawingStack(
    const PushButtonBrick& button) const {
    return normalPushButtonDrawingStack(button);
}

ControlSkin::Look ControlSkin::pullDownButtonDrawingStack(
    const PullDownButtonBrick& /*pullDownButton*/) const {
    return {};
}

ControlSkin::Look ControlSkin::highlightedPullDownButtonDrawingStack(
    const PullDownButtonBrick& pullDownButton) const {
    return pullDownButtonDrawingStack(pullDownButton);
}

ControlSkin::Look ControlSkin::popUpButtonDrawingStack(
    const PopUpButtonBrick& /*popUpButton*/) const {
    return {};
}

ControlSkin::Look ControlSkin::highlightedPopUpButtonDrawingStack(
    const PopUpButtonBrick& popUpButton) const {
    return popUpButtonDrawingStack(popUpButton);
}

ControlSkin::Look ControlSkin::checkBoxOnDrawingStack(const CheckBoxBrick& /*checkBox*/) const {
    return {};
}

ControlSkin::Look ControlSkin::checkBoxOffDrawingStack(const CheckBoxBrick& /*checkBox*/) const {
    return {};
}

DrawingPalette ControlSkin::labelPalette() const { return TextColorPalette{Qt::red}; }

}  // namespace marquell::toolkit
