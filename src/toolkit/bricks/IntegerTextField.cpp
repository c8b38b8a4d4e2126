// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/IntegerTextField.h"

#include <QKeyEvent>
#include <QPointer>
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
    // Below the minimum the user is still on the way to it.
    if (!isBelowMinimum(number + by) && !take(number + by)) return true;
    callReturnKeyFunctionIf(callsReturnKeyFunctionOnTextHasChanged);
    return true;
}

bool IntegerTextField::isBelowMinimum(std::int64_t number) const {
    return numberFormatter_ && numberFormatter_->minimum && number < *numberFormatter_->minimum;
}

/// The user is done with the number. False if a listener has ended the field.
bool IntegerTextField::settle() {
    if (numberFormatter_ == nullptr) return true;
    std::int64_t number = integerValue();
    if (isBelowMinimum(number)) number = *numberFormatter_->minimum;
    showNumber(number);
    return take(number);
}

/// False if a listener has ended the field.
bool IntegerTextField::take(std::int64_t number) {
    return std::exchange(lastNumber_, number) == number || tellUserListeners(number);
}

void IntegerTextField::finishEditing() {
    if (settle()) callReturnKeyFunctionIf(callsReturnKeyFunctionOnResigningFirstResponder);
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
    const bool canStep =
        (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && !isReadOnly();
    const int key = event->key();
    if (canStep && key == Qt::Key_Up && increment()) return;
    if (canStep && key == Qt::Key_Down && decrement()) return;
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        if (!settle()) return;
        if (returnKeyActionFunction) {
            callIfSet(returnKeyActionFunction);
            return;
        }
    }
    QLineEdit::keyPressEvent(event);
}

void IntegerTextField::focusOutEvent(QFocusEvent* event) {
    // The field's own context menu takes the focus too, but the user has not left then.
    const QPointer<IntegerTextField> self(this);
    if (event->reason() != Qt::PopupFocusReason) finishEditing();
    if (self) QLineEdit::focusOutEvent(event);
}

}  // namespace marquell::toolkit
