// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/SliderBrick.h"

#include <QPointer>
#include <QSignalBlocker>
#include <QStyleOptionSlider>
#include <algorithm>
#include <cmath>

#include "toolkit/look/ColorRole.h"

namespace marquell::toolkit {
namespace {

constexpr int fineSteps = 10000;  // finer than any screen
constexpr double tickLength = 4;

}  // namespace

SliderBrick::SliderBrick(QWidget* parent) : Brick<QSlider>(parent) {
    setOrientation(Qt::Horizontal);
    setOneStep(fineSteps / 100);
    connect(this, &QSlider::valueChanged, this, [this] { takeUsersPosition(); });
}

void SliderBrick::setValueRange(float minimum, float maximum) {
    minimum_ = minimum;
    maximum_ = std::max(minimum, maximum);
    setFloatValue(value_);
}

void SliderBrick::setFloatValue(float value) {
    value_ = std::clamp(value, minimum_, maximum_);
    showValue();
}

void SliderBrick::setNumberOfTickMarks(int count) {
    tickMarks_ = count;
    setOneStep(count < 2 ? fineSteps / 100 : std::max(fineSteps / (count - 1), 1));
    update();
}

float SliderBrick::stepValue() const {
    return (maximum_ - minimum_) * static_cast<float>(singleStep()) / static_cast<float>(maximum());
}

/// The range becomes a multiple of the step, so that steps meet the marks.
void SliderBrick::setOneStep(int step) {
    const int count = tickMarks_ < 2 ? fineSteps / step : tickMarks_ - 1;
    const QSignalBlocker silence(this);  // this is not the user
    setRange(0, count * step);
    setSingleStep(step);
    setPageStep(std::max(step, maximum() / 10));
    showValue();
}

QRectF SliderBrick::rectOfTickMark(int index) const {
    if (returnZeroRectForTickMarks || tickMarks_ < 2 || index < 0 || index >= tickMarks_) return {};
    QStyleOptionSlider option;
    initStyleOption(&option);
    const int knob = style()->pixelMetric(QStyle::PM_SliderLength, &option, this);
    const int offset = QStyle::sliderPositionFromValue(0, tickMarks_ - 1, index, width() - knob,
                                                       option.upsideDown);
    const int length = metrics().px(tickLength);
    return QRectF(QRect(knob / 2 + offset, height() - length, 1, length));
}

/// The user has moved the knob.
void SliderBrick::takeUsersPosition() {
    const float share = static_cast<float>(value()) / static_cast<float>(maximum());
    chooseValue(minimum_ + (maximum_ - minimum_) * share);
}

void SliderBrick::chooseValue(float value) {
    const auto wantedFor = sliderValueChangedFunc;
    if (!wantedFor) qFatal("SliderBrick: sliderValueChangedFunc has not been set");
    setFloatValue(value);
    const float chosen = value_;
    const QPointer<SliderBrick> self(this);  // which the function may end
    const float wanted = wantedFor(chosen);
    if (self && wanted != chosen) setFloatValue(wanted);
}

void SliderBrick::showValue() {
    const float range = maximum_ - minimum_;
    const float share = range > 0 ? (value_ - minimum_) / range : 0;
    const QSignalBlocker silence(this);  // this is not the user
    setValue(static_cast<int>(std::lround(share * static_cast<float>(maximum()))));
}

void SliderBrick::drawAsStyle(QPainter& painter, const QRectF& frame) {
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.rect = frame.toAlignedRect();
    style()->drawComplexControl(QStyle::CC_Slider, &option, &painter, this);
}

void SliderBrick::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QColor tickColor =
        color(isEnabled() ? ColorRole::secondaryText : ColorRole::disabledText, this);
    for (int i = 0; i < tickMarks_; ++i) painter.fillRect(rectOfTickMark(i), tickColor);
    const auto partOf = [&](QStyle::SubControl part) {
        return style()->subControlRect(QStyle::CC_Slider, &option, part, this);
    };
    const QRect knob = partOf(QStyle::SC_SliderHandle);
    drawPart(painter, barStack, partOf(QStyle::SC_SliderGroove), QRegion(rect()) - knob);
    drawPart(painter, knobStack, knob, knob);
}

/// Draws by the stack, else what the style draws within `share`.
void SliderBrick::drawPart(QPainter& painter, const std::optional<DrawingStack>& stack,
                           const QRect& frame, const QRegion& share) {
    if (stack) {
        stack->draw(painter, QRectF(frame));
        return;
    }
    painter.save();
    painter.setClipRegion(share);
    delegateDrawingToSuper(painter, QRectF(rect()));
    painter.restore();
}

}  // namespace marquell::toolkit
