// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTimeEdit>
#include <functional>

#include "toolkit/bricks/Brick.h"

namespace marquell::toolkit {

/// A field for a date and time, in the form of the user's locale.
class DatePickerBrick : public Brick<QDateTimeEdit> {
public:
    explicit DatePickerBrick(QWidget* parent = nullptr);

    QDateTime dateValue() const { return dateTime(); }
    /// The user's function is not called.
    void setDateValue(const QDateTime& date);

    /// Called when the user changes the date.
    std::function<void(const QDateTime& date)> dateValueChangedFunc;
};

}  // namespace marquell::toolkit
