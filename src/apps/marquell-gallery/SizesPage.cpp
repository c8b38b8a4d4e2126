// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDateTime>
#include <array>

#include "Pages.h"
#include "Sheet.h"
#include "Words.h"
#include "toolkit/bricks/CheckBoxBrick.h"
#include "toolkit/bricks/ColorWellBrick.h"
#include "toolkit/bricks/ComboBoxBrick.h"
#include "toolkit/bricks/DatePickerBrick.h"
#include "toolkit/bricks/IntegerTextField.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/PullDownButtonBrick.h"
#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/bricks/SliderBrick.h"
#include "toolkit/bricks/SmartTextField.h"
#include "toolkit/bricks/SwitchBrick.h"
#include "toolkit/look/ButtonRole.h"

namespace marquell::gallery {

using namespace toolkit;

namespace {

using MakeBrick = QWidget* (*)();

QWidget* pushButton() { return new PushButtonBrick(words("Save As…"), {}); }

QWidget* defaultButton() {
    auto* button = new PushButtonBrick(words("Save"), {});
    setButtonRole(button, ButtonRole::accent);
    return button;
}

QWidget* checkBox() {
    auto* box = new CheckBoxBrick(words("Files & folders"));
    box->setChecked(true);
    return box;
}

QWidget* stateCheckBox() {
    auto* box = new ButtonStateValueCheckBoxBrick;
    box->setTitle(words("Some of them"));
    box->setTristate(true);
    box->setCheckState(Qt::PartiallyChecked);
    return box;
}

QWidget* popUp() {
    auto* button = new PopUpButtonBrick;
    button->addItem(words("By creation date"), words("(from newest to oldest)"));
    button->addSeparator();
    button->addItem(words("By name"), words("(from A to Z)"));
    return button;
}

QWidget* pullDown() {
    auto* button = new PullDownButtonBrick(words("Actions"));
    button->addItem(words("Do this"), {});
    return button;
}

QWidget* segments() {
    auto* control = new SegmentedControlBrick({words("Day"), words("Week"), words("Month")});
    control->selectSegment(1);
    return control;
}

QWidget* textField() {
    auto* field = new SmartTextField;
    field->setText(words("A line of text"));
    field->setAccessibleName(words("Text"));
    return field;
}

QWidget* integerField() {
    auto* field = new IntegerTextField;
    auto* formatter = new IntegerValidatingNumberFormatter;
    formatter->minimum = 1;
    formatter->maximum = 100;
    field->setNumberFormatter(formatter);
    field->setIntegerValue(42);
    field->setAccessibleName(words("Number"));
    return field;
}

QWidget* comboBox() {
    auto* box = new ComboBoxBrick;
    box->addItems({words("One of these"), words("or any text")});
    box->setAccessibleName(words("Choice"));
    return box;
}

QWidget* datePicker() {
    auto* field = new DatePickerBrick;
    field->setDateValue(QDateTime(QDate(2026, 3, 14), QTime(9, 12)));
    field->setAccessibleName(words("Date"));
    return field;
}

QWidget* slider() {
    auto* control = new SliderBrick;
    control->sliderValueChangedFunc = [](float value) { return value; };
    control->setNumberOfTickMarks(5);
    control->setFloatValue(0.4F);
    control->setAccessibleName(words("Amount"));
    return control;
}

QWidget* switchBrick() {
    auto* control = new SwitchBrick;
    control->setChecked(true);
    control->setAccessibleName(words("On or off"));
    return control;
}

QWidget* colorWell() {
    auto* well = new ColorWellBrick;
    well->setColor(QColor(0x16, 0x6B, 0xB1));
    well->setAccessibleName(words("Colour"));
    return well;
}

struct Row {
    const char* name;
    MakeBrick make;
    double width;  // 0: as the brick is
};

constexpr std::array rows{
    Row{"Push button", pushButton, 0},      Row{"Default button", defaultButton, 0},
    Row{"Check box", checkBox, 0},          Row{"Check box, three states", stateCheckBox, 0},
    Row{"Pop-up button", popUp, 270},       Row{"Pull-down button", pullDown, 0},
    Row{"Segments", segments, 0},           Row{"Text field", textField, 150},
    Row{"Integer field", integerField, 60}, Row{"Combo box", comboBox, 150},
    Row{"Date picker", datePicker, 0},      Row{"Slider", slider, 150},
    Row{"Switch", switchBrick, 0},          Row{"Colour well", colorWell, 0},
};

struct Column {
    const char* name;
    ControlSize size;
    bool isEnabled;
};

constexpr std::array columns{
    Column{"regular", ControlSize::regular, true}, Column{"small", ControlSize::small, true},
    Column{"mini", ControlSize::mini, true}, Column{"disabled", ControlSize::regular, false}};

constexpr double firstX = 190;
constexpr double pitchX = 290;
constexpr double firstY = 56;
constexpr double pitchY = 38;

}  // namespace

void buildSizes(Wall& wall) {
    Sheet sheet(wall);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        sheet.title(words(columns[i].name), firstX + pitchX * double(i), 16);
    }
    for (std::size_t j = 0; j < rows.size(); ++j) {
        const double y = firstY + pitchY * double(j);
        auto* name = sheet.put(standardLabel(words(rows[j].name)), 16, y);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            QWidget* brick = rows[j].make();
            setControlSize(brick, columns[i].size);
            brick->setEnabled(columns[i].isEnabled);
            wall.factory().internalAddBrick(brick, [&](LayoutConstraintMaker& make) {
                using enum LayoutAttribute;
                make.container().pin(left, left, firstX + pitchX * double(i));
                make.andView(name).pin(centerY, centerY, 0);
                if (rows[j].width > 0) make.width(rows[j].width);
            });
        }
    }
    sheet.end(firstX + pitchX * double(columns.size()), firstY + pitchY * double(rows.size()));
}

}  // namespace marquell::gallery
