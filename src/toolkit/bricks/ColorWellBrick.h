// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QColorDialog>
#include <QPointer>
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

    /// Called when the user has chosen a colour.
    std::function<void(const QColor& color)> valueChangedFunc;

protected:
    void drawAsStyle(QPainter& painter, const QRectF& frame) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void openColorDialog();

    QColor color_ = Qt::black;
    QPointer<QColorDialog> dialog_;  // while it is open
};

}  // namespace marquell::toolkit
