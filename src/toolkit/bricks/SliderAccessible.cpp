// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/SliderAccessible.h"

#include "toolkit/bricks/SliderBrick.h"

namespace marquell::toolkit {

SliderAccessible::SliderAccessible(SliderBrick& slider)
    : QAccessibleWidget(&slider, QAccessible::Slider), slider_(slider) {}

QString SliderAccessible::text(QAccessible::Text part) const {
    if (part == QAccessible::Value) return QString::number(slider_.floatValue());
    return QAccessibleWidget::text(part);
}

void* SliderAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QVariant SliderAccessible::currentValue() const { return double{slider_.floatValue()}; }

void SliderAccessible::setCurrentValue(const QVariant& value) {
    bool isNumber = false;
    const float wanted = value.toFloat(&isNumber);
    if (isNumber && slider_.isEnabled()) slider_.chooseValue(wanted);
}

QVariant SliderAccessible::maximumValue() const { return double{slider_.maximumValue()}; }

QVariant SliderAccessible::minimumValue() const { return double{slider_.minimumValue()}; }

QVariant SliderAccessible::minimumStepSize() const { return double{slider_.stepValue()}; }

}  // namespace marquell::toolkit
