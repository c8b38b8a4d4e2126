// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/IntegerTextField.h"

#include <QKeyEvent>
#include <algorithm>
#include <utility>

#include "toolkit/bricks/CallIfSet.h"
#include "toolkit/bricks/FieldSkin.h"

namespace marquell::toolkit {

IntegerTextField::IntegerTextField(QWidget* parent) : Brick<QLineEdit>(parent) {
    connect(this, &QLineEdit::textEdited, this,
            [this] { callReturnKeyFunctionIf(callsReturnKeyFunctionOnTextHasChanged); });
}

void IntegerTextField::setNumberFormatter(IntegerValidatingNumberFormatter* formatter) {
    setValidator(formatter);
    if (formatter != numberFormatter_) delete numberFormatter_;
    if (formatter != nullptr) formatter->setParent(this);
    numberFormatter_ = formatter;
}

std::int64_t IntegerTextField::integerValue() const {
    return integerFrom(text()).value_or(lastNumber_);
}

void IntegerTextField::setIntegerValue(std::int64_t value) {
    lastNumber_ = value;
    showNumber(value);
}

void IntegerTextField::addNumberListener(variables::ListenerList<std::int64_t>::Listener listener) {
    numberListeners_.add(std::move(listener));
}

bool IntegerTextField::increment() {
    return step(numberFormatter_ ? numberFormatter_->maximum : std::nullopt, 1);
}

bool IntegerTextField::decrement() {
    return step(numberFormatter_ ? numberFormatter_->minimum : std::nullopt, -1);
}

bool IntegerTextField::step(std::optional<std::int64_t> bound, int by) {
    if (!bound) return false;
    const std::int64_t number = integerValue();
    if (by > 0 ? number >= *bound : number <= *bound) return true;
    showNumber(number + by);
    settle();
    callReturnKeyFunctionIf(callsReturnKeyFunctionOnTextHasChanged);
    return true;
}

/// The user is done with the number.
void IntegerTextField::settle() {
    if (numberFormatter_ == nullptr) return;
    std::int64_t number = integerValue();
    if (numberFormatter_->minimum) number = std::max(number, *numberFormatter_->minimum);
    showNumber(number);
    if (std::exchange(lastNumber_, number) == number) return;
    numberListeners_.notify([this] { return lastNumber_; });
}

void IntegerTextField::showNumber(std::int64_t number) {
    const QString digits = QString::number(number);
    if (text() != digits) setText(digits);
}

void IntegerTextField::callReturnKeyFunctionIf(bool isWanted) const {
    if (isWanted) callIfSet(returnKeyActionFunction);
}

void IntegerTextField::apply(const ControlSkin& skin) { applyLabelColor(this, skin); }

void IntegerTextField::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const int key = event->key();
    if (isPlain && key == Qt::Key_Up && increment()) return;
    if (isPlain && key == Qt::Key_Down && decrement()) return;
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        settle();
        if (returnKeyActionFunction) {
            callIfSet(returnKeyActionFunction);
            return;
        }
    }
    QLineEdit::keyPressEvent(event);
}

void IntegerTextField::focusOutEvent(QFocusEvent* event) {
    // The field's own context menu takes the focus too, but the user has not left then.
    if (event->reason() != Qt::PopupFocusReason) {
        settle();
        callReturnKeyFunctionIf(callsReturnKeyFunctionOnResigningFirstResponder);
    }
    QLineEdit::focusOutEvent(event);
}

}  // namespace marquell::toolkit
