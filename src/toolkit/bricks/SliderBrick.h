// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSlider>
#include <functional>
#include <optional>

#include "toolkit/bricks/Brick.h"

namespace marquell::toolkit {

/// A slider over floating-point values, 0 to 1 at first.
class SliderBrick : public Brick<QSlider> {
public:
    explicit SliderBrick(QWidget* parent = nullptr);

    void setValueRange(float minimum, float maximum);
    float minimumValue() const { return minimum_; }
    float maximumValue() const { return maximum_; }
    float floatValue() const { return value_; }
    /// Taken into the range; the user's function is not called.
    void setFloatValue(float value);
    /// The same as the user's choice.
    void chooseValue(float value);
    /// How far an arrow key goes.
    float stepValue() const;

    /// 0 or 1: no marks. Else they are spread evenly, the outer ones at the ends of the range, and
    /// arrow keys go from one to the next.
    void setNumberOfTickMarks(int count);
    /// Where a mark is drawn, in the slider's coordinates; nowhere if marks are hidden or the
    /// slider has no such mark.
    QRectF rectOfTickMark(int index) const;

    /// Required, or the program ends when the user moves the knob: it is given the value that the
    /// user chose, and answers the value to be taken.
    std::function<float(float value)> sliderValueChangedFunc;
    bool returnZeroRectForTickMarks = false;
    std::optional<DrawingStack> knobStack;
    std::optional<DrawingStack> barStack;

protected:
    void drawAsStyle(QPainter& painter, const QRectF& frame) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void setOneStep(int step);
    void takeUsersPosition();
    void showValue();
    void drawPart(QPainter& painter, const std::optional<DrawingStack>& stack, const QRect& frame,
                  const QRegion& share);

    float minimum_ = 0;
    float maximum_ = 1;
    float value_ = 0;
    int tickMarks_ = 0;
};

}  // namespace marquell::toolkit
