// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPainter>

#include "Pages.h"
#include "Sheet.h"
#include "Words.h"
#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/walls/IntrinsicSizeWalls.h"
#include "toolkit/walls/NiblessViewController.h"
#include "toolkit/walls/SpecialEffectWalls.h"
#include "toolkit/walls/TabWall.h"

namespace marquell::gallery {

using namespace toolkit;

namespace {

/// Every combination of the four borders.
void addBorders(Sheet& sheet) {
    sheet.title(words("Borders: every combination"), 16, 16);
    for (int i = 0; i < 16; ++i) {
        auto* wall = new RoleWall(ColorRole::alternateBase, ColorRole::text);
        wall->setBorders(i & 1, i & 2, i & 4, i & 8);
        const int row = i / 8;
        sheet.put(wall, 16 + 56 * (i % 8), 48 + 44 * row, 40, 28);
    }
}

/// What wins where several backgrounds are set.
void addBackgrounds(Sheet& sheet) {
    sheet.title(words("Backgrounds: stack before function before colour"), 16, 148);
    const auto fill = [](const QColor& ink) {
        return [ink](QPainter& painter, const QRectF& frame) { painter.fillRect(frame, ink); };
    };
    for (int i = 0; i < 4; ++i) {
        auto* wall = new RoleWall(std::nullopt, ColorRole::text);
        wall->setBackgroundColor(QColor(0x16, 0x6B, 0xB1));
        if (i >= 1) wall->backgroundDrawingFunc = fill(QColor(0x2E, 0x8B, 0x57));
        if (i == 2) {
            const auto draw = fill(QColor(0xB1, 0x5C, 0x16));
            wall->drawingStack =
                DrawingStack{{{[draw](auto& painter, const auto& frame, const auto&, const auto&) {
                    draw(painter, frame);
                }}}};
        }
        if (i == 3) wall->drawingStack = DrawingStack{};
        sheet.put(wall, 16 + 112 * i, 180, 100, 40);
    }
    int i = 0;
    for (const char* name : {"colour", "function", "stack", "empty stack"}) {
        sheet.caption(words(name), 16 + 112 * i++, 222, 100);
    }
}

Wall* framed(Sheet& sheet, double x, double y, double width, double height) {
    return sheet.put(new RoleWall(std::nullopt, ColorRole::divider), x, y, width, height);
}

void addLabel(Wall& wall, const char* text) {
    auto* middle = wall.createCenteredWallInside();
    middle->factory().label(words(text), [](auto& make) { make.fillContainer(); });
}

/// A controller whose wall fills another.
class Greeting : public NiblessViewController {
public:
    void build() override {
        setView(new Wall);
        addLabel(*view(), "From a controller");
    }
};

void addArrangements(Sheet& sheet) {
    sheet.title(words("Split, centred and filled walls"), 16, 264);
    auto* side = framed(sheet, 16, 296, 220, 90);
    const auto [left, right] =
        side->split(SplittingSize::relative, 0.3, SplitDirection::horizontal);
    fillWith(left, ColorRole::selectedSegmentFill);
    addLabel(*left, "0.3");
    const auto [upper, lower] = right->split(SplittingSize::absolute, 30, SplitDirection::vertical);
    fillWith(upper, ColorRole::header);
    addLabel(*upper, "30 points");
    addLabel(*lower, "The rest");

    auto* filled = framed(sheet, 252, 296, 196, 90);
    auto controller = std::shared_ptr<Greeting>(makeController<Greeting>());
    filled->fillWallWith(*controller);
    filled->endOfLifeBag.closures.emplace_back([controller] {});
}

void addTabs(Sheet& sheet) {
    sheet.title(words("Tab wall"), 496, 16);
    auto* tabs = new TabWall;
    auto* control = new SegmentedControlBrick({words("One"), words("Two"), words("Three")});
    std::vector<Wall*> walls;
    for (const char* text : {"First wall", "Second wall, the widest of the three", "Third"}) {
        walls.push_back(tabs->createNewWall());
        fillWith(walls.back(), ColorRole::alternateBase);
        addLabel(*walls.back(), text);
    }
    control->selectionChangedFunction = [tabs, walls](int index) {
        tabs->switchToWall(walls[std::size_t(index)]);
    };
    control->selectSegment(0);
    sheet.put(control, 496, 48);
    sheet.put(tabs, 496, 80, std::nullopt, 70);
}

void addSpecialWalls(Sheet& sheet) {
    sheet.title(words("Special effects, and walls with a size of their own"), 496, 264);
    auto* effect = sheet.put(new WallWithSpecialEffectsView, 496, 296, 150, 90);
    effect->factory().pushButton(words("On the effect"), {}, [](auto& make) {
        using enum LayoutAttribute;
        make.container().place(left, left).place(top, top);
    });
    auto* plain = sheet.put(new WallWithUnconfiguredSpecialEffectsView, 662, 296, 150, 90);
    plain->factory().pushButton(words("On the plain one"), {}, [](auto& make) {
        using enum LayoutAttribute;
        make.container().place(left, left).place(top, top);
    });
    auto* own = sheet.put(new WallWithInstrinsicSize({80, 40}), 496, 402);
    fillWith(own, ColorRole::tagBand);
    addLabel(*own, "80 x 40");
}

}  // namespace

void buildWalls(Wall& wall) {
    Sheet sheet(wall);
    addBorders(sheet);
    addBackgrounds(sheet);
    addArrangements(sheet);
    addTabs(sheet);
    addSpecialWalls(sheet);
    sheet.end(840, 460);
}

}  // namespace marquell::gallery
