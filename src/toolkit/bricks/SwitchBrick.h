// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <functional>

#include "toolkit/bricks/Brick.h"
#include "toolkit/bricks/UserListeners.h"
#include "toolkit/look/FocusRing.h"

namespace marquell::toolkit {

/// A switch between off and on, whose state is isChecked().
class SwitchBrick : public Brick<QAbstractButton>,
                    public FocusRingShaped,
                    public UserListeners<bool> {
public:
    explicit SwitchBrick(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    FocusRingPlace focusRingPlace() const override;
    QRectF focusRingRect() const override;
    double focusRingRadius() const override;

    /// Called when the user turns the switch.
    std::function<void(bool isOn)> checkBoxChangeFunc;

protected:
    void drawAsStyle(QPainter& painter, const QRectF& frame) override;
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override;

private:
    QRectF trackIn(const QRectF& frame) const;
};

}  // namespace marquell::toolkit
