// SPDX-License-Identifier: GPL-3.0-or-later
#include <utility>

#include "platform/Localization.h"
#include "toolkit/bricks/BricksFactory.h"
#include "toolkit/bricks/CheckBoxBrick.h"
#include "toolkit/bricks/DatePickerBrick.h"
#include "toolkit/bricks/IntegerTextField.h"
#include "toolkit/bricks/Label.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/PullDownButtonBrick.h"
#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/bricks/SliderBrick.h"
#include "toolkit/bricks/SmartTextField.h"
#include "toolkit/look/ButtonRole.h"
#include "toolkit/walls/IntrinsicSizeWalls.h"
#include "toolkit/walls/SpecialEffectWalls.h"
#include "toolkit/walls/TabWall.h"

namespace marquell::toolkit {
namespace {

template <typename View>
View* added(BricksFactory& factory, View* view, const LayoutClosure& constraints) {
    factory.internalAddBrick(view, constraints);
    return view;
}

/// For views that do not ask for a size themselves. In points; what is not positive is left open.
template <typename View>
View* addedInSize(BricksFactory& factory, View* view, const QSizeF& size,
                  const LayoutClosure& constraints) {
    return added(factory, view, [&](LayoutConstraintMaker& make) {
        if (size.width() > 0) make.width(size.width());
        if (size.height() > 0) make.height(size.height());
        if (constraints) constraints(make);
    });
}

}  // namespace

Label* BricksFactory::label(const QString& title, const LayoutClosure& constraints) {
    return added(*this, standardLabel(title), constraints);
}

SmartTextField* BricksFactory::textField(const QString& title, const LayoutClosure& constraints) {
    auto* const field = new SmartTextField;
    field->setText(title);
    return added(*this, field, constraints);
}

IntegerTextField* BricksFactory::integerTextField(std::int64_t initialValue, std::int64_t minValue,
                                                  std::int64_t maxValue,
                                                  const LayoutClosure& constraints) {
    auto* const field = new IntegerTextField;
    auto* const formatter = new IntegerValidatingNumberFormatter;
    formatter->minimum = minValue;
    formatter->maximum = maxValue;
    field->setNumberFormatter(formatter);
    field->setIntegerValue(initialValue);
    return added(*this, field, constraints);
}

PushButtonBrick* BricksFactory::pushButton(const QString& title, std::function<void()> action,
                                           const LayoutClosure& constraints) {
    return added(*this, new PushButtonBrick(title, std::move(action)), constraints);
}

PushButtonBrick* BricksFactory::borderlessButton(const QString& title, std::function<void()> action,
                                                 const LayoutClosure& constraints) {
    auto* const button = new PushButtonBrick(title, std::move(action));
    setButtonRole(button, ButtonRole::glyph);
    return added(*this, button, constraints);
}

PushButtonBrick* BricksFactory::helpButton(std::function<void()> action,
                                           const LayoutClosure& constraints) {
    auto* button = pushButton(QStringLiteral("?"), std::move(action), constraints);
    button->setAccessibleName(
        QString::fromStdString(platform::localized("Help", "accessible name")));
    return button;
}

CheckBoxBrick* BricksFactory::smartCheckBoxButton(const QString& title,
                                                  std::function<void(bool)> action,
                                                  const LayoutClosure& constraints) {
    return added(*this, new CheckBoxBrick(title, std::move(action)), constraints);
}

PopUpButtonBrick* BricksFactory::popupButton(const LayoutClosure& constraints) {
    return added(*this, new PopUpButtonBrick, constraints);
}

PullDownButtonBrick* BricksFactory::pullDownButton(const QString& title,
                                                   const LayoutClosure& constraints) {
    return added(*this, new PullDownButtonBrick(title), constraints);
}

PullDownButtonBrick* BricksFactory::pullDownButton(const QIcon& image,
                                                   const LayoutClosure& constraints) {
    return added(*this, new PullDownButtonBrick(image), constraints);
}

PullDownButtonBrick* BricksFactory::pullDownButtonBrick(const QString& title,
                                                        const LayoutClosure& constraints) {
    return pullDownButton(title, constraints);
}

PullDownButtonBrick* BricksFactory::smartPullDownButton(const QString& title,
                                                        const LayoutClosure& constraints) {
    return pullDownButton(title, constraints);
}

PullDownButtonBrick* BricksFactory::smartPullDownButton(const QIcon& image,
                                                        const LayoutClosure& constraints) {
    return pullDownButton(image, constraints);
}

SegmentedControlBrick* BricksFactory::segmentedControl(const QStringList& titles,
                                                       std::function<void(int)> action,
                                                       const LayoutClosure& constraints) {
    auto* const segments = new SegmentedControlBrick(titles);
    segments->selectionChangedFunction = std::move(action);
    return added(*this, segments, constraints);
}

SliderBrick* BricksFactory::slider(std::function<float(float)> action, bool zeroTicksRectHack,
                                   const LayoutClosure& constraints) {
    auto* const slider = new SliderBrick;
    slider->sliderValueChangedFunc = std::move(action);
    slider->returnZeroRectForTickMarks = zeroTicksRectHack;
    return added(*this, slider, constraints);
}

DatePickerBrick* BricksFactory::datePickerBrick(const LayoutClosure& constraints) {
    return added(*this, new DatePickerBrick, constraints);
}

Wall* BricksFactory::wall(const QSizeF& size, const LayoutClosure& constraints) {
    return added<Wall>(*this, new WallWithInstrinsicSize(size), constraints);
}

TabWall* BricksFactory::tabWall(const LayoutClosure& constraints) {
    return added(*this, new TabWall, constraints);
}

WallWithSpecialEffectsView* BricksFactory::specialEffectWall(const QSizeF& size,
                                                             const LayoutClosure& constraints) {
    return addedInSize(*this, new WallWithSpecialEffectsView, size, constraints);
}

WallWithUnconfiguredSpecialEffectsView* BricksFactory::unconfiguredSpecialEffectWall(
    const QSizeF& size, const LayoutClosure& constraints) {
    return addedInSize(*this, new WallWithUnconfiguredSpecialEffectsView, size, constraints);
}

ViewWithInstrinsicSize* BricksFactory::viewWithIntrinicSize(const QSizeF& size,
                                                            const LayoutClosure& constraints) {
    return added(*this, new ViewWithInstrinsicSize(size), constraints);
}

}  // namespace marquell::toolkit
