// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QImage>
#include <QPainter>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "platform/Surroundings.h"
#include "toolkit/fragments/FragmentStackView.h"
#include "toolkit/fragments/FragmentWallBinding.h"
#include "toolkit/fragments/HideableFragmentWall.h"
#include "toolkit/layout/LayoutRoot.h"
#include "variables/StraightVariable.h"

namespace marquell::toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class FragmentStack : public testing::Test {
protected:
    FragmentStack() {
        stack_.setInheritsFlipped(true);
        stack_.setSpacing(2);
    }

    static FragmentWall* sized(FragmentWall* fragment, double width, double height) {
        LayoutConstraintMaker make(fragment);
        make.width(width).height(height);
        addConstraints(fragment, make.constraints);
        return fragment;
    }

    FragmentWall* added(double height) {
        auto* fragment = sized(new FragmentWall, 100, height);
        stack_.addFragment(fragment);
        return fragment;
    }

    /// Top and height of each shown view, and the least size of the stack.
    std::vector<std::pair<int, int>> bands() {
        stack_.resize(root_->minimumSize());
        root_->layoutNow();
        std::vector<std::pair<int, int>> all;
        for (const QWidget* view : stack_.arrangedSubviews()) {
            if (!view->isHidden()) all.emplace_back(view->y(), view->height());
        }
        EXPECT_THAT(root_->conflicts(), IsEmpty());
        return all;
    }

    FragmentStackView stack_;
    LayoutRoot* root_ = LayoutRoot::install(&stack_);
};

TEST_F(FragmentStack, ClosesUpOverWhatIsHidden) {
    FragmentWall* first = added(10);
    FragmentWall* second = added(20);
    FragmentWall* third = added(30);
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 10), Pair(12, 20), Pair(34, 30)));
    EXPECT_EQ(stack_.size(), QSize(100, 64));
    second->hide();
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 10), Pair(12, 30)));
    second->show();
    stack_.hideFragment(third);
    EXPECT_EQ(stack_.visibilityPriority(third), VisibilityPriority::notVisible);
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 10), Pair(12, 20)));
    EXPECT_EQ(stack_.height(), 32);
    third->show();  // not what it says, as long as the stack does without it
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 10), Pair(12, 20)));
    stack_.showFragment(third);
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 10), Pair(12, 20), Pair(34, 30)));
    // One that is hidden by itself stays so when the stack would show it.
    second->hide();
    stack_.hideFragment(second);
    stack_.showFragment(second);
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 10), Pair(12, 30)));
    stack_.hideFragment(second);
    second->show();
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 10), Pair(12, 30)));
    stack_.showFragment(second);
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 10), Pair(12, 20), Pair(34, 30)));
    delete first;
    second->hide();
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 30)));
    // What was stated on the stack about a fragment goes with it.
    addConstraints(
        &stack_, {std::make_shared<LayoutConstraint>(third, LayoutAttribute::right, Relation::equal,
                                                     &stack_, LayoutAttribute::right, 1, 0)});
    Wall elsewhere;
    third->setParent(&elsewhere);
    EXPECT_THAT(stack_.arrangedSubviews(), ElementsAre(second));
    third->hide();
    EXPECT_THAT(bands(), IsEmpty());
}

TEST_F(FragmentStack, OrdersItsViewsAndKeepsToItsInsets) {
    FragmentWall* first = added(10);
    FragmentWall* second = added(20);
    auto* wide = sized(new FragmentWall, 150, 5);
    stack_.insertFragmentAsSecondLast(wide);
    EXPECT_THAT(stack_.arrangedSubviews(), ElementsAre(first, wide, second));
    auto* top = sized(new FragmentWall, 100, 1);
    stack_.insertFragmentAtTop(top);
    stack_.setEdgeInsets(QMarginsF(3, 4, 5, 6));
    EXPECT_THAT(bands(), ElementsAre(Pair(4, 1), Pair(7, 10), Pair(19, 5), Pair(26, 20)));
    EXPECT_EQ(stack_.size(), QSize(158, 52));
    EXPECT_EQ(second->geometry(), QRect(3, 26, 100, 20));  // as wide as it wants to be
    stack_.insertArrangedSubview(second, 0);
    EXPECT_THAT(stack_.arrangedSubviews(), ElementsAre(second, top, first, wide));

    stack_.setInheritsFlipped(false);
    EXPECT_THAT(bands(), ElementsAre(Pair(26, 20), Pair(23, 1), Pair(11, 10), Pair(4, 5)));
    auto* newTop = sized(new FragmentWall, 100, 1);
    stack_.insertFragmentAtTop(newTop);
    EXPECT_THAT(bands().back(), Pair(4, 1));
}

TEST_F(FragmentStack, PaintsItsFunctionElseItsColourElseNothing) {
    stack_.resize(4, 4);
    const auto pixel = [&] {
        QImage image(4, 4, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        stack_.draw(painter);
        return image.pixelColor(3, 3);
    };
    EXPECT_EQ(pixel(), Qt::white);
    stack_.setBackgroundColor(Qt::red);
    EXPECT_EQ(pixel(), Qt::red);
    stack_.backgroundDrawingFunc = [](QPainter& painter, const QRectF& frame) {
        painter.fillRect(frame, Qt::green);
    };
    EXPECT_EQ(pixel(), Qt::green);
}

class HideableFragment : public FragmentStack {
protected:
    std::shared_ptr<platform::UserDefaults> open() {
        return platform::UserDefaults::open(folder_ / "settings.json", [](const auto&) {});
    }

    const tests::TemporaryFolder folder_;
};

TEST_F(HideableFragment, FollowsItsKeys) {
    const auto defaults = open();
    auto* content = new QWidget;
    auto* fragment =
        HideableFragmentWall::embedViewInHideableFragment(content, "hidden", true, 7, defaults);
    stack_.addFragment(sized(fragment, 100, 20));
    EXPECT_THAT(bands(), IsEmpty());
    defaults->setObject(false, "hidden");
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 20)));
    EXPECT_EQ(content->geometry(), QRect(0, 7, 100, 13));
    defaults->removeObject("hidden");
    EXPECT_THAT(bands(), IsEmpty());

    // A key without an initial value registers none, but is watched.
    const auto isAnyThere = [&defaults](const auto& keys) {
        return defaults->object(keys[0]).has_value() || defaults->object(keys[1]).has_value();
    };
    auto* second = HideableFragmentWall::embedViewInHideableFragment(
        new QWidget, {"a", "b"}, {std::nullopt}, isAnyThere, defaults);
    stack_.addFragment(sized(second, 100, 9));
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 9)));
    defaults->setObject(1, "b");
    EXPECT_THAT(bands(), IsEmpty());
    defaults->removeObject("b");
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 9)));
    delete second;
    defaults->setObject(1, "b");
    EXPECT_THAT(bands(), IsEmpty());

    auto* plain = new HideableFragmentWall(defaults);
    stack_.addFragment(sized(plain, 100, 5));
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 5)));
}

TEST_F(FragmentStack, BindingShowsAFragmentByAVariable) {
    FragmentWall* fragment = added(10);
    added(20);
    const auto variable = std::make_shared<variables::StraightVariable<int>>(0);
    auto binding = std::make_optional<FragmentWallBinding<int>>(
        fragment, variables::AnyReadOnlyVariable<int>(variable),
        [](int value) { return value == 1; });
    binding->activate();
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 10), Pair(12, 20)));
    variable->setValue(1);
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 20)));
    variable->setValue(2);
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 10), Pair(12, 20)));
    binding.reset();
    variable->setValue(1);
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 10), Pair(12, 20)));
    FragmentWallBinding<int> orphaned(fragment, variables::AnyReadOnlyVariable<int>(variable),
                                      [](int value) { return value == 2; });
    orphaned.activate();
    delete fragment;
    variable->setValue(2);
    EXPECT_THAT(bands(), ElementsAre(Pair(0, 20)));
}

}  // namespace
}  // namespace marquell::toolkit
