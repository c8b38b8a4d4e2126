// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEvent>
#include <QPainter>
#include <QWheelEvent>
#include <QWidget>
#include <vector>

#include "toolkit/bricks/BrickAccessibility.h"
#include "toolkit/bricks/BrickType.h"
#include "toolkit/bricks/BricksDrawingHelper.h"
#include "toolkit/look/Metrics.h"

namespace marquell::toolkit {

/// What all bricks do alike, over the control that they are. The wheel never changes a value: it
/// goes on to whatever scrolls.
template <typename Control>
class Brick : public Control, public BrickType {
public:
    explicit Brick(QWidget* parent) : Control(parent) {
        provideBrickAccessibility();
        if (this->focusPolicy() == Qt::WheelFocus) this->setFocusPolicy(Qt::StrongFocus);
    }

    BrickType& regular() override { return sized(ControlSize::regular); }
    BrickType& small() override { return sized(ControlSize::small); }
    BrickType& mini() override { return sized(ControlSize::mini); }

    void apply(const ControlSkin&) override {}

    void delegateDrawingToSuper(QPainter& painter, const QRectF& frame) final {
        painter.save();
        painter.setFont(this->font());  // the painter may be of another view or an image
        painter.setLayoutDirection(this->layoutDirection());
        drawAsStyle(painter, frame);
        painter.restore();
    }

protected:
    /// Finds the brick's font and direction set, and need not restore what it changes.
    virtual void drawAsStyle(QPainter& painter, const QRectF& frame) {
        this->render(&painter, frame.topLeft().toPoint(), QRegion(), QWidget::DrawChildren);
    }

    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

    void changeEvent(QEvent* event) override {
        Control::changeEvent(event);
        const auto type = event->type();
        if (type == QEvent::FontChange || type == QEvent::StyleChange) this->updateGeometry();
        if (type == QEvent::PaletteChange) this->update();
    }

private:
    BrickType& sized(ControlSize size) {
        setControlSize(this, size);
        return *this;
    }
};

/// A brick that can be drawn otherwise than by the style, depending on its state.
template <typename Control>
class DrawnBrick : public Brick<Control> {
public:
    using Brick<Control>::Brick;

protected:
    void drawAsStyle(QPainter& painter, const QRectF& frame) override = 0;
    virtual const DrawPair& currentDrawPair() const = 0;
    /// What drawing functions may use of the brick.
    virtual std::vector<DrawingAsset> assets() const { return {}; }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        BricksDrawingHelper::draw(painter, QRectF(this->rect()), currentDrawPair(), *this,
                                  assets());
    }
};

}  // namespace marquell::toolkit
