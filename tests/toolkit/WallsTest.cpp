// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QApplication>
#include <QImage>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/layout/LayoutRoot.h"
#include "toolkit/look/ColorRole.h"
#include "toolkit/walls/IntrinsicSizeWalls.h"
#include "toolkit/walls/NiblessViewController.h"
#include "toolkit/walls/SpecialEffectWalls.h"
#include "toolkit/walls/TabWall.h"

namespace marquell::toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What a wall of 6 x 5 px paints on white, a letter for each device pixel: w(hite), r(ed),
/// g(reen), b(lue), ?.
std::vector<std::string> painted(Wall& wall, double devicePixelRatio = 1) {
    wall.resize(6, 5);
    QImage image(wall.size() * devicePixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        wall.draw(painter);
    }
    std::vector<std::string> rows;
    for (int y = 0; y < image.height(); ++y) {
        rows.emplace_back();
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            rows.back() += color == Qt::white   ? 'w'
                           : color == Qt::red   ? 'r'
                           : color == Qt::green ? 'g'
                           : color == Qt::blue  ? 'b'
                                                : '?';
        }
    }
    return rows;
}

DrawingOperation filling(const QColor& color) {
    DrawingOperation operation;
    operation.function = [color](QPainter& painter, const QRectF& frame, const auto&, const auto&) {
        painter.fillRect(frame, color);
    };
    return operation;
}

TEST(Wall, PaintsTheFirstBackgroundThatIsSet) {
    Wall wall;
    EXPECT_THAT(painted(wall), testing::Each("wwwwww"));
    wall.setBackgroundColor(Qt::red);
    EXPECT_THAT(painted(wall), testing::Each("rrrrrr"));
    wall.backgroundDrawingFunc = [](QPainter& painter, const QRectF& frame) {
        painter.fillRect(frame, Qt::green);
        painter.translate(3, 3);  // which is to mean nothing to what is drawn after it
    };
    wall.setBorderColor(Qt::blue);
    wall.setBorders(false, true, false, false);
    EXPECT_THAT(painted(wall), ElementsAre("gggggg", "gggggg", "gggggg", "gggggg", "bbbbbb"));
    wall.drawingStack = DrawingStack{};
    EXPECT_TRUE(wall.drawBottomBorder());
    wall.setDrawBottomBorder(false);
    EXPECT_THAT(painted(wall), testing::Each("wwwwww"));  // a stack is set, if an empty one

    DrawingOperation half = filling(Qt::red);
    half.frameAdjuster = [](const QRectF& frame) { return frame.adjusted(3, 0, 0, 0); };
    wall.drawingStack->operations = {filling(Qt::blue), half};
    EXPECT_THAT(painted(wall), testing::Each("bbbrrr"));
}

TEST(Wall, HorizontalBordersOwnTheCorners) {
    Wall wall;
    wall.setBorders(true, true, true, true);
    EXPECT_THAT(painted(wall), testing::Each("wwwwww"));  // clear until it is given a colour
    wall.setBorderColor(Qt::red);
    wall.setBorders(true, false, false, false);
    EXPECT_THAT(painted(wall), ElementsAre("rrrrrr", "wwwwww", "wwwwww", "wwwwww", "wwwwww"));
    wall.inheritsFlipped = true;
    EXPECT_THAT(painted(wall), ElementsAre("rrrrrr", "wwwwww", "wwwwww", "wwwwww", "wwwwww"));
    // A translucent colour shows where something is painted twice.
    wall.setBorderColor(QColor(255, 0, 0, 128));
    wall.setBorders(true, true, true, true);
    EXPECT_THAT(painted(wall), ElementsAre("??????", "?wwww?", "?wwww?", "?wwww?", "??????"));
    wall.resize(6, 5);
    QImage image(wall.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    wall.draw(painter);
    for (const QPoint corner : {QPoint(0, 0), QPoint(5, 0), QPoint(0, 4), QPoint(5, 4)}) {
        EXPECT_EQ(image.pixel(corner), image.pixel(2, 0));
    }
}

TEST(Wall, BordersKeepToTheDevicePixels) {
    Wall wall;
    wall.setBorderColor(Qt::red);
    wall.setBorders(false, true, true, true);
    EXPECT_THAT(painted(wall, 2),
                ElementsAre("rrwwwwwwwwrr", "rrwwwwwwwwrr", "rrwwwwwwwwrr", "rrwwwwwwwwrr",
                            "rrwwwwwwwwrr", "rrwwwwwwwwrr", "rrwwwwwwwwrr", "rrwwwwwwwwrr",
                            "rrrrrrrrrrrr", "rrrrrrrrrrrr"));
    EXPECT_THAT(painted(wall, 1.5),
                ElementsAre("rrwwwwwrr", "rrwwwwwrr", "rrwwwwwrr", "rrwwwwwrr", "rrwwwwwrr",
                            "rrwwwwwrr", "rrrrrrrrr", "rrrrrrrrr"));
}

TEST(Wall, BricksLandOnItOrOnItsEffectView) {
    Wall wall;
    auto* onWall = new QWidget;
    wall.factory().internalAddBrick(onWall);
    EXPECT_EQ(onWall->parentWidget(), &wall);

    WallWithSpecialEffectsView dark;
    auto* onEffect = new QWidget;
    dark.factory().internalAddBrick(onEffect);
    EXPECT_EQ(onEffect->parentWidget(), dark.effectView());
    EXPECT_EQ(surfaceOf(onEffect), Surface::dark);
    EXPECT_EQ(surfaceOf(&dark), Surface::light);
    LayoutRoot::install(&dark);
    dark.resize(30, 20);
    dark.show();
    QApplication::setActiveWindow(&dark);
    EXPECT_EQ(dark.grab().toImage().pixelColor(29, 19), color(ColorRole::effectGround, &dark));
    Wall other;
    other.show();
    QApplication::setActiveWindow(&other);
    EXPECT_EQ(dark.grab().toImage().pixelColor(29, 19),
              color(ColorRole::effectGroundInactive, &dark));

    WallWithUnconfiguredSpecialEffectsView plain;
    auto* onPlain = new QWidget;
    plain.factory().internalAddBrick(onPlain);
    EXPECT_EQ(onPlain->parentWidget(), plain.effectView());
    EXPECT_EQ(surfaceOf(onPlain), Surface::light);
}

TEST(Wall, IsSplitCentredAndFilled) {
    Wall wall;
    LayoutRoot* root = LayoutRoot::install(&wall);
    wall.resize(200, 100);
    const auto [left, right] =
        wall.split(SplittingSize::relative, 0.25, SplitDirection::horizontal);
    const auto [upper, lower] = right->split(SplittingSize::absolute, 30, SplitDirection::vertical);
    Wall* centred = lower->createCenteredWallInside();
    auto* content = new ViewWithInstrinsicSize(QSizeF(50, 20));
    centred->factory().internalAddBrick(content, [](auto& make) { make.fillContainer(); });
    const auto nothing = makeController<NiblessViewController>(true);
    upper->fillWallWith(*nothing);
    auto controller = makeController<NiblessViewController>(
        true, [](NiblessViewController& built) { built.setView(new Wall); });
    upper->fillWallWith(*controller);
    root->layoutNow();
    EXPECT_EQ(left->geometry(), QRect(0, 0, 50, 100));
    EXPECT_EQ(right->geometry(), QRect(50, 0, 150, 100));
    EXPECT_EQ(upper->geometry(), QRect(0, 0, 150, 30));
    EXPECT_EQ(controller->view()->geometry(), QRect(0, 0, 150, 30));
    EXPECT_EQ(lower->geometry(), QRect(0, 30, 150, 70));
    EXPECT_EQ(centred->geometry(), QRect(50, 25, 50, 20));
    EXPECT_THAT(root->conflicts(), IsEmpty());
}

TEST(TabWall, ShowsOneWallAndHasRoomForAll) {
    QWidget window;
    LayoutRoot* root = LayoutRoot::install(&window);
    auto* tabs = new TabWall;
    addSubview(&window, tabs);
    LayoutConstraintMaker make(tabs);
    make.fillContainer();
    addConstraints(&window, make.constraints);
    Wall* first = tabs->createNewWall();
    Wall* second = tabs->createNewWall();
    EXPECT_TRUE(tabs->isCurrentWall(first));
    EXPECT_EQ(tabs->contentWallToTabViewItemDict().at(second), tabs->widget(1));

    auto* large = new QWidget;
    second->factory().internalAddBrick(large, [](LayoutConstraintMaker& state) {
        state.fillContainer().minWidth(300).minHeight(150);
    });
    EXPECT_EQ(root->minimumSize(), QSize(300, 150));
    window.resize(320, 200);
    window.show();
    // A page behind the others that grows later counts, too.
    auto* larger = new QWidget;
    second->factory().internalAddBrick(larger, [](auto& state) {
        state.minWidth(400).container().pin(SmartLayoutDirectionsType::left, 0);
    });
    addConstraints(second, {std::make_shared<LayoutConstraint>(second, LayoutAttribute::right,
                                                               Relation::greaterThanOrEqual, larger,
                                                               LayoutAttribute::right, 1, 0)});
    QCoreApplication::processEvents();
    EXPECT_EQ(window.width(), 400);

    tabs->switchToWall(second);
    EXPECT_TRUE(tabs->isCurrentWall(second));
    EXPECT_EQ(large->size(), window.size());
    const Wall stranger;
    tabs->switchToWall(&stranger);
    EXPECT_TRUE(tabs->isCurrentWall(second));
    delete first;
    EXPECT_FALSE(tabs->contentWallToTabViewItemDict().contains(first));
}

class NotingController : public NiblessViewController {
public:
    explicit NotingController(bool delayedBuild) : NiblessViewController(delayedBuild) {}
    void build() override { setView(new Wall); }
    std::vector<std::string> notes;

protected:
    void viewDidAppear() override { notes.emplace_back("there"); }
    void viewDidDisappear() override { notes.emplace_back("gone"); }
};

TEST(NiblessViewController, BuildsAtOnceOrLaterAndWatchesItsView) {
    const auto delayed = makeController<NotingController>(true);
    EXPECT_EQ(delayed->view(), nullptr);
    delayed->build();
    EXPECT_NE(delayed->view(), nullptr);

    auto controller = makeController<NotingController>(false);
    QPointer<Wall> view = controller->view();
    QWidget window;
    addSubview(&window, view);
    EXPECT_THAT(controller->notes, IsEmpty());
    window.show();
    window.hide();
    window.show();
    EXPECT_THAT(controller->notes, ElementsAre("there", "gone", "there"));
    auto* shown = new Wall;
    addSubview(&window, shown);
    controller->setView(shown);
    EXPECT_THAT(controller->notes, ElementsAre("there", "gone", "there", "gone", "there"));
    delete shown;
    EXPECT_EQ(controller->notes.back(), "gone");
    controller->setView(view);
    EXPECT_EQ(controller->notes.back(), "there");
    controller.reset();
    EXPECT_NE(view, nullptr);  // it is the window's by now
    window.hide();

    controller = makeController<NotingController>(false);
    view = controller->view();
    controller.reset();
    EXPECT_EQ(view, nullptr);
}

}  // namespace
}  // namespace marquell::toolkit
