// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <functional>
#include <memory>

#include "toolkit/bricks/BricksFactory.h"
#include "toolkit/layout/LayoutConstraintMaker.h"
#include "toolkit/layout/LayoutDirective.h"
#include "toolkit/layout/LayoutRoot.h"
#include "toolkit/layout/LayoutTagManager.h"
#include "toolkit/layout/ViewMeasures.h"

namespace marquell::toolkit {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using enum LayoutAttribute;

/// Does something when it gets another size.
class Reacting : public QWidget {
public:
    using QWidget::QWidget;
    std::function<void()> react = [] {};

protected:
    void resizeEvent(QResizeEvent*) override { react(); }
};

/// A view with content of a given size.
class Box : public QWidget, public IntrinsicallySized {
public:
    explicit Box(QWidget* parent, double width = -1, double height = -1)
        : QWidget(parent), size_{width, height} {}

    IntrinsicSize intrinsicContentSize() const override { return size_; }

    void setContent(double width, double height) {
        size_ = {width, height};
        updateGeometry();
    }

private:
    IntrinsicSize size_;
};

void constrain(QWidget* view, const LayoutClosure& closure) {
    LayoutConstraintMaker make(view);
    closure(make);
    addConstraints(view->parentWidget(), make.constraints);
}

QRect inRoot(const QWidget* view, const QWidget* root) {
    return {view->mapTo(root, QPoint()), view->size()};
}

class Layout : public testing::Test {
protected:
    Layout() : root(LayoutRoot::install(&window)) { window.setObjectName("window"); }

    void layOut(int width, int height) {
        window.resize(width, height);
        root->layoutNow();
    }

    /// Lets requests that wait in the event loop be heard.
    void settle() {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }

    QWidget window;
    LayoutRoot* const root;
};

// A form as the window has it: two right-aligned labels of equal width, popups behind them.
TEST_F(Layout, RowsOfLabelsAndFieldsTakeTheirPlacesAndStretchOnTheRightSide) {
    auto* first = new Box(&window, 31, 24);
    auto* firstField = new Box(&window, 200, 24);
    auto* then = new Box(&window, 35, 24);
    auto* thenField = new Box(&window, 120, 24);
    for (auto* label : {first, then}) {
        setContentHuggingPriority(label, Qt::Horizontal, LayoutPriority::labelHugging);
    }
    for (auto* field : {firstField, thenField}) {
        setContentCompressionResistancePriority(field, Qt::Horizontal, LayoutPriority::low);
    }
    constrain(first, [](auto& make) { make.container().pin(left, left, 17).pin(top, top, 48); });
    constrain(firstField, [&](auto& make) {
        make.andView(first).place(left, right).pin(firstBaseline, firstBaseline, 0);
        make.container().pin(right, right, -17);
    });
    constrain(thenField, [&](auto& make) {
        make.andView(firstField).pin(left, left, 0).pin(right, right, 0).place(top, bottom);
        make.container().pin(bottom, bottom, -1);
    });
    constrain(then, [&](auto& make) {
        make.andView(thenField).pin(right, left, -8).lowPriority();
        make.andView(thenField).pin(firstBaseline, firstBaseline, 0);
        make.container().pin(left, left, 17);
        make.andView(first).width(0);
    });
    layOut(400, 105);
    EXPECT_EQ(first->geometry(), QRect(17, 48, 35, 24));
    EXPECT_EQ(firstField->geometry(), QRect(60, 48, 323, 24));
    EXPECT_EQ(then->geometry(), QRect(17, 80, 35, 24));
    EXPECT_EQ(thenField->geometry(), QRect(60, 80, 323, 24));
    EXPECT_THAT(root->conflicts(), testing::IsEmpty());

    layOut(300, 105);  // fields give way, labels do not
    EXPECT_EQ(then->width(), 35);
    EXPECT_EQ(thenField->geometry(), QRect(60, 80, 223, 24));
    then->setContent(90, 24);
    layOut(400, 105);
    EXPECT_EQ(firstField->geometry(), QRect(115, 48, 268, 24));
}

TEST_F(Layout, TheSmallestSizeIsWhatTheConstraintsNeedAndTheWindowKeepsIt) {
    auto* left1 = new Box(&window);
    auto* right1 = new Box(&window);
    auto* button = new Box(right1, 72, 24);
    constrain(left1, [](auto& make) {
        make.width(400).minHeight(600);
        make.container().pin(left, left, 0).pin(top, top, 0).pin(bottom, bottom, 0);
    });
    constrain(right1, [&](auto& make) {
        make.minWidth(500);
        make.container().pin(right, right, 0).pin(top, top, 0).pin(bottom, bottom, 0);
        make.andView(left1).pin(left, right, 0);
    });
    constrain(button,
              [](auto& make) { make.container().pin(right, right, -8).place(bottom, bottom); });
    EXPECT_EQ(root->minimumSize(), QSize(900, 600));
    window.show();
    window.resize(500, 300);
    settle();
    EXPECT_EQ(window.size(), QSize(900, 600));
    window.resize(1180, 760);
    settle();
    EXPECT_EQ(right1->geometry(), QRect(400, 0, 780, 760));
    EXPECT_EQ(button->geometry(), QRect(700, 728, 72, 24));  // in right1's coordinates
}

TEST_F(Layout, HiddenViewsLeaveAndContentThatGrowsIsFollowed) {
    auto* a = new Box(&window);
    auto* b = new Box(&window, 50, 20);
    constrain(a, [](auto& make) { make.fillContainer().lowPriority(); });
    constrain(b, [&](auto& make) {
        make.andView(a).pin(SmartLayoutDirectionsType::after, 10);
        make.container().pin(right, right, 0).pin(top, top, 0);
    });
    window.resize(200, 100);
    window.show();
    settle();
    EXPECT_EQ(a->width(), 140);
    b->setContent(80, 20);
    settle();
    EXPECT_EQ(a->width(), 110);
    b->hide();
    settle();
    EXPECT_EQ(a->width(), 200);
    b->show();
    settle();
    EXPECT_EQ(a->width(), 110);
    delete b;
    settle();
    EXPECT_EQ(a->width(), 200);
}

TEST_F(Layout, RequiredContradictionsAreNamedAndTheRestStands) {
    auto* a = new Box(&window);
    a->setObjectName("a");
    constrain(a, [](auto& make) { make.width(100).height(20).fillContainer(); });
    constrain(a, [](auto& make) { make.minWidth(120); });
    layOut(100, 20);
    ASSERT_EQ(root->conflicts().size(), 1);
    EXPECT_THAT(root->conflicts().front().toStdString(), HasSubstr("a.width >= 120 contradicts"));
    EXPECT_THAT(root->conflicts().front().toStdString(), HasSubstr("a.width = 100"));
    EXPECT_EQ(a->geometry(), QRect(0, 0, 100, 20));
}

TEST_F(Layout, AConstraintThatContradictedHoldsAsSoonAsItCan) {
    auto* a = new Box(&window);
    LayoutConstraintMaker make(a);
    make.width(100).height(20).container().pin(left, left, 0).pin(top, top, 0);
    addConstraints(&window, make.constraints);
    constrain(a, [](auto& more) { more.minWidth(120); });
    layOut(300, 20);
    EXPECT_EQ(a->width(), 100);
    make.constraints.front()->setConstant(130);
    layOut(300, 20);
    EXPECT_EQ(a->width(), 130);
    EXPECT_THAT(root->conflicts(), testing::IsEmpty());
    make.constraints.front()->setPriority(LayoutPriority::lowest);
    make.constraints.front()->setConstant(10);
    layOut(300, 20);
    EXPECT_EQ(a->width(), 120);
    removeConstraints(&window, make.constraints);
    layOut(300, 20);
    EXPECT_EQ(a->width(), 120);
}

TEST_F(Layout, ARootInsideARootIsSolvedForItselfAndKeepsItsRoom) {
    auto* page = new Box(&window);
    page->setObjectName("page");
    auto* inner = LayoutRoot::install(page);
    auto* content = new Box(page, 150, 40);
    constrain(content, [](auto& make) { make.fillContainer(); });
    constrain(page, [](auto& make) { make.fillContainer(); });
    EXPECT_EQ(root->minimumSize(), QSize(150, 40));
    window.show();
    content->setContent(180, 40);
    settle();
    EXPECT_EQ(root->minimumSize(), QSize(180, 40));

    auto* outside = new Box(&window, 10, 10);
    outside->setObjectName("outside");
    constrain(outside, [&](auto& make) { make.andView(content).width(0); });
    layOut(300, 80);
    ASSERT_EQ(root->conflicts().size(), 1);
    EXPECT_THAT(root->conflicts().front().toStdString(), HasSubstr("outside.width = "));
    EXPECT_THAT(root->conflicts().front().toStdString(), HasSubstr("joins two layouts"));
    EXPECT_THAT(inner->conflicts(), testing::IsEmpty());
    EXPECT_EQ(content->geometry(), QRect(0, 0, 300, 40));  // which hugs its height
}

TEST_F(Layout, ViewsMayGoMoveAwayAndAskForMoreWhileTheyArePlaced) {
    auto* first = new Reacting(&window);
    auto* gone = new Box(&window, 50, 20);
    auto* movesAway = new Box(&window, 50, 20);
    auto* asks = new Box(&window, 50, 20);
    constrain(first, [](auto& make) { make.fillContainer(); });
    for (auto* view : {gone, movesAway, asks}) {
        constrain(view, [](auto& make) { make.container().pin(left, left, 10).pin(top, top, 0); });
    }
    LayoutConstraintMaker more(asks);
    more.minWidth(77);
    window.resize(100, 50);
    window.show();
    settle();
    first->react = [&] {
        delete std::exchange(gone, nullptr);
        movesAway->setParent(nullptr);
        addConstraints(&window, more.constraints);
    };
    window.resize(200, 50);
    settle();
    EXPECT_EQ(asks->geometry(), QRect(10, 0, 77, 20));
    EXPECT_FALSE(gone);
    delete movesAway;
}

TEST_F(Layout, WhatChangesWhileItIsHiddenIsTakenUp) {
    auto* page = new QWidget(&window);
    auto* content = new Box(page, 50, 20);
    LayoutRoot::install(page);
    constrain(page, [](auto& make) { make.fillContainer(); });
    constrain(content, [](auto& make) { make.fillContainer(); });
    auto* deep = new Box(content, 5, 5);
    constrain(deep, [](auto& make) { make.container().pin(left, left, 0).pin(top, top, 0); });
    window.show();
    settle();
    window.hide();
    deep->setContent(44, 20);
    window.show();
    settle();
    EXPECT_EQ(deep->width(), 44);

    page->hide();
    for (const double least : {300.0, 400.0}) {
        constrain(content, [&](auto& make) { make.minWidth(least); });
    }
    page->show();
    settle();
    EXPECT_EQ(content->width(), 400);
    EXPECT_EQ(root->minimumSize().width(), 400);
}

TEST_F(Layout, ConstraintsCountOnceAndGoWithTheContainer) {
    auto* a = new QWidget(&window);
    auto* b = new QWidget(&window);
    auto* x = new Box(a, 50, 20);
    for (auto* wall : {a, b}) constrain(wall, [](auto& make) { make.fillContainer(); });
    LayoutConstraintMaker make(x);
    make.container().pin(left, left, 30).pin(top, top, 0);
    addConstraints(a, make.constraints);
    addConstraints(a, make.constraints);
    make.constraints.front()->setConstant(40);
    layOut(200, 50);
    EXPECT_EQ(x->x(), 40);
    x->setParent(b);
    x->show();
    constrain(x, [](auto& more) { more.container().pin(left, left, 7).pin(top, top, 0); });
    layOut(200, 50);
    EXPECT_EQ(x->x(), 7);
    EXPECT_THAT(root->conflicts(), testing::IsEmpty());
}

TEST_F(Layout, ContentsKeepTheirRoomWhateverCameFirst) {
    for (const bool contentFirst : {true, false}) {
        auto* page = new QWidget(&window);
        page->setObjectName("page");
        LayoutRoot::install(page);
        auto* content = new Box(page, 20, 20);
        constrain(page, [](auto& make) { make.container().pin(left, left, 0).pin(top, top, 0); });
        const auto narrow = [&] { constrain(page, [](auto& make) { make.width(50); }); };
        const auto fill = [&] {
            constrain(content, [](auto& make) { make.minWidth(80).fillContainer(); });
        };
        if (contentFirst) fill();
        narrow();
        layOut(200, 50);
        if (!contentFirst) fill();
        layOut(200, 50);
        EXPECT_EQ(page->width(), 80);
        ASSERT_EQ(root->conflicts().size(), 1);
        EXPECT_THAT(root->conflicts().front().toStdString(),
                    HasSubstr("page.width = 50 contradicts the room that a view's content needs"));
        delete page;
    }
}

TEST_F(Layout, LeadingAndTrailingFollowTheDirectionOfReadingLeftAndRightDoNot) {
    auto* a = new Box(&window, 50, 20);
    auto* b = new Box(&window, 50, 20);
    auto* c = new Box(&window, 50, 20);
    constrain(a, [](auto& make) { make.container().pin(leading, leading, 10).pin(top, top, 0); });
    constrain(b, [&](auto& make) {
        make.andView(a).pin(leading, trailing, 5);
        make.container().pin(top, top, 0);
    });
    constrain(c, [](auto& make) { make.container().pin(left, left, 1).pin(top, top, 0); });
    layOut(300, 50);
    EXPECT_THAT((std::vector{a->x(), b->x(), c->x()}), ElementsAre(10, 65, 1));
    window.setLayoutDirection(Qt::RightToLeft);
    settle();
    layOut(300, 50);
    EXPECT_THAT((std::vector{a->x(), b->x(), c->x()}), ElementsAre(240, 185, 1));
    a->setLayoutDirection(Qt::LeftToRight);  // a path in a field keeps its own direction
    settle();
    layOut(300, 50);
    EXPECT_EQ(a->x(), 240);
}

TEST_F(Layout, ViewsThatMoveToAnotherParentAreFollowed) {
    auto* plain = new QWidget(&window);
    auto* a = new Box(&window, 50, 20);
    constrain(plain, [](auto& make) { make.fillContainer(); });
    auto* b = new Box(plain, 50, 20);
    constrain(b,
              [&](auto& make) { make.andView(a).pin(left, right, 3).pin(centerY, centerY, 0.5); });
    constrain(a, [](auto& make) { make.container().pin(left, left, 7.4).pin(top, top, 0); });
    layOut(300, 50);
    EXPECT_EQ(inRoot(b, &window).left(), 60);
    b->setParent(&window);
    b->show();
    settle();
    layOut(300, 50);
    EXPECT_EQ(inRoot(a, &window), QRect(7, 0, 50, 20));
}

TEST_F(Layout, StatementsAsDataApplyInOrderAndTagsFindTheViews) {
    const auto fill = std::make_shared<LayoutClosureDirective>(
        [](LayoutConstraintMaker& make) { make.fillContainer(); });
    const auto size = std::make_shared<LayoutClosureDirective>(
        [](LayoutConstraintMaker& make) { make.minWidth(11).minHeight(12); });
    const auto both = std::make_shared<LayoutDirectiveList>(
        std::vector<std::shared_ptr<const LayoutDirectiveConvertible>>{fill, size});
    auto* a = new Box(&window);
    auto* b = new Box(a);
    for (auto* view : {a, b}) constrain(view, closureOf(both));
    EXPECT_EQ(root->minimumSize(), QSize(11, 12));

    LayoutTagManager tags;
    tags.registerView(b, LayoutTag("inner"));
    tags.registerView(b, LayoutTag("inner"));
    tags.registerView(a, LayoutTag("both"));
    tags.registerView(b, LayoutTag("both"));
    EXPECT_THAT(tags.allWithTag(&window, LayoutTag("both")), ElementsAre(a, b));
    EXPECT_THAT(tags.extract(&window, LayoutTag("inner"), LayoutTag("none"), LayoutTag("both")),
                ElementsAre(b, nullptr, a));
    EXPECT_EQ(tags.layoutTags(b)->size(), 2U);
    delete b;
    EXPECT_THAT(tags.allWithTag(&window, LayoutTag("both")), ElementsAre(a));
}

}  // namespace
}  // namespace marquell::toolkit
