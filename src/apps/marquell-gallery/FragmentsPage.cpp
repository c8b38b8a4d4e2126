// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <array>
#include <memory>

#include "Pages.h"
#include "Sheet.h"
#include "Words.h"
#include "platform/UserDefaults.h"
#include "toolkit/bricks/CheckBoxBrick.h"
#include "toolkit/bricks/DefaultsBinding.h"
#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/drawing/MarquellStyleKit.h"
#include "toolkit/fragments/FragmentStackView.h"
#include "toolkit/fragments/FragmentWallBinding.h"
#include "toolkit/fragments/HideableFragmentWall.h"
#include "variables/UserDefaultsVariable.h"

namespace marquell::gallery {

using namespace toolkit;
using enum LayoutAttribute;

namespace {

constexpr std::array keys{"hideFirst", "hideSecond", "hideThird"};

/// Settings of this page alone, which are gone with it.
struct Settings {
    QTemporaryDir folder;
    std::shared_ptr<platform::UserDefaults> defaults = platform::UserDefaults::open(
        folder.filePath(QStringLiteral("settings.json")).toStdString(), [](const auto&) {});
};

Wall* band(const QString& title) {
    auto* wall = new Wall;
    Sheet sheet(*wall);
    sheet.title(title, 16, 16);
    auto* button = new PushButtonBrick(words("A button"), {});
    wall->factory().internalAddBrick(button, [](auto& make) {
        make.container().pin(left, left, 17).pin(top, top, 48).pin(bottom, bottom, -1);
    });
    return wall;
}

Wall* separator() {
    auto* wall = new Wall;
    wall->backgroundDrawingFunc = [](QPainter& painter, const QRectF& frame) {
        MarquellStyleKit::drawFragmentBottom(painter, frame);
    };
    return wall;
}

void fillStack(FragmentStackView& stack, const std::shared_ptr<platform::UserDefaults>& defaults) {
    for (std::size_t i = 0; i < keys.size(); ++i) {
        auto* fragment = HideableFragmentWall::embedViewInHideableFragment(
            band(words("Fragment %1").arg(i + 1)), keys[i], i == 2, 0, defaults);
        LayoutConstraintMaker make(fragment);
        make.width(300);
        stack.addFragment(fragment);
        addConstraints(&stack, make.constraints);
        auto* line = HideableFragmentWall::embedViewInHideableFragment(separator(), keys[i], i == 2,
                                                                       0, defaults);
        LayoutConstraintMaker makeLine(line);
        makeLine.width(300).height(15);
        stack.addFragment(line);
        addConstraints(&stack, makeLine.constraints);
    }
}

/// A fragment that a variable shows and hides.
void addBoundFragment(FragmentStackView& stack, Wall& wall,
                      const std::shared_ptr<platform::UserDefaults>& defaults) {
    auto* fragment = new FragmentWall;
    fragment->factory().internalAddBrick(band(words("Shown while the first is hidden")),
                                         [](auto& make) { make.width(300).fillContainer(); });
    stack.insertFragmentAsSecondLast(fragment);
    const auto variable =
        std::make_shared<variables::UserDefaultsVariable<bool>>("hideFirst", false, defaults);
    const auto binding = std::make_shared<FragmentWallBinding<bool>>(
        fragment, variables::AnyReadOnlyVariable<bool>(variable),
        [](bool isFirstHidden) { return !isFirstHidden; });
    binding->activate();
    wall.endOfLifeBag.closures.emplace_back([binding, variable] {});
}

FragmentStackView* addStack(Sheet& sheet, double x, bool isFlipped) {
    auto* stack = new FragmentStackView;
    setAppearance(stack, Appearance::column);
    stack->setBackgroundColor(MarquellStyleKit::parameterWallBlue());
    stack->setInheritsFlipped(isFlipped);
    stack->setSpacing(2);
    sheet.caption(isFlipped ? words("flipped: from the top") : words("not flipped: from below"), x,
                  128);
    return sheet.put(stack, x, 156);
}

}  // namespace

void buildFragments(Wall& wall) {
    const auto settings = std::make_shared<Settings>();
    wall.endOfLifeBag.closures.emplace_back([settings] {});
    Sheet sheet(wall);
    sheet.title(words("Fragments hide by keys of the settings, and their stack closes up"), 16, 16);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        auto* box = new CheckBoxBrick(words("Hide fragment %1").arg(i + 1));
        sheet.put(box, 16 + 180 * double(i), 56);
        settings->defaults->registerDefault(keys[i], i == 2);
        DefaultsBinding::bindValue(box, keys[i], settings->defaults);
    }
    auto* byHand = sheet.put(new CheckBoxBrick(words("Hide the first lines by hand")), 16, 92);
    auto* flipped = addStack(sheet, 16, true);
    auto* upright = addStack(sheet, 340, false);
    for (auto* stack : {flipped, upright}) fillStack(*stack, settings->defaults);
    addBoundFragment(*flipped, wall, settings->defaults);
    byHand->actualCheckboxFunc = [=](bool isOn) {
        for (auto* stack : {flipped, upright}) stack->arrangedSubviews()[1]->setHidden(isOn);
    };
    sheet.end(656, 620);
}

}  // namespace marquell::gallery
