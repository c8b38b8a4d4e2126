// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QColor>
#include <functional>

#include "toolkit/bricks/Brick.h"

namespace marquell::toolkit {

/// Shows a colour; pressed, it opens the dialog of colours.
class ColorWellBrick : public Brick<QAbstractButton> {
public:
    explicit ColorWellBrick(QWidget* parent = nullptr);

    const QColor& color() const { return color_; }
    /// The user's function is not called.
    void setColor(const QColor& color);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    void delegateDrawingToSuper(QPainter& painter, const QRectF& frame) override;

    /// Called when the user has chosen a colour.
    std::function<void(const QColor& color)> valueChangedFunc;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void openColorDialog();

    QColor color_ = Qt::black;
};

}  // namespace marquell::toolkit
