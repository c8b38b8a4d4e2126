// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/SwitchBrick.h"

#include <QStyleOptionButton>

#include "toolkit/bricks/CallIfSet.h"
#include "toolkit/look/ColorRole.h"
#include "toolkit/look/ControlBox.h"

namespace marquell::toolkit {
namespace {

constexpr double trackMargin = 2;   // above and below the track
constexpr double knobMargin = 3;    // within the track
constexpr double trackShape = 1.8;  // width to height

}  // namespace

SwitchBrick::SwitchBrick(QWidget* parent) : Brick<QAbstractButton>(parent) {
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QAbstractButton::clicked, this, [this](bool isOn) {
        if (tellUserListeners(isOn)) callIfSet(checkBoxChangeFunc, isOn);
    });
}

QSize SwitchBrick::sizeHint() const {
    const int height = metrics().controlHeight(controlSizeOf(this));
    const int track = height - 2 * metrics().px(trackMargin);
    return {qRound(track * trackShape), height};
}

/// A switch that is on has the colour of the ring.
FocusRingPlace SwitchBrick::focusRingPlace() const {
    return isChecked() ? FocusRingPlace::outsideWithGap : FocusRingPlace::outside;
}

QRectF SwitchBrick::focusRingRect() const { return trackIn(QRectF(rect())); }

double SwitchBrick::focusRingRadius() const { return focusRingRect().height() / 2; }

/// The track of a switch that is given a frame: at its leading side, in the middle of its height.
QRectF SwitchBrick::trackIn(const QRectF& frame) const {
    const QSize hint = sizeHint();
    const double height = hint.height() - 2 * metrics().px(trackMargin);
    QRectF track(frame.x(), frame.center().y() - height / 2, hint.width(), height);
    if (layoutDirection() == Qt::RightToLeft) track.moveRight(frame.right());
    return track;
}

void SwitchBrick::drawAsStyle(QPainter& painter, const QRectF& frame) {
    const ControlState state = {
        .enabled = isEnabled(), .hovered = underMouse(), .pressed = isDown()};
    const Surface surface = surfaceOf(this);
    const ControlColors colors =
        controlColors(state, surface, isChecked() ? ButtonRole::accent : ButtonRole::plain);
    const QRectF track = trackIn(frame);
    drawBox(painter, track, track.height() / 2, colors.fill, colors.border);
    const double margin = metrics().px(knobMargin);
    QRectF knob = track.adjusted(margin, margin, -margin, -margin);
    const bool isAtRight = isChecked() == (layoutDirection() == Qt::LeftToRight);
    if (isAtRight) knob.setLeft(knob.right() - knob.height());
    knob.setWidth(knob.height());
    const ColorRole off = isEnabled() ? ColorRole::controlBorder : ColorRole::controlBorderDisabled;
    drawBox(painter, knob, knob.height() / 2, isChecked() ? colors.text : color(off, surface),
            QColor());
}

void SwitchBrick::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    delegateDrawingToSuper(painter, QRectF(rect()));
}

bool SwitchBrick::hitButton(const QPoint& position) const {
    return trackIn(QRectF(rect())).contains(position);
}

}  // namespace marquell::toolkit
