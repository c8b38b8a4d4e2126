// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <functional>

#include "toolkit/bricks/TitledBrick.h"
#include "toolkit/bricks/UserListeners.h"

namespace marquell::toolkit {

/// A check box that tells of its new state when the user changes it.
class ButtonStateValueCheckBoxBrick : public TitledBrick<QCheckBox>, public UserListeners<bool> {
public:
    explicit ButtonStateValueCheckBoxBrick(QWidget* parent = nullptr);

    std::function<void(bool isOn)> actualCheckboxFunc;
    DrawPair onStateDrawing;
    DrawPair offStateDrawing;

protected:
    void drawAsStyle(QPainter& painter, const QRectF& frame) override;
    const DrawPair& currentDrawPair() const override;
};

}  // namespace marquell::toolkit
