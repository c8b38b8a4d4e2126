// SPDX-License-Identifier: GPL-3.0-or-later
#include "Pages.h"
#include "Sheet.h"
#include "Words.h"
#include "toolkit/bricks/CheckBoxBrick.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/drawing/MarquellStyleKit.h"
#include "toolkit/layout/ViewMeasures.h"
#include "toolkit/look/ButtonRole.h"
#include "toolkit/look/Metrics.h"

namespace marquell::gallery {

using namespace toolkit;
using enum LayoutAttribute;

namespace {

PopUpButtonBrick* sortPopUp() {
    auto* popUp = new PopUpButtonBrick;
    popUp->addItem(words("By name and sequence number"), words("(from A to Z)"));
    popUp->addItem(words("By full path and sequence number"), words("(from Z to A)"));
    popUp->addItem(words("By creation date"), words("(from newest to oldest)"));
    setContentCompressionResistancePriority(popUp, Qt::Horizontal, LayoutPriority::low);
    return popUp;
}

/// Two popups, whose labels are as wide as the wider of them.
void addSorting(Wall& wall, QWidget* above) {
    auto& factory = wall.factory();
    auto* first = standardLabel(words("First:"));
    auto* then = standardLabel(words("Then:"));
    auto* firstPopUp = sortPopUp();
    auto* thenPopUp = sortPopUp();
    first->setBuddy(firstPopUp);
    then->setBuddy(thenPopUp);
    for (auto* label : {first, then}) label->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);

    factory.internalAddBrick(first, [&](auto& make) {
        make.container().pin(left, left, 17);
        make.andView(above).pin(top, bottom, 24);
    });
    factory.internalAddBrick(firstPopUp, [&](auto& make) {
        make.andView(first).place(left, right).pin(firstBaseline, firstBaseline, 0);
        make.container().pin(right, right, -17);
    });
    factory.internalAddBrick(thenPopUp, [&](auto& make) {
        make.andView(firstPopUp).pin(left, left, 0).pin(right, right, 0).place(top, bottom);
    });
    factory.internalAddBrick(then, [&](auto& make) {
        make.andView(thenPopUp).pin(right, left, -8).lowPriority();
        make.andView(thenPopUp).pin(firstBaseline, firstBaseline, 0);
        make.container().pin(left, left, 17);
        make.andView(first).width(0);
    });
}

/// The row of check boxes: the last one gives way where there is no room.
QWidget* addProcess(Wall& wall) {
    auto& factory = wall.factory();
    QWidget* before = nullptr;
    for (const char* title : {"Files", "Folders", "Subfolders and their contents"}) {
        auto* box = new CheckBoxBrick(words(title));
        box->setChecked(true);
        factory.internalAddBrick(box, [&](auto& make) {
            if (before) {
                make.andView(before).place(left, right).pin(top, top, 0);
            } else {
                make.container().pin(left, left, 17).pin(top, top, 48);
            }
        });
        before = box;
    }
    setContentCompressionResistancePriority(before, Qt::Horizontal, LayoutPriority::lowest);
    const auto inside = std::make_shared<LayoutConstraint>(before, right, Relation::lessThanOrEqual,
                                                           &wall, right, 1.0, -17.0);
    addConstraints(&wall, {inside});
    return before;
}

void buildColumn(Wall& wall) {
    setAppearance(&wall, Appearance::column);
    wall.backgroundDrawingFunc = [](QPainter& painter, const QRectF& frame) {
        MarquellStyleKit::drawParameterWallBackground(painter, frame, frame);
    };
    Sheet(wall).title(words("Process"), 16, 16);
    addSorting(wall, addProcess(wall));
}

/// A status line that gives way to the button beside it.
void buildRight(Wall& wall) {
    auto* save = new PushButtonBrick(words("Copy to Clipboard"), {});
    setButtonRole(save, ButtonRole::accent);
    wall.factory().internalAddBrick(save, [](auto& make) {
        make.minWidth(72);
        make.container().place(right, right).place(bottom, bottom);
    });
    setContentHuggingPriority(save, Qt::Horizontal, LayoutPriority::high);
    auto* status = standardLabel(words("Ready. (1,044 items | 46,212 metadata items)."));
    status->small();
    status->setColorRole(ColorRole::secondaryText);
    setContentCompressionResistancePriority(status, Qt::Horizontal, LayoutPriority::lowest);
    wall.factory().internalAddBrick(status, [&](auto& make) {
        make.container().place(left, left);
        make.andView(save).pin(firstBaseline, firstBaseline, 0).place(right, left);
    });
    auto* hint = wall.createCenteredWallInside();
    hint->factory().label(words("This form keeps its measures as the window is resized."),
                          [](auto& make) { make.fillContainer(); });
}

}  // namespace

void buildForm(Wall& wall) {
    auto* column = new Wall;
    auto* right1 = new Wall;
    wall.factory().internalAddBrick(column, [](auto& make) {
        make.width(400).minHeight(300);
        make.container().pin(left, left, 0).pin(top, top, 0).pin(bottom, bottom, 0);
    });
    wall.factory().internalAddBrick(right1, [&](auto& make) {
        make.minWidth(400);
        make.andView(column).pin(left, right, 0);
        make.container().pin(right, right, 0).pin(top, top, 0).pin(bottom, bottom, 0);
    });
    buildColumn(*column);
    buildRight(*right1);
}

}  // namespace marquell::gallery
