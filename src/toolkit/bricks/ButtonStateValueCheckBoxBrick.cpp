// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/ButtonStateValueCheckBoxBrick.h"

#include <QStyleOptionButton>

#include "toolkit/bricks/CallIfSet.h"

namespace marquell::toolkit {

ButtonStateValueCheckBoxBrick::ButtonStateValueCheckBoxBrick(QWidget* parent)
    : TitledBrick<QCheckBox>(parent) {
    connect(this, &QCheckBox::clicked, this, [this](bool isOn) {
        if (tellUserListeners(isOn)) callIfSet(actualCheckboxFunc, isOn);
    });
}

void ButtonStateValueCheckBoxBrick::drawAsStyle(QPainter& painter, const QRectF& frame) {
    QStyleOptionButton option;
    initStyleOption(&option);
    option.rect = frame.toAlignedRect();
    style()->drawControl(QStyle::CE_CheckBox, &option, &painter, this);
}

const DrawPair& ButtonStateValueCheckBoxBrick::currentDrawPair() const {
    return isChecked() ? onStateDrawing : offStateDrawing;
}

}  // namespace marquell::toolkit
