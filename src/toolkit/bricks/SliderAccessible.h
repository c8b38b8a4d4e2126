// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessibleWidget>

namespace marquell::toolkit {

class SliderBrick;

/// A slider by its floating-point value. A new value is the user's.
class SliderAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit SliderAccessible(SliderBrick& slider);

    QString text(QAccessible::Text part) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

private:
    SliderBrick& slider_;
};

}  // namespace marquell::toolkit
