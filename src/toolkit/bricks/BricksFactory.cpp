// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/BricksFactory.h"

#include "toolkit/bricks/BrickType.h"
#include "toolkit/layout/ViewMeasures.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/walls/Wall.h"

namespace marquell::toolkit {
namespace {

BricksFactory* currentFactory = nullptr;  // main thread only; null: the top-level one

/// The view that a view lies on within its window.
QWidget* superviewOf(const QWidget* view) {
    return view == nullptr || view->isWindow() ? nullptr : view->parentWidget();
}

}  // namespace

BricksFactory::BricksFactory() { makeCurrent(); }

BricksFactory::~BricksFactory() {
    if (currentFactory == this) currentFactory = nullptr;
}

BricksFactory& BricksFactory::topLevel() {
    static const std::unique_ptr<BricksFactory> factory = [] {
        // A look-up may come here first, and must leave the current factory as it is.
        BricksFactory* const before = currentFactory;
        auto made = createTopLevelFactory();
        currentFactory = before;
        return made;
    }();
    return *factory;
}

std::unique_ptr<BricksFactory> BricksFactory::createTopLevelFactory() {
    auto factory = std::make_unique<BricksFactory>();
    factory->horizontalInset = 8.0;
    factory->verticalInset = 8.0;
    return factory;
}

std::unique_ptr<BricksFactory> BricksFactory::makeFactory(QWidget* forView) {
    auto factory = std::make_unique<BricksFactory>();
    factory->containerView = forView;
    factory->elementCreationTarget = forView;
    return factory;
}

BricksFactory& BricksFactory::factoryFor(QWidget* containerView) {
    for (QWidget* view = containerView; view != nullptr; view = superviewOf(view)) {
        if (auto* wall = dynamic_cast<Wall*>(view)) return wall->factory();
    }
    return topLevel();
}

BricksFactory& BricksFactory::current() {
    return currentFactory == nullptr ? topLevel() : *currentFactory;
}

void BricksFactory::makeCurrent() { currentFactory = this; }

/// The factory to ask for what this one does not say; null for the last one.
const BricksFactory* BricksFactory::nextAbove() const {
    if (QWidget* superview = superviewOf(containerView)) return &factoryFor(superview);
    return this == &topLevel() ? nullptr : &topLevel();
}

double BricksFactory::inherited(std::optional<double> BricksFactory::*inset) const {
    for (const BricksFactory* asked = this; asked != nullptr; asked = asked->nextAbove()) {
        if (asked->*inset) return *(asked->*inset);
    }
    return 0;
}

double BricksFactory::internalHorizontalInset() const {
    return inherited(&BricksFactory::horizontalInset);
}

double BricksFactory::internalVerticalInset() const {
    return inherited(&BricksFactory::verticalInset);
}

BrickSize BricksFactory::internalGetInheritedBrickSize() const {
    for (const BricksFactory* asked = this; asked != nullptr; asked = asked->nextAbove()) {
        if (asked->brickSize != BrickSize::inherited) return asked->brickSize;
    }
    return BrickSize::standard;
}

double BricksFactory::insetFor(LayoutAttribute layoutAttribute) const {
    switch (layoutAttribute) {
        case LayoutAttribute::left:
        case LayoutAttribute::leading:
            return internalHorizontalInset();
        case LayoutAttribute::right:
        case LayoutAttribute::trailing:
            return -internalHorizontalInset();
        case LayoutAttribute::top:
            return internalVerticalInset();
        case LayoutAttribute::bottom:
            return -internalVerticalInset();
        default:
            return 0;
    }
}

void BricksFactory::internalAddBrick(QWidget* brick, const LayoutClosure& constraints) {
    makeCurrent();
    if (currentView) previous = currentView;
    currentView = brick;
    if (elementCreationTarget) {
        addSubview(elementCreationTarget, brick);  // first, since the closure asks for it
        if (constraints) {
            LayoutConstraintMaker maker(brick);
            constraints(maker);
            addConstraints(elementCreationTarget, maker.constraints);
        }
    }
    auto* const brickType = dynamic_cast<BrickType*>(brick);
    if (controlSkin && brickType != nullptr) brickType->apply(*controlSkin);
    const BrickSize size = internalGetInheritedBrickSize();
    if (brickType != nullptr) {
        if (size == BrickSize::small) brickType->small();
    } else if (isControl(brick)) {
        if (size == BrickSize::small) setControlSize(brick, ControlSize::small);
        if (size == BrickSize::mini) setControlSize(brick, ControlSize::mini);
    }
}

void addSubview(QWidget* parent, QWidget* child) {
    const bool wasHidden =
        child->isHidden() && child->testAttribute(Qt::WA_WState_ExplicitShowHide);
    if (child->parentWidget() != parent) child->setParent(parent);
    child->raise();
    child->setVisible(!wasHidden);
}

}  // namespace marquell::toolkit
