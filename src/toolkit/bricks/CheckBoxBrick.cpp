// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/CheckBoxBrick.h"

#include <utility>

#include "toolkit/drawing/ControlSkin.h"

namespace marquell::toolkit {

CheckBoxBrick::CheckBoxBrick(const QString& title, std::function<void(bool isOn)> action,
                             QWidget* parent)
    : ButtonStateValueCheckBoxBrick(parent) {
    setTitle(title);
    actualCheckboxFunc = std::move(action);
}

void CheckBoxBrick::apply(const ControlSkin& skin) {
    onStateDrawing.stack = skin.checkBoxOnDrawingStack(*this);
    offStateDrawing.stack = skin.checkBoxOffDrawingStack(*this);
    update();
}

}  // namespace marquell::toolkit
