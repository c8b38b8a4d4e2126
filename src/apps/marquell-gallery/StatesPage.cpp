// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPainter>
#include <array>

#include "Pages.h"
#include "Posed.h"
#include "Rows.h"
#include "Sheet.h"
#include "Words.h"
#include "toolkit/bricks/CheckBoxBrick.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/PullDownButtonBrick.h"
#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/drawing/MarquellStyleKit.h"
#include "toolkit/look/ButtonRole.h"

namespace marquell::gallery {

using namespace toolkit;

namespace {

constexpr std::array poses{Pose::normal, Pose::hover, Pose::pressed, Pose::focus, Pose::disabled};
constexpr std::array poseNames{"normal", "hover", "pressed", "focus", "disabled"};
constexpr double firstColumn = 16;
constexpr double columnPitch = 74;
constexpr double controlWidth = 66;

using PosedButton = Posed<PushButtonBrick, QStyleOptionButton>;
using PosedPopUp = Posed<PopUpButtonBrick, QStyleOptionComboBox>;
using PosedCheckBox = Posed<CheckBoxBrick, QStyleOptionButton>;
using PosedPullDown = Posed<PullDownButtonBrick, QStyleOptionToolButton>;

double columnOf(std::size_t pose) { return firstColumn + columnPitch * double(pose); }

/// A row of the same control in all poses, made by `make(pose)`.
template <typename Make>
void row(Sheet& sheet, double y, std::optional<double> width, Make make) {
    for (std::size_t i = 0; i < poses.size(); ++i) {
        QWidget* control = sheet.put(make(poses[i]), columnOf(i), y, width);
        if (poses[i] == Pose::focus) poseWithRing(control);
    }
}

void buttonRows(Sheet& sheet, bool withDefaultButton) {
    const auto button = [](Pose pose, const char* title) {
        return new PosedButton(pose, words(title), std::function<void()>());
    };
    row(sheet, 72, controlWidth, [&](Pose pose) { return button(pose, "Button"); });
    row(sheet, 112, controlWidth, [&](Pose pose) {
        auto* small = button(pose, "Button");
        small->small();
        return small;
    });
    row(sheet, 148, controlWidth, [&](Pose pose) {
        auto* mini = button(pose, "Add ...");
        mini->mini();
        return mini;
    });
    if (!withDefaultButton) return;
    row(sheet, 182, controlWidth, [&](Pose pose) {
        auto* save = button(pose, "Save");
        setButtonRole(save, ButtonRole::accent);
        return save;
    });
}

void popUpRows(Sheet& sheet) {
    row(sheet, 222, controlWidth, [](Pose pose) {
        auto* popUp = new PosedPopUp(pose);
        popUp->addItem(QStringLiteral("CSV"));
        return popUp;
    });
    row(sheet, 262, controlWidth, [](Pose pose) {
        auto* popUp = new PosedPopUp(pose);
        popUp->small();
        popUp->addItem(words("1 Tab"));
        return popUp;
    });
}

void checkBoxRows(Sheet& sheet) {
    for (const bool isOn : {false, true}) {
        row(sheet, isOn ? 330 : 298, std::nullopt, [&](Pose pose) {
            auto* box = new PosedCheckBox(pose, words("Files"));
            box->setChecked(isOn);
            return box;
        });
    }
}

SegmentedControlBrick* posedSegments(Pose pose) {
    auto* control = new SegmentedControlBrick({words("On"), words("Off")});
    control->selectSegment(0);
    control->setEnabled(pose != Pose::disabled);
    for (auto* segment : control->findChildren<QAbstractButton*>()) {
        segment->setAttribute(Qt::WA_UnderMouse, pose == Pose::hover);
        segment->setDown(pose == Pose::pressed);
    }
    return control;
}

void glyphRow(Sheet& sheet) {
    row(sheet, 406, std::nullopt, [](Pose pose) {
        auto* cross = new PosedButton(pose);
        cross->setGlyph(Glyph::cross, words("Remove"));
        return cross;
    });
    for (std::size_t i = 0; i < poses.size(); ++i) {
        auto* plus = new PosedPullDown(poses[i]);
        plus->setGlyph(Glyph::plus, words("Add a column"));
        sheet.put(plus, columnOf(i) + 26, 406);
        if (poses[i] == Pose::focus) poseWithRing(plus);
    }
}

void buildStatesOn(Wall& wall, const QString& name, bool isColumn) {
    Sheet sheet(wall);
    sheet.title(name, firstColumn, 16);
    for (std::size_t i = 0; i < poses.size(); ++i) {
        sheet.caption(words(poseNames[i]), columnOf(i), 40, controlWidth);
    }
    buttonRows(sheet, !isColumn);
    popUpRows(sheet);
    checkBoxRows(sheet);
    if (!isColumn) row(sheet, 366, controlWidth, posedSegments);
    glyphRow(sheet);
    if (isColumn) {
        addColumnRows(sheet);
    } else {
        addPageRows(sheet);
    }
}

}  // namespace

void buildStates(Wall& wall) {
    constexpr std::array appearances{Appearance::column, Appearance::light, Appearance::dark};
    constexpr std::array names{"Blue column", "Light", "Dark"};
    constexpr std::array starts{0.0, 400.0, 790.0};
    constexpr std::array widths{400.0, 390.0, 390.0};
    for (std::size_t i = 0; i < appearances.size(); ++i) {
        const bool isColumn = appearances[i] == Appearance::column;
        auto* part = isColumn ? new Wall : new RoleWall(ColorRole::page);
        if (isColumn) part->setBackgroundColor(MarquellStyleKit::parameterWallBlue());
        setAppearance(part, appearances[i]);
        Sheet(wall).put(part, starts[i], 0, widths[i], 740);
        buildStatesOn(*part, words(names[i]), isColumn);
    }
    Sheet(wall).end(1180, 740);
}

}  // namespace marquell::gallery
