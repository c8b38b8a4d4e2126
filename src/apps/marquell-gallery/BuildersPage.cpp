// SPDX-License-Identifier: GPL-3.0-or-later
#include <QIcon>

#include "Pages.h"
#include "Sheet.h"
#include "Words.h"
#include "toolkit/bricks/CheckBoxBrick.h"
#include "toolkit/bricks/DatePickerBrick.h"
#include "toolkit/bricks/IntegerTextField.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/PullDownButtonBrick.h"
#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/bricks/SliderBrick.h"
#include "toolkit/bricks/SmartTextField.h"
#include "toolkit/drawing/Brand.h"
#include "toolkit/walls/IntrinsicSizeWalls.h"
#include "toolkit/walls/SpecialEffectWalls.h"
#include "toolkit/walls/TabWall.h"

namespace marquell::gallery {

using namespace toolkit;
using enum LayoutAttribute;

namespace {

/// One below the other at the standard distance, by the factory's own look-up of it.
class Column {
public:
    Column(Wall& wall, double x, BrickSize size) : factory_(wall.factory()), wall_(wall), x_(x) {
        factory_.brickSize = size;
    }

    LayoutClosure next() {
        return [this](LayoutConstraintMaker& make) {
            make.container().pin(left, left, x_);
            if (last_) {
                make.andView(last_).place(top, bottom);
            } else {
                make.container().pin(top, top, 48);
            }
            last_ = make.subject;
        };
    }

    LayoutClosure next(double width) {
        return [width, place = next()](LayoutConstraintMaker& make) {
            make.width(width);
            place(make);
        };
    }

    BricksFactory& factory() { return factory_; }
    Wall& wall() { return wall_; }

private:
    BricksFactory& factory_;
    Wall& wall_;
    const double x_;
    QWidget* last_ = nullptr;
};

void addMenu(PullDownButtonBrick* button) {
    button->addItem(words("Sort again"), {});
    button->addSeparator();
    button->addItem(words("Remove all"), {});
}

void addButtons(Column& column) {
    auto& factory = column.factory();
    factory.label(words("A label"), column.next());
    factory.pushButton(words("Push button"), {}, column.next());
    factory.borderlessButton(words("Without a border"), {}, column.next());
    factory.helpButton({}, column.next());
    factory.smartCheckBoxButton(words("Check box"), {}, column.next())->setChecked(true);
    auto* popUp = factory.popupButton(column.next(150));
    popUp->addItem(words("First choice"));
    popUp->addItem(words("Second choice"));
    popUp->setAccessibleName(words("Choice"));
    addMenu(factory.pullDownButton(words("Pull-down"), column.next()));
    auto* withImage = factory.pullDownButton(applicationIcon(), column.next());
    withImage->setAccessibleName(words("With an image"));
    addMenu(withImage);
    addMenu(factory.pullDownButtonBrick(words("Pull-down brick"), column.next()));
    addMenu(factory.smartPullDownButton(words("Smart pull-down"), column.next()));
    auto* smartWithImage = factory.smartPullDownButton(applicationIcon(), column.next());
    smartWithImage->setAccessibleName(words("Smart, with an image"));
    addMenu(smartWithImage);
}

void addFields(Column& column) {
    auto& factory = column.factory();
    factory.textField(words("Text"), column.next(150))->setAccessibleName(words("Text"));
    factory.integerTextField(7, 1, 100, column.next(60))->setAccessibleName(words("Number"));
    factory.segmentedControl({words("Left"), words("Right")}, {}, column.next())->selectSegment(0);
    const auto keep = [](float value) { return value; };
    for (const bool hidesTicks : {false, true}) {
        auto* slider = factory.slider(keep, hidesTicks, column.next(150));
        slider->setNumberOfTickMarks(5);
        slider->setAccessibleName(words("Amount"));
    }
    factory.datePickerBrick(column.next())->setAccessibleName(words("Date"));
}

void addContainers(Column& column) {
    auto& factory = column.factory();
    fillWith(factory.wall({150, 30}, column.next()), ColorRole::alternateBase);
    auto* tabs = factory.tabWall([next = column.next()](LayoutConstraintMaker& make) {
        make.width(150).height(30);
        next(make);
    });
    fillWith(tabs->createNewWall(), ColorRole::header);
    factory.specialEffectWall({150, 30}, column.next());
    factory.unconfiguredSpecialEffectWall({150, 30}, column.next());
    factory.viewWithIntrinicSize({150, 10}, column.next());
}

}  // namespace

void buildBuilders(Wall& wall) {
    Sheet sheet(wall);
    double x = 0;
    for (const auto size : {BrickSize::inherited, BrickSize::small}) {
        auto* half = sheet.put(new Wall, x, 0, 560, 480);
        Sheet(*half).title(size == BrickSize::small ? words("A factory of small bricks")
                                                    : words("A factory that inherits its size"),
                           16, 16);
        Column buttons(*half, 16, size);
        addButtons(buttons);
        Column fields(*half, 200, size);
        addFields(fields);
        Column containers(*half, 380, size);
        addContainers(containers);
        x += 560;
    }
    sheet.end(1120, 480);
}

}  // namespace marquell::gallery
