// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QComboBox>
#include <functional>

#include "toolkit/bricks/Brick.h"

namespace marquell::toolkit {

/// What the bricks that open a list have in common.
class ListBrick : public DrawnBrick<QComboBox> {
public:
    using DrawnBrick<QComboBox>::DrawnBrick;

    void showPopup() override;

    /// Called before the list opens.
    std::function<void()> buttonPressFunction;
    DrawPair normalDrawing;
    DrawPair highlightedDrawing;

protected:
    /// Brings the list up to date before it opens.
    virtual void prepareList() {}
    const DrawPair& currentDrawPair() const override;
};

}  // namespace marquell::toolkit
