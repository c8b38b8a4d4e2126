// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/DatePickerBrick.h"

#include "toolkit/bricks/CallIfSet.h"

namespace marquell::toolkit {

DatePickerBrick::DatePickerBrick(QWidget* parent) : Brick<QDateTimeEdit>(parent) {
    connect(this, &QDateTimeEdit::dateTimeChanged, this, [this](const QDateTime& date) {
        if (!isSetByProgram_) callIfSet(dateValueChangedFunc, date);
    });
}

}  // namespace marquell::toolkit
