// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "toolkit/bricks/ButtonStateValueCheckBoxBrick.h"

namespace marquell::toolkit {

/// A check box with a title. Without an action it only carries its state, for a DefaultsBinding.
class CheckBoxBrick : public ButtonStateValueCheckBoxBrick {
public:
    explicit CheckBoxBrick(const QString& title, std::function<void(bool isOn)> action = {},
                           QWidget* parent = nullptr);

    void apply(const ControlSkin& skin) override;
};

}  // namespace marquell::toolkit
