// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTimeEdit>
#include <functional>
#include <utility>

#include "toolkit/bricks/Brick.h"

namespace marquell::toolkit {

/// A field for a date and time, in the form of the user's locale.
class DatePickerBrick : public Brick<QDateTimeEdit> {
public:
    explicit DatePickerBrick(QWidget* parent = nullptr);

    QDateTime dateValue() const { return dateTime(); }
    void setDateValue(const QDateTime& date) { setDateTime(date); }

    // In place of Qt's own, which cannot tell the program from the user: no call of the user's
    // function, whether the date is set or pushed by a bound.
    void setDateTime(const QDateTime& date) { quietly(&QDateTimeEdit::setDateTime, date); }
    void setDate(QDate date) { quietly(&QDateTimeEdit::setDate, date); }
    void setTime(QTime time) { quietly(&QDateTimeEdit::setTime, time); }
    void setMinimumDateTime(const QDateTime& least) {
        quietly(&QDateTimeEdit::setMinimumDateTime, least);
    }
    void setMaximumDateTime(const QDateTime& greatest) {
        quietly(&QDateTimeEdit::setMaximumDateTime, greatest);
    }
    void setMinimumDate(QDate least) { quietly(&QDateTimeEdit::setMinimumDate, least); }
    void setMaximumDate(QDate greatest) { quietly(&QDateTimeEdit::setMaximumDate, greatest); }
    void setMinimumTime(QTime least) { quietly(&QDateTimeEdit::setMinimumTime, least); }
    void setMaximumTime(QTime greatest) { quietly(&QDateTimeEdit::setMaximumTime, greatest); }
    void setDateTimeRange(const QDateTime& least, const QDateTime& greatest) {
        quietly(&QDateTimeEdit::setDateTimeRange, least, greatest);
    }
    void setDateRange(QDate least, QDate greatest) {
        quietly(&QDateTimeEdit::setDateRange, least, greatest);
    }
    void setTimeRange(QTime least, QTime greatest) {
        quietly(&QDateTimeEdit::setTimeRange, least, greatest);
    }
    void setTimeSpec(Qt::TimeSpec spec) { quietly(&QDateTimeEdit::setTimeSpec, spec); }
    void setDisplayFormat(const QString& format) {
        quietly(&QDateTimeEdit::setDisplayFormat, format);
    }

    /// Called when the user changes the date.
    std::function<void(const QDateTime& date)> dateValueChangedFunc;

private:
    template <typename... Wanted, typename... Given>
    void quietly(void (QDateTimeEdit::*change)(Wanted...), const Given&... values) {
        const bool wasSetByProgram = std::exchange(isSetByProgram_, true);
        (this->*change)(values...);
        isSetByProgram_ = wasSetByProgram;
    }

    bool isSetByProgram_ = false;
};

}  // namespace marquell::toolkit
