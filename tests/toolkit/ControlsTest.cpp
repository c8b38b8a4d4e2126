// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QColorDialog>
#include <QMenu>
#include <QTimer>
#include <QWheelEvent>
#include <QtTest/QTest>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

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
#include "toolkit/bricks/SmartMenuItem.h"
#include "toolkit/bricks/SmartTextField.h"
#include "toolkit/bricks/SwitchBrick.h"

namespace marquell::toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A window that can be shown as the active one.
class Window : public QWidget {
public:
    void open() {
        show();
        QApplication::setActiveWindow(this);
    }
};

class IntegerField : public testing::Test {
protected:
    IntegerField() {
        auto* const formatter = new IntegerValidatingNumberFormatter;
        formatter->minimum = 1;
        formatter->maximum = 100;
        field.setNumberFormatter(formatter);
        field.setIntegerValue(50);
        field.addUserListener([this](std::int64_t number) { settled.push_back(number); });
        window.open();
        field.setFocus();
        field.selectAll();
    }

    std::string textAfter(const char* keys) {
        QTest::keyClicks(&field, QString::fromLatin1(keys));
        return field.text().toStdString();
    }

    std::vector<std::int64_t> settled;
    Window window;
    IntegerTextField& field = *new IntegerTextField(&window);
    SmartTextField& other = *new SmartTextField(&window);
};

TEST_F(IntegerField, RefusesWhatIsNoNumberUpToTheMaximum) {
    EXPECT_EQ(textAfter("-"), "50") << "does not parse";
    EXPECT_EQ(textAfter("101"), "10") << "refused as it is typed";
    EXPECT_EQ(textAfter("x "), "10");
    const IntegerValidatingNumberFormatter formatter;
    for (const char* valid : {"", "0", "+5", "-5", "9223372036854775807"}) {
        EXPECT_TRUE(formatter.isPartialStringValid(QString::fromLatin1(valid))) << valid;
    }
    for (const char* invalid :
         {"+", "+-5", "--5", " 5", "5 ", "1.5", "0x10", "9223372036854775808"}) {
        EXPECT_FALSE(formatter.isPartialStringValid(QString::fromLatin1(invalid))) << invalid;
    }
}

TEST_F(IntegerField, RaisesToTheMinimumOnReturnAndWhenLeft) {
    std::vector<std::int64_t> returned;
    field.returnKeyActionFunction = [&] { returned.push_back(field.integerValue()); };
    EXPECT_EQ(textAfter("0"), "0") << "on the way to another number";
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_THAT(returned, ElementsAre(1));
    field.selectAll();
    textAfter("0");
    other.setFocus();
    EXPECT_EQ(field.text(), QStringLiteral("1"));
    EXPECT_THAT(returned, ElementsAre(1)) << "leaving does not call it untold";

    field.callsReturnKeyFunctionOnResigningFirstResponder = true;
    field.setFocus();
    field.clear();
    other.setFocus();
    EXPECT_EQ(field.text(), QStringLiteral("1")) << "the last number";
    EXPECT_THAT(returned, ElementsAre(1, 1));
    EXPECT_THAT(settled, ElementsAre(1)) << "new numbers only";
}

TEST_F(IntegerField, StepsBetweenItsBounds) {
    int calls = 0;
    field.returnKeyActionFunction = [&] { ++calls; };
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(calls, 0);
    field.callsReturnKeyFunctionOnTextHasChanged = true;
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(calls, 1);
    EXPECT_THAT(settled, ElementsAre(51, 52));
    field.setIntegerValue(100);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_TRUE(field.increment());
    field.setIntegerValue(1);
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(field.text(), QStringLiteral("1"));
    EXPECT_EQ(calls, 1) << "at a bound nothing is called";
    textAfter("2");
    EXPECT_EQ(calls, 2) << "typing counts as change";
    field.setIntegerValue(-5);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.text(), QStringLiteral("-4")) << "not raised by a step";
    EXPECT_THAT(settled, ElementsAre(51, 52));
    field.setReadOnly(true);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.text(), QStringLiteral("-4"));
    field.numberFormatter()->maximum.reset();
    EXPECT_FALSE(field.increment());
}

TEST(TextField, TellsWhatIsTypedAndNothingElse) {
    SmartTextField field;
    std::vector<std::string> texts;
    int pressed = 0;
    field.textChangedAction = [&](const QString& text) { texts.push_back(text.toStdString()); };
    field.buttonPressFunction = [&] { ++pressed; };
    field.setText(QStringLiteral("set"));
    EXPECT_THAT(texts, IsEmpty());
    QTest::keyClicks(&field, QStringLiteral("s"));
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_THAT(texts, ElementsAre("sets", "sets"));
    EXPECT_EQ(pressed, 1);
    EXPECT_EQ(field.intrinsicContentSize().width, -1);

    ComboBoxBrick combo;
    combo.addItems({QStringLiteral("one"), QStringLiteral("two")});
    texts.clear();
    combo.textChangedAction = field.textChangedAction;
    combo.setCurrentIndex(1);
    QTest::keyClicks(&combo, QStringLiteral("!"));
    EXPECT_THAT(texts, ElementsAre("two!"));
}

class PopUp : public testing::Test {
protected:
    PopUp() {
        popup.addItem(new SmartMenuItem(QStringLiteral("Beta"), [this] { chosen.push_back(0); }));
        popup.addItem(new SmartMenuItem(QStringLiteral("Alpha"), [this] { chosen.push_back(1); }));
        popup.addSeparator();
        last = popup.addItem(
            new SmartMenuItem(QStringLiteral("Gamma"), [this] { chosen.push_back(3); }));
        last->tag = 7;
        window.open();
        popup.setFocus();
    }
    ~PopUp() override { popup.hidePopup(); }

    QWidget* list() { return popup.view(); }

    Window window;
    PopUpButtonBrick& popup = *new PopUpButtonBrick(&window);
    SmartMenuItem* last = nullptr;
    std::vector<int> chosen;
};

TEST_F(PopUp, WritesTheChoiceOnce) {
    EXPECT_EQ(popup.indexOfSelectedItem(), 0);
    QTest::keyClick(&popup, Qt::Key_Down);
    ASSERT_TRUE(list()->isVisible()) << "a key opens the list";
    EXPECT_EQ(popup.indexOfSelectedItem(), 0) << "and changes nothing";
    QTest::keyClick(list(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Down);
    EXPECT_THAT(chosen, IsEmpty());
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_THAT(chosen, ElementsAre(3)) << "the separator is passed by but counts";
    EXPECT_EQ(popup.selectedItem(), last);

    QTest::keyClicks(&popup, QStringLiteral("a"));
    QTest::keyClick(list(), Qt::Key_Escape);
    EXPECT_EQ(popup.indexOfSelectedItem(), 3);
    QTest::keyClicks(&popup, QStringLiteral("a"));
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_THAT(chosen, ElementsAre(3, 1));
    QTest::keyClick(&popup, Qt::Key_A, Qt::ControlModifier);
    EXPECT_FALSE(list()->isVisible()) << "a shortcut is none of its keys";
}

TEST_F(PopUp, SelectsForTheProgramInSilence) {
    EXPECT_TRUE(popup.selectItemWithTag(7));
    EXPECT_EQ(popup.indexOfSelectedItem(), 3);
    EXPECT_FALSE(popup.selectItemWithTag(8));
    EXPECT_EQ(popup.indexOfSelectedItem(), 3);
    for (const int none : {2, 4, -1, -7}) {
        popup.selectItemAt(0);
        popup.selectItemAt(none);
        EXPECT_EQ(popup.indexOfSelectedItem(), -1) << none;
    }
    EXPECT_THAT(chosen, IsEmpty());
    popup.removeAllItems();
    popup.addSeparator();
    EXPECT_EQ(popup.indexOfSelectedItem(), -1);
}

TEST_F(PopUp, BringsItsItemsUpToDateBeforeTheListShows) {
    std::vector<std::string> order;
    popup.buttonPressFunction = [&] { order.emplace_back("press"); };
    last->updateBeforeDisplayFunc = [&](SmartMenuItem& item) {
        order.emplace_back("update");
        item.setTitle(QStringLiteral("Delta & a title that is far wider than all the others"));
    };
    last->traditionalValidateFunc = [&](SmartMenuItem&) { return false; };
    const int narrow = popup.sizeHint().width();
    popup.resize(popup.minimumSizeHint());
    QTest::mouseClick(&popup, Qt::LeftButton);
    EXPECT_THAT(order, ElementsAre("press", "update"));
    EXPECT_EQ(popup.itemText(3), last->title());
    EXPECT_GT(popup.sizeHint().width(), narrow);
    EXPECT_GE(list()->width(), list()->sizeHint().width());
    EXPECT_GT(list()->width(), narrow) << "as wide as the longest item";
    EXPECT_FALSE(popup.model()->flags(popup.model()->index(3, 0)) & Qt::ItemIsEnabled);
}

TEST_F(PopUp, MayBeFilledAnewOrEmptiedWhileItPrepares) {
    last->updateBeforeDisplayFunc = [](SmartMenuItem& item) { delete &item; };
    popup.itemAt(0)->updateBeforeDisplayFunc = [this](auto&) { delete popup.itemAt(1); };
    popup.showPopup();
    EXPECT_EQ(popup.count(), 2) << "an item and the separator";
    popup.hidePopup();
    popup.itemAt(0)->traditionalValidateFunc = [](auto&) { return false; };
    popup.itemAt(0)->updateBeforeDisplayFunc = [this](auto&) {
        popup.removeAllItems();
        popup.addItem(QStringLiteral("new"));
    };
    popup.showPopup();
    EXPECT_EQ(popup.itemText(0), QStringLiteral("new"));
    EXPECT_EQ(popup.count(), 1);
}

TEST_F(PopUp, OffersNoItemThatIsNotVisible) {
    popup.itemAt(1)->updateBeforeDisplayFunc = [](SmartMenuItem& item) {
        item.setVisible(!item.isVisible());
    };
    for (const int next : {3, 1}) {
        popup.selectItemAt(0);
        popup.showPopup();
        const QRect row = popup.view()->visualRect(popup.model()->index(1, 0));
        EXPECT_EQ(row.isEmpty(), next == 3);
        QTest::keyClick(list(), Qt::Key_Down);
        QTest::keyClick(list(), Qt::Key_Return);
        EXPECT_EQ(popup.indexOfSelectedItem(), next);
    }
}

TEST(MenuItem, IsAskedAgainBeforeItRuns) {
    int runs = 0;
    bool isValid = false;
    SmartMenuItem item(QStringLiteral("Item"), [&] { ++runs; });
    item.traditionalValidateFunc = [&](auto&) { return isValid; };
    item.trigger();
    EXPECT_EQ(runs, 0);
    isValid = true;
    item.trigger();
    EXPECT_EQ(runs, 1);
}

TEST(PullDown, BringsItsMenusUpToDateBeforeTheyShow) {
    PullDownButtonBrick button(QStringLiteral("Add"));
    std::vector<std::string> order;
    button.buttonPressFunction = [&] { order.emplace_back("press"); };
    SmartMenuItem* const item =
        button.addItem(QStringLiteral("Item"), [&] { order.emplace_back("chosen"); });
    auto* const submenu = button.menu()->addMenu(QStringLiteral("More"));
    auto* const deep = new SmartMenuItem(QStringLiteral("Deep"), {}, submenu);
    submenu->addAction(deep);
    const auto note = [&](SmartMenuItem& updated) {
        order.push_back(updated.title().toStdString());
    };
    item->updateBeforeDisplayFunc = note;
    deep->updateBeforeDisplayFunc = note;
    deep->traditionalValidateFunc = [](SmartMenuItem&) { return false; };
    button.show();
    QTimer::singleShot(0, &button, [&] {
        QTest::keyClick(button.menu(), Qt::Key_Down);
        QTest::keyClick(button.menu(), Qt::Key_Return);
    });
    QTest::keyClick(&button, Qt::Key_Down);
    EXPECT_THAT(order, ElementsAre("press", "Item", "Deep", "chosen"));
    EXPECT_FALSE(deep->isEnabled());
    EXPECT_TRUE(item->validateMenuItem());
}

TEST(Segments, GoByArrowKeysAndClicks) {
    Window window;
    auto& row = *new SegmentedControlBrick(
        {QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")}, &window);
    std::vector<int> chosen;
    row.selectionChangedFunction = [&](int index) { chosen.push_back(index); };
    row.resize(row.sizeHint());
    window.open();
    EXPECT_EQ(row.indexOfSelectedItem(), -1);
    row.selectSegment(1);
    row.setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_EQ(row.indexOfSelectedItem(), 2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    QWidget* const first = row.childAt(2, 5);
    QTest::mouseClick(first, Qt::LeftButton);
    EXPECT_THAT(chosen, ElementsAre(2, 1, 0)) << "what the user does";
    row.selectSegment(3);
    EXPECT_EQ(row.indexOfSelectedItem(), -1) << "no such segment";
    row.selectSegment(2);
    EXPECT_EQ(row.indexOfSelectedItem(), 2) << "still one at a time";
    EXPECT_EQ(row.childAt(row.width() - 2, 5)->geometry().right(), row.width() - 1);
}

TEST(Segments, KeepFocusAndSelectionTogether) {
    Window window;
    auto& row = *new SegmentedControlBrick(
        {QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")}, &window);
    row.resize(row.sizeHint());
    window.open();
    row.setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_EQ(row.indexOfSelectedItem(), 1) << "next to the focus";
    row.selectSegment(2);
    EXPECT_EQ(QApplication::focusWidget(), row.childAt(row.width() - 3, 5));
    row.selectSegment(0);
    row.childAt(row.width() - 3, 5)->setFocus();
    row.setSegmentEnabled(false, 1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(row.indexOfSelectedItem(), 2) << "next to the selection, by the disabled one";
    window.setLayoutDirection(Qt::RightToLeft);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_EQ(row.indexOfSelectedItem(), 0);
}

TEST(Segments, AreDividedAlikeFromRightToLeft) {
    for (const SegmentStyle style : {SegmentStyle::capsule, SegmentStyle::smallSquare}) {
        const auto drawn = [style](Qt::LayoutDirection direction, int selected) {
            SegmentedControlBrick row({QString(), QString(), QString()});
            row.setLayoutDirection(direction);
            row.setSegmentStyle(style);
            row.selectSegment(selected);
            row.resize(90, 24);
            return row.grab().toImage();
        };
        EXPECT_EQ(drawn(Qt::LeftToRight, 0), drawn(Qt::RightToLeft, 2));
    }
}

TEST(Bricks, LeaveTheWheelToWhatScrolls) {
    Window window;
    auto* const popup = new PopUpButtonBrick(&window);
    auto* const combo = new ComboBoxBrick(&window);
    auto* const slider = new SliderBrick(&window);
    slider->sliderValueChangedFunc = [](float value) { return value; };
    auto* const date = new DatePickerBrick(&window);
    auto* const row =
        new SegmentedControlBrick({QStringLiteral("one"), QStringLiteral("two")}, &window);
    for (const char* item : {"one", "two", "three"}) {
        popup->addItem(QString::fromLatin1(item));
        combo->addItem(QString::fromLatin1(item));
    }
    popup->selectItemAt(1);
    combo->setCurrentIndex(1);
    slider->setFloatValue(0.5F);
    row->selectSegment(0);
    const QDateTime before = date->dateValue();
    window.open();
    const std::vector<QWidget*> views = {popup, combo, slider, date, row->childAt(1, 1)};
    for (QWidget* view : views) {
        EXPECT_NE(view->focusPolicy(), Qt::WheelFocus);
        const QPointF middle = view->rect().center();
        QWheelEvent turn(middle, view->mapToGlobal(middle), QPoint(), QPoint(0, -240), Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view, &turn);
        EXPECT_FALSE(turn.isAccepted()) << view->metaObject()->className();
    }
    EXPECT_EQ(popup->indexOfSelectedItem(), 1);
    EXPECT_EQ(combo->currentIndex(), 1);
    EXPECT_EQ(slider->floatValue(), 0.5F);
    EXPECT_EQ(date->dateValue(), before);
}

TEST(Bricks, ReportTheUserOnly) {
    std::vector<std::string> told;
    CheckBoxBrick box(QStringLiteral("Box"),
                      [&](bool isOn) { told.emplace_back(isOn ? "box on" : "box off"); });
    SwitchBrick turned;
    turned.checkBoxChangeFunc = [&](bool isOn) { told.emplace_back(isOn ? "on" : "off"); };
    DatePickerBrick date;
    date.dateValueChangedFunc = [&](const QDateTime&) { told.emplace_back("date"); };
    box.setChecked(true);
    turned.setChecked(true);
    date.setDateValue(QDateTime(QDate(2024, 2, 29), QTime(12, 0)));
    date.setTime(QTime(13, 0));
    date.setMinimumDate(QDate(2024, 3, 1));
    EXPECT_EQ(date.date(), QDate(2024, 3, 1));
    EXPECT_THAT(told, IsEmpty());
    box.resize(box.sizeHint());
    turned.resize(turned.sizeHint());
    QTest::mouseClick(&box, Qt::LeftButton);
    QTest::mouseClick(&turned, Qt::LeftButton);
    QTest::keyClick(&turned, Qt::Key_Space);
    date.setSelectedSection(QDateTimeEdit::YearSection);
    QTest::keyClick(&date, Qt::Key_Up);
    EXPECT_THAT(told, ElementsAre("box off", "off", "on", "date"));
}

TEST(Slider, TakesWhatItsFunctionAnswers) {
    SliderBrick slider;
    slider.setValueRange(-1, 3);
    std::vector<float> given;
    slider.sliderValueChangedFunc = [&](float value) {
        given.push_back(value);
        return value > 2 ? 2 : value;
    };
    slider.setFloatValue(7);
    EXPECT_EQ(slider.floatValue(), 3);
    EXPECT_THAT(given, IsEmpty()) << "not by the program";
    QTest::keyClick(&slider, Qt::Key_Home);
    EXPECT_EQ(slider.floatValue(), -1);
    QTest::keyClick(&slider, Qt::Key_End);
    EXPECT_EQ(slider.floatValue(), 2);
    EXPECT_THAT(given, ElementsAre(-1, 3));
    EXPECT_TRUE(slider.rectOfTickMark(0).isNull());
    slider.setNumberOfTickMarks(3);
    slider.resize(116, 24);
    const double middle = slider.rectOfTickMark(1).x();
    EXPECT_EQ(middle - slider.rectOfTickMark(0).x(), slider.rectOfTickMark(2).x() - middle);
    EXPECT_GT(middle, 0);
    slider.returnZeroRectForTickMarks = true;
    EXPECT_TRUE(slider.rectOfTickMark(1).isNull());
}

TEST(Slider, GoesFromMarkToMark) {
    SliderBrick slider;
    slider.sliderValueChangedFunc = [](float value) { return value; };
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_FLOAT_EQ(slider.floatValue(), 0.01F);
    slider.setValueRange(0, 3);
    slider.setFloatValue(0);
    slider.setNumberOfTickMarks(4);
    slider.sliderValueChangedFunc = [](float value) { return std::round(value); };
    for (const int key : {Qt::Key_Right, Qt::Key_PageUp, Qt::Key_Right}) {
        QTest::keyClick(&slider, static_cast<Qt::Key>(key));
    }
    EXPECT_EQ(slider.floatValue(), 3);
}

TEST(ColorWell, OpensOneDialog) {
    ColorWellBrick well;
    well.show();
    well.click();
    well.click();
    EXPECT_EQ(well.findChildren<QColorDialog*>().size(), 1);
}

TEST(Focus, GoesFromBrickToBrickInTheirOrder) {
    Window window;
    auto* const first = new PushButtonBrick(QStringLiteral("First"), {}, &window);
    auto* const passedBy = new PushButtonBrick(QStringLiteral("Passed by"), {}, &window);
    auto* const row =
        new SegmentedControlBrick({QStringLiteral("one"), QStringLiteral("two")}, &window);
    auto* const last = new PopUpButtonBrick(&window);
    passedBy->setCannotBecomeKeyView();
    EXPECT_FALSE(passedBy->internalCanBecomeKeyView());
    row->selectSegment(1);
    window.open();
    first->setFocus();
    std::vector<QWidget*> met;
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        met.push_back(QApplication::focusWidget());
    }
    EXPECT_THAT(met, ElementsAre(row->focusProxy(), last, first))
        << "a row of segments is one stop";
}

TEST(PushButton, MayEndItselfByItsAction) {
    auto* button = new PushButtonBrick;
    bool isAlive = true;
    button->buttonPressFunction = [&, alive = std::make_shared<int>()] {
        button->buttonPressFunction = nullptr;
        isAlive = alive.use_count() > 0;
    };
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(isAlive);
    delete button;
}

}  // namespace
}  // namespace marquell::toolkit
