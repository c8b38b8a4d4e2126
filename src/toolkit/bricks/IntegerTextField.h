// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <cstdint>
#include <functional>

#include "toolkit/bricks/Brick.h"
#include "toolkit/bricks/IntegerValidatingNumberFormatter.h"
#include "toolkit/bricks/UserListeners.h"

namespace marquell::toolkit {

/// A field for a whole number. Arrow keys count it up and down between the formatter's bounds. On
/// Return, and when the user leaves the field, a number below the minimum is raised to it and what
/// is no number gives way to the last one. Listeners are told each new number that the user has
/// settled on so, or reached by an arrow key if it is no less than the minimum.
class IntegerTextField : public Brick<QLineEdit>, public UserListeners<std::int64_t> {
public:
    explicit IntegerTextField(QWidget* parent = nullptr);

    /// The field owns the formatter from then on. Null: any text, no steps.
    void setNumberFormatter(IntegerValidatingNumberFormatter* formatter);
    IntegerValidatingNumberFormatter* numberFormatter() const { return numberFormatter_; }

    /// The number shown; the last one while the text is none.
    std::int64_t integerValue() const;
    void setIntegerValue(std::int64_t value);

    /// One step, if there is a formatter with a bound in that direction (else false); at or beyond
    /// the bound nothing happens.
    bool increment();
    bool decrement();

    /// What happens when the user leaves the field.
    void finishEditing();

    void apply(const ControlSkin& skin) override;

    bool callsReturnKeyFunctionOnResigningFirstResponder = false;
    bool callsReturnKeyFunctionOnTextHasChanged = false;
    std::function<void()> returnKeyActionFunction;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool step(std::optional<std::int64_t> bound, int by);
    bool isBelowMinimum(std::int64_t number) const;
    bool settle();
    bool take(std::int64_t number);
    void showNumber(std::int64_t number);
    void callReturnKeyFunctionIf(bool isWanted) const;

    IntegerValidatingNumberFormatter* numberFormatter_ = nullptr;
    std::int64_t lastNumber_ = 0;  // settled, or set by the program
};

}  // namespace marquell::toolkit
