// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/DatePickerBrick.h"

#include <QSignalBlocker>

#include "toolkit/bricks/CallIfSet.h"

namespace marquell::toolkit {

DatePickerBrick::DatePickerBrick(QWidget* parent) : Brick<QDateTimeEdit>(parent) {
    connect(this, &QDateTimeEdit::dateTimeChanged, this,
            [this](const QDateTime& date) { callIfSet(dateValueChangedFunc, date); });
}

void DatePickerBrick::setDateValue(const QDateTime& date) {
    const QSignalBlocker silence(this);  // this is not the user
    setDateTime(date);
}

}  // namespace marquell::toolkit
