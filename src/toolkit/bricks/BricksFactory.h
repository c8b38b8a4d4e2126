// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "toolkit/bricks/BrickType.h"
#include "toolkit/layout/LayoutConstraintMaker.h"

namespace marquell::toolkit {

class CheckBoxBrick;
class DatePickerBrick;
class IntegerTextField;
class Label;
class PopUpButtonBrick;
class PullDownButtonBrick;
class PushButtonBrick;
class SegmentedControlBrick;
class SliderBrick;
class SmartTextField;
class TabWall;
class ViewWithInstrinsicSize;
class Wall;
class WallWithSpecialEffectsView;
class WallWithUnconfiguredSpecialEffectsView;

/// Places bricks on a view and knows the distances there. What a factory does not say itself it
/// asks of the factory of the next wall above, in the end of the top-level one. Making a factory
/// and adding a brick make it the current one, whose distances LayoutConstraintMaker::place takes.
class BricksFactory {
public:
    BricksFactory();
    BricksFactory(const BricksFactory&) = delete;
    BricksFactory& operator=(const BricksFactory&) = delete;
    ~BricksFactory();

    /// The end of all look-ups: 8 points in both directions, standard size. Made at first use.
    static BricksFactory& topLevel();
    static std::unique_ptr<BricksFactory> createTopLevelFactory();
    /// A new factory for a view that is no wall, whose owner is the caller.
    static std::unique_ptr<BricksFactory> makeFactory(QWidget* forView);
    /// The factory of the nearest wall at or above the view; without one, the top-level factory.
    static BricksFactory& factoryFor(QWidget* containerView);
    /// The factory that was made or used last and still lives; else the top-level one.
    static BricksFactory& current();

    void makeCurrent();

    double internalHorizontalInset() const;
    double internalVerticalInset() const;
    BrickSize internalGetInheritedBrickSize() const;
    /// Inwards: positive on the left and at the top, negative on the right and at the bottom, 0 for
    /// attributes that are no edges.
    double insetFor(LayoutAttribute layoutAttribute) const;

    /// Adds a brick, or any other view, to the creation target, which owns it from then on (without
    /// a target it stays the caller's), states its constraints and gives it skin and size.
    void internalAddBrick(QWidget* brick, const LayoutClosure& constraints = {});

    // Builders: make one brick and add it.
    Label* label(const QString& title, const LayoutClosure& constraints = {});
    SmartTextField* textField(const QString& title, const LayoutClosure& constraints = {});
    IntegerTextField* integerTextField(std::int64_t initialValue, std::int64_t minValue,
                                       std::int64_t maxValue,
                                       const LayoutClosure& constraints = {});
    PushButtonBrick* pushButton(const QString& title, std::function<void()> action,
                                const LayoutClosure& constraints = {});
    PushButtonBrick* borderlessButton(const QString& title, std::function<void()> action,
                                      const LayoutClosure& constraints = {});
    PushButtonBrick* helpButton(std::function<void()> action,
                                const LayoutClosure& constraints = {});
    CheckBoxBrick* smartCheckBoxButton(const QString& title, std::function<void(bool)> action,
                                       const LayoutClosure& constraints = {});
    PopUpButtonBrick* popupButton(const LayoutClosure& constraints = {});
    PullDownButtonBrick* pullDownButton(const QString& title,
                                        const LayoutClosure& constraints = {});
    PullDownButtonBrick* pullDownButton(const QIcon& image, const LayoutClosure& constraints = {});
    PullDownButtonBrick* pullDownButtonBrick(const QString& title,
                                             const LayoutClosure& constraints = {});
    PullDownButtonBrick* smartPullDownButton(const QString& title,
                                             const LayoutClosure& constraints = {});
    PullDownButtonBrick* smartPullDownButton(const QIcon& image,
                                             const LayoutClosure& constraints = {});
    SegmentedControlBrick* segmentedControl(const QStringList& titles,
                                            std::function<void(int)> action,
                                            const LayoutClosure& constraints = {});
    /// `zeroTicksRectHack`: no tick marks are drawn.
    SliderBrick* slider(std::function<float(float)> action, bool zeroTicksRectHack,
                        const LayoutClosure& constraints = {});
    DatePickerBrick* datePickerBrick(const LayoutClosure& constraints = {});
    Wall* wall(const QSizeF& size, const LayoutClosure& constraints = {});
    TabWall* tabWall(const LayoutClosure& constraints = {});
    WallWithSpecialEffectsView* specialEffectWall(const QSizeF& size,
                                                  const LayoutClosure& constraints = {});
    WallWithUnconfiguredSpecialEffectsView* unconfiguredSpecialEffectWall(
        const QSizeF& size, const LayoutClosure& constraints = {});
    ViewWithInstrinsicSize* viewWithIntrinicSize(const QSizeF& size,
                                                 const LayoutClosure& constraints = {});

    BrickSize brickSize = BrickSize::inherited;
    std::shared_ptr<const ControlSkin> controlSkin;
    std::optional<double> horizontalInset;
    std::optional<double> verticalInset;
    QPointer<QWidget> currentView;            // the brick placed last
    QPointer<QWidget> previous;               // the one before
    QPointer<QWidget> containerView;          // where the look-ups start
    QPointer<QWidget> elementCreationTarget;  // the parent of new bricks

private:
    const BricksFactory* nextAbove() const;
    double inherited(std::optional<double> BricksFactory::*inset) const;
};

/// Makes `child` a view of `parent`, in front of the others, and shows it unless it was hidden.
void addSubview(QWidget* parent, QWidget* child);

}  // namespace marquell::toolkit
