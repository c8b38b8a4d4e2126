// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/SmartTextField.h"

#include "toolkit/bricks/CallIfSet.h"
#include "toolkit/bricks/FieldSkin.h"

namespace marquell::toolkit {

SmartTextField::SmartTextField(QWidget* parent) : Brick<QLineEdit>(parent) {
    const auto tellText = [this] { callIfSet(textChangedAction, text()); };
    connect(this, &QLineEdit::textEdited, this, [this, tellText] {
        if (tellUserListeners(text())) tellText();
    });
    connect(this, &QLineEdit::returnPressed, this, tellText);
    connect(this, &QLineEdit::returnPressed, this, [this] { callIfSet(buttonPressFunction); });
}

IntrinsicSize SmartTextField::intrinsicContentSize() const {
    return {-1, static_cast<double>(sizeHint().height())};
}

void SmartTextField::apply(const ControlSkin& skin) { applyLabelColor(this, skin); }

}  // namespace marquell::toolkit
