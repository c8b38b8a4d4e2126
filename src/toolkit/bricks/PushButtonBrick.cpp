// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/PushButtonBrick.h"

#include <QStyleOptionButton>
#include <utility>

#include "toolkit/bricks/CallIfSet.h"
#include "toolkit/bricks/PlainToolTip.h"
#include "toolkit/drawing/ControlSkin.h"
#include "toolkit/look/ButtonRole.h"
#include "toolkit/look/ControlBox.h"

namespace marquell::toolkit {

PushButtonBrick::PushButtonBrick(QWidget* parent) : PushButtonBrick(QString(), {}, parent) {}

PushButtonBrick::PushButtonBrick(const QString& title, std::function<void()> action,
                                 QWidget* parent)
    : PressedBrick<QPushButton>(parent), buttonPressFunction(std::move(action)) {
    connect(this, &QPushButton::clicked, this, [this] { callIfSet(buttonPressFunction); });
    setTitle(title);
    setControlSize(this, ControlSize::regular);
}

void PushButtonBrick::setGlyph(Glyph glyph, const QString& name) {
    glyph_ = glyph;
    setButtonRole(this, ButtonRole::glyph);
    setControlSize(this, ControlSize::mini);  // for the corners
    setAccessibleName(name);
    setPlainToolTip(*this, name);
}

QSize PushButtonBrick::sizeHint() const {
    if (!glyph_) return QPushButton::sizeHint();
    const int side = metrics().controlHeight(ControlSize::small);
    return {side, side};
}

void PushButtonBrick::apply(const ControlSkin& skin) {
    normalDrawing.stack = skin.normalPushButtonDrawingStack(*this);
    highlightedDrawing.stack = skin.highlightedPushButtonDrawingStack(*this);
    update();
}

void PushButtonBrick::drawAsStyle(QPainter& painter, const QRectF& frame) {
    QStyleOptionButton option;
    initStyleOption(&option);
    option.rect = frame.toAlignedRect();
    style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
    if (!glyph_) return;
    const ControlColors colors =
        controlColors(controlStateOf(option), surfaceOf(this), ButtonRole::glyph);
    drawGlyph(painter, *glyph_, frame, colors.text);
}

}  // namespace marquell::toolkit
