// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPainter>
#include <memory>

#include "Pages.h"
#include "Posed.h"
#include "Sheet.h"
#include "Words.h"
#include "toolkit/bricks/CheckBoxBrick.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/PullDownButtonBrick.h"
#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/bricks/SliderBrick.h"
#include "toolkit/drawing/BricksDrawing.h"
#include "toolkit/drawing/DarkControlSkin.h"
#include "toolkit/drawing/GenericControlSkin.h"

namespace marquell::gallery {

using namespace toolkit;

namespace {

/// One of each brick that takes a skin, the buttons also pressed.
void addSkinned(Wall& wall, const QString& name, std::shared_ptr<const ControlSkin> skin) {
    wall.factory().controlSkin = std::move(skin);
    Sheet sheet(wall);
    sheet.put(standardLabel(name), 16, 16);
    sheet.put(new PushButtonBrick(words("Button"), {}), 16, 56, 120);
    auto* pressed = new PushButtonBrick(words("Pressed"), {});
    sheet.put(pressed, 16, 92, 120);
    pressed->setDown(true);
    auto* pullDown = new PullDownButtonBrick(words("Pull-down"));
    pullDown->addItem(words("An item"), {});
    sheet.put(pullDown, 16, 128, 120);
    auto* down = new PullDownButtonBrick(words("Pressed"));
    sheet.put(down, 16, 164, 120);
    down->setDown(true);
    for (const bool isOn : {false, true}) {
        auto* box = sheet.put(new CheckBoxBrick(words("Check box")), 16, isOn ? 232 : 200);
        box->setChecked(isOn);
    }
    auto* popUp = sheet.put(new PopUpButtonBrick, 16, 264, 120);
    popUp->addItem(words("Pop-up"));
}

/// A button that a function draws, and a slider of stacks.
void addOwnDrawings(Sheet& sheet) {
    sheet.title(words("Functions and stacks of single bricks"), 16, 320);
    auto* drawn = new PushButtonBrick(words("By a function"), {});
    drawn->normalDrawing.function = ButtonDrawingFuncType(
        TextDrawing{[](QPainter& painter, const QRectF& frame, const QString& text) {
            painter.fillRect(frame, QColor(0x2E, 0x6B, 0x47));
            painter.setPen(Qt::white);
            painter.drawText(frame, Qt::AlignCenter, text);
        }});
    sheet.put(drawn, 16, 352, 120);

    auto* slider = new SliderBrick;
    slider->sliderValueChangedFunc = [](float value) { return value; };
    slider->setFloatValue(0.5F);
    slider->setAccessibleName(words("Amount"));
    slider->knobStack =
        DrawingStack{{{[](QPainter& painter, const QRectF& frame, const auto&, const auto&) {
            BricksDrawing::drawSliderKnob(painter, frame, QColor(0xFF, 0xD2, 0x6B), Qt::black);
        }}}};
    slider->barStack =
        DrawingStack{{{[](QPainter& painter, const QRectF& frame, const auto&, const auto&) {
            painter.fillRect(frame, QColor(0xB1, 0x5C, 0x16));
        }}}};
    sheet.put(slider, 152, 352, 150);
}

}  // namespace

void buildSkins(Wall& wall) {
    Sheet sheet(wall);
    struct {
        const char* name;
        std::shared_ptr<const ControlSkin> skin;
        Appearance appearance;
    } const skins[] = {
        {"Without a skin", nullptr, Appearance::system},
        {"ControlSkin", std::make_shared<ControlSkin>(), Appearance::system},
        {"GenericControlSkin", std::make_shared<GenericControlSkin>(), Appearance::light},
        {"DarkControlSkin", std::make_shared<DarkControlSkin>(), Appearance::dark},
    };
    double x = 0;
    for (const auto& skin : skins) {
        auto* part = sheet.put(new Wall, x, 0, 200, 300);
        if (skin.appearance == Appearance::system) {
            fillWith(part, ColorRole::page);
        } else {
            setAppearance(part, skin.appearance);
            part->setBackgroundColor(color(ColorRole::page, part));
        }
        addSkinned(*part, words(skin.name), skin.skin);
        x += 200;
    }
    addOwnDrawings(sheet);
    sheet.end(800, 400);
}

}  // namespace marquell::gallery
