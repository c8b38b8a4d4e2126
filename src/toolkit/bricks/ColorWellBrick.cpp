// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/ColorWellBrick.h"

#include <QAccessible>
#include <QColorDialog>

#include "toolkit/bricks/CallIfSet.h"
#include "toolkit/look/ControlBox.h"

namespace marquell::toolkit {
namespace {

constexpr double wellWidth = 44;
constexpr double frameWidth = 4;  // of the control about the colour

}  // namespace

ColorWellBrick::ColorWellBrick(QWidget* parent) : Brick<QAbstractButton>(parent) {
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QAbstractButton::clicked, this, [this] { openColorDialog(); });
}

void ColorWellBrick::setColor(const QColor& color) {
    if (color == color_) return;
    color_ = color;
    update();
    QAccessibleValueChangeEvent change(this, color_.name());
    QAccessible::updateAccessibility(&change);
}

QSize ColorWellBrick::sizeHint() const {
    return {metrics().px(wellWidth), metrics().controlHeight(controlSizeOf(this))};
}

void ColorWellBrick::drawAsStyle(QPainter& painter, const QRectF& frame) {
    const ControlState state = {
        .enabled = isEnabled(), .hovered = underMouse(), .pressed = isDown()};
    const ControlColors box = controlColors(state, surfaceOf(this));
    const double radius = controlRadius(controlSizeOf(this));
    drawBox(painter, frame, radius, box.fill, box.border);
    const double margin = metrics().px(frameWidth);
    if (!isEnabled()) painter.setOpacity(0.4);
    drawBox(painter, frame.adjusted(margin, margin, -margin, -margin), radius / 2, color_,
            box.border);
}

void ColorWellBrick::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    delegateDrawingToSuper(painter, QRectF(rect()));
}

void ColorWellBrick::openColorDialog() {
    if (dialog_) {
        dialog_->raise();
        dialog_->activateWindow();
        return;
    }
    dialog_ = new QColorDialog(color_, this);
    dialog_->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog_, &QColorDialog::colorSelected, this, [this](const QColor& chosen) {
        setColor(chosen);
        callIfSet(valueChangedFunc, chosen);
    });
    dialog_->open();
}

}  // namespace marquell::toolkit
