// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QAccessible>
#include <QLineEdit>
#include <QMenu>
#include <QToolTip>
#include <QtTest/QTest>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/bricks/BricksFactory.h"
#include "toolkit/bricks/CheckBoxBrick.h"
#include "toolkit/bricks/ColorWellBrick.h"
#include "toolkit/bricks/ComboBoxBrick.h"
#include "toolkit/bricks/IntegerTextField.h"
#include "toolkit/bricks/Label.h"
#include "toolkit/bricks/PlainToolTip.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/PullDownButtonBrick.h"
#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/bricks/SegmentWidths.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/bricks/SliderBrick.h"
#include "toolkit/bricks/SmartMenuItem.h"
#include "toolkit/bricks/SmartTextField.h"
#include "toolkit/bricks/SwitchBrick.h"
#include "toolkit/drawing/GenericControlSkin.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/walls/Wall.h"

namespace marquell::toolkit {
namespace {

using testing::ElementsAre;

TEST(BricksFactory, AsksTheWallsAboveThroughPlainViews) {
    Wall outer;
    outer.factory().horizontalInset = 13;
    outer.factory().brickSize = BrickSize::small;
    auto* const plain = new QWidget(&outer);
    auto* const inner = new Wall(plain);
    EXPECT_EQ(inner->factory().internalHorizontalInset(), 13);
    EXPECT_EQ(inner->factory().internalVerticalInset(), 8) << "the top-level factory's";
    EXPECT_EQ(inner->factory().internalGetInheritedBrickSize(), BrickSize::small);
    inner->factory().verticalInset = 3;
    EXPECT_EQ(&BricksFactory::factoryFor(new QWidget(inner)), &inner->factory());
    EXPECT_EQ(inner->factory().insetFor(LayoutAttribute::trailing), -13);
    EXPECT_EQ(inner->factory().insetFor(LayoutAttribute::top), 3);
    EXPECT_EQ(inner->factory().insetFor(LayoutAttribute::bottom), -3);
    EXPECT_EQ(inner->factory().insetFor(LayoutAttribute::width), 0);

    QWidget dialog(plain, Qt::Dialog);
    EXPECT_EQ(&BricksFactory::factoryFor(&dialog), &BricksFactory::topLevel());
    const auto free = BricksFactory::makeFactory(&dialog);
    EXPECT_EQ(free->internalHorizontalInset(), 8) << "a window lies on no wall";
    EXPECT_EQ(free->internalGetInheritedBrickSize(), BrickSize::standard);
}

TEST(BricksFactory, IsCurrentFromMakingOrUseUntilItsEnd) {
    Wall wall;
    {
        const auto other = BricksFactory::makeFactory(nullptr);
        EXPECT_EQ(&BricksFactory::current(), other.get());
        wall.factory().label(QStringLiteral("a"));
        EXPECT_EQ(&BricksFactory::current(), &wall.factory());
        other->makeCurrent();
    }
    EXPECT_EQ(&BricksFactory::current(), &BricksFactory::topLevel());
}

TEST(BricksFactory, PlacesAndSizesWhatItIsGiven) {
    Wall wall;
    BricksFactory& factory = wall.factory();
    QWidget* superviewInClosure = nullptr;
    Label* const first = factory.label(QStringLiteral("first"), [&](LayoutConstraintMaker& make) {
        superviewInClosure = make.subject->parentWidget();
    });
    EXPECT_EQ(superviewInClosure, &wall);
    EXPECT_EQ(controlSizeOf(first), ControlSize::regular);
    factory.brickSize = BrickSize::small;
    Label* const second = factory.label(QStringLiteral("second"));
    EXPECT_EQ(controlSizeOf(second), ControlSize::small);
    EXPECT_EQ(second->sizeHint().height(), metrics().controlHeight(ControlSize::small));
    EXPECT_EQ(factory.currentView, second);
    EXPECT_EQ(factory.previous, first);

    factory.brickSize = BrickSize::mini;
    EXPECT_EQ(controlSizeOf(factory.label(QStringLiteral("x"))), ControlSize::regular)
        << "bricks are made mini by hand";
    auto* const control = new QLabel;
    factory.internalAddBrick(control);
    EXPECT_EQ(controlSizeOf(control), ControlSize::mini);
    auto* const view = new QWidget;
    view->hide();
    factory.internalAddBrick(view);
    EXPECT_EQ(controlSizeOf(view), ControlSize::regular) << "no control";
    wall.show();
    EXPECT_TRUE(second->isVisible());
    EXPECT_FALSE(view->isVisible()) << "hidden by the caller";
}

TEST(Skins, DrawInPlaceOfTheStyle) {
    Wall wall;
    wall.factory().controlSkin = std::make_shared<GenericControlSkin>();
    PushButtonBrick* const button = wall.factory().pushButton(QStringLiteral("a&b"), {});
    ASSERT_TRUE(button->normalDrawing.stack && button->highlightedDrawing.stack);
    const auto provider = button->textProvider();
    button->setTitle(QStringLiteral("changed & more"));
    EXPECT_EQ(provider->getText(), QStringLiteral("changed & more"));

    std::vector<std::string> drawn;
    const DrawingOperation stacked = {
        .function = [&](auto&, auto&, auto&, auto&) { drawn.emplace_back("stack"); }};
    button->normalDrawing = {std::nullopt, DrawingStack{{stacked, stacked}}};
    button->grab();
    button->normalDrawing.function = TextDrawing{
        [&](auto&, auto&, const QString& text) { drawn.push_back(text.toStdString()); }};
    button->grab();
    button->normalDrawing.function =
        ImageDrawing{[&](auto&, auto&, auto&) { drawn.emplace_back("image"); }};
    button->grab();
    EXPECT_THAT(drawn, ElementsAre("stack", "stack", "changed & more"))
        << "a function wins over the stack, and one for images has none here";
    button->highlightedDrawing.function =
        PlainDrawing{[&](auto&, auto&) { drawn.emplace_back("pressed"); }};
    button->setDown(true);
    button->grab();
    EXPECT_EQ(drawn.back(), "pressed");

    PopUpButtonBrick* const popup = wall.factory().popupButton();
    popup->normalDrawing.stack = DrawingStack();
    popup->apply(GenericControlSkin());
    EXPECT_FALSE(popup->normalDrawing.stack) << "popups stay as the style draws them";
}

TEST(Bricks, AreDrawnInTheirOwnFont) {
    CheckBoxBrick box(QStringLiteral("Box"));
    PushButtonBrick button(QStringLiteral("Button"), {});
    Label label(QStringLiteral("Label"));
    PullDownButtonBrick pullDown(QStringLiteral("Menu"));
    for (BrickType* const brick : std::vector<BrickType*>{&box, &button, &label, &pullDown}) {
        const auto drawn = [&](int pixelSize) {
            QImage image(120, 40, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::white);
            QPainter painter(&image);
            QFont font = painter.font();
            font.setPixelSize(pixelSize);
            painter.setFont(font);
            brick->delegateDrawingToSuper(painter, QRectF(0, 0, 120, 30));
            EXPECT_EQ(painter.font().pixelSize(), pixelSize) << "as it was";
            painter.end();
            return image;
        };
        EXPECT_EQ(drawn(8), drawn(24));
    }
}

/// A parent whose children are all named by plain texts.
class Names : public testing::Test {
protected:
    static QAccessibleInterface& accessible(QWidget* view) {
        return *QAccessible::queryAccessibleInterface(view);
    }
    static QString nameOf(QWidget* view) { return accessible(view).text(QAccessible::Name); }
    static QString valueOf(QWidget* view) { return accessible(view).text(QAccessible::Value); }

    const QString odd = QStringLiteral("a&b <img src=x>");
    QWidget window;
};

TEST_F(Names, AreTheTitlesAsTheyStand) {
    auto* const button = new PushButtonBrick(odd, {}, &window);
    EXPECT_EQ(nameOf(button), odd);
    EXPECT_EQ(nameOf(new CheckBoxBrick(odd, {}, &window)), odd);
    EXPECT_EQ(nameOf(new Label(odd, &window)), odd);
    EXPECT_EQ(nameOf(new PullDownButtonBrick(odd, &window)), odd);
    EXPECT_TRUE(button->shortcut().isEmpty());
    EXPECT_EQ(SmartMenuItem(odd).title(), odd);
    button->setKeyEquivalent(QKeySequence(Qt::Key_Return));
    button->setTitle(QStringLiteral("Save"));
    EXPECT_EQ(button->shortcut(), QKeySequence(Qt::Key_Return)) << "outlives a new title";
    button->setGlyph(Glyph::cross, odd);
    EXPECT_EQ(nameOf(button), odd);
    EXPECT_EQ(accessible(button).text(QAccessible::Description), odd);
    EXPECT_TRUE(button->toolTip().contains(QStringLiteral("a&amp;b &lt;img"))) << "as it stands";
}

TEST_F(Names, TellThePopupAndItsChoiceApart) {
    auto* const label = new Label(odd, &window);
    auto* const popup = new PopUpButtonBrick(&window);
    popup->addItem(odd, QStringLiteral("(from A to Z)"));
    EXPECT_EQ(nameOf(popup), odd + QStringLiteral(" (from A to Z)")) << "no label: the choice";
    label->setBuddy(popup);
    EXPECT_EQ(nameOf(popup), odd + QStringLiteral(": ") + valueOf(popup));
    label->setText(QStringLiteral("Sorting:"));
    EXPECT_EQ(nameOf(popup), QStringLiteral("Sorting: ") + valueOf(popup));
    label->setText(odd);
    ASSERT_EQ(accessible(popup).relations(QAccessible::Label).size(), 1);
    EXPECT_EQ(accessible(popup).relations(QAccessible::Label)[0].first->object(), label);
    EXPECT_EQ(valueOf(popup), odd + QStringLiteral(" (from A to Z)"));
    EXPECT_EQ(accessible(popup).role(), QAccessible::ComboBox);
    auto* const number = new IntegerTextField(&window);
    label->setBuddy(number);
    EXPECT_EQ(nameOf(number), odd);
}

TEST_F(Names, RolesAndStatesOfPaintedBricks) {
    auto* const box = new SwitchBrick(&window);
    box->setChecked(true);
    EXPECT_EQ(accessible(box).role(), QAccessible::CheckBox);
    EXPECT_TRUE(accessible(box).state().checked);
    accessible(box).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(box->isChecked());

    auto* const well = new ColorWellBrick(&window);
    well->setColor(Qt::red);
    EXPECT_EQ(valueOf(well), QStringLiteral("#ff0000"));

    auto* const row = new SegmentedControlBrick({odd, QStringLiteral("other")}, &window);
    row->selectSegment(1);
    QAccessibleInterface& group = accessible(row);
    ASSERT_EQ(group.childCount(), 2);
    EXPECT_EQ(group.child(0)->text(QAccessible::Name), odd);
    EXPECT_EQ(group.child(1)->role(), QAccessible::RadioButton);
    EXPECT_TRUE(group.child(1)->state().checked);
}

TEST_F(Names, OfImagesAreTheirToolTips) {
    auto* const button = new PullDownButtonBrick(QIcon(QPixmap(8, 8)), &window);
    setPlainToolTip(*button, odd);
    EXPECT_EQ(nameOf(button), odd);
    EXPECT_EQ(accessible(button).text(QAccessible::Description), QString());
    EXPECT_EQ(accessible(button).role(), QAccessible::ButtonMenu);
    button->setAccessibleName(QStringLiteral("Name"));
    EXPECT_EQ(nameOf(button), QStringLiteral("Name"));
    EXPECT_EQ(accessible(button).text(QAccessible::Description), odd);
    auto* const row = new SegmentedControlBrick({QString(), QStringLiteral("title")}, &window);
    row->setSegmentToolTip(odd, 0);
    row->setSegmentToolTip(odd, 1);
    EXPECT_EQ(accessible(row).child(0)->text(QAccessible::Name), odd);
    EXPECT_EQ(accessible(row).child(1)->text(QAccessible::Name), QStringLiteral("title"));
    EXPECT_EQ(accessible(row).child(1)->text(QAccessible::Description), odd);
}

TEST_F(Names, AssistiveProgramsWriteAsTheUser) {
    auto* const field = new SmartTextField(&window);
    auto* const combo = new ComboBoxBrick(&window);
    auto* const number = new IntegerTextField(&window);
    std::vector<std::string> told;
    field->textChangedAction = [&](const QString& text) { told.push_back(text.toStdString()); };
    combo->textChangedAction = field->textChangedAction;
    auto* const formatter = new IntegerValidatingNumberFormatter;
    formatter->minimum = 5;
    formatter->maximum = 100;
    number->setNumberFormatter(formatter);
    number->addUserListener([&](std::int64_t value) { told.push_back(std::to_string(value)); });
    accessible(field).setText(QAccessible::Value, QStringLiteral("ace"));
    accessible(field).editableTextInterface()->insertText(1, QStringLiteral("pp"));
    accessible(field).editableTextInterface()->deleteText(0, 1);
    combo->setAccessibleName(odd);
    EXPECT_EQ(nameOf(combo->lineEdit()), odd);
    accessible(combo->lineEdit()).setText(QAccessible::Value, QStringLiteral("combo"));
    accessible(number).setText(QAccessible::Value, QStringLiteral("101"));
    accessible(number).setText(QAccessible::Value, QStringLiteral("4"));
    EXPECT_THAT(told, ElementsAre("ace", "appce", "ppce", "combo", "5"));
    field->setReadOnly(true);
    accessible(field).setText(QAccessible::Value, QStringLiteral("no"));
    EXPECT_EQ(valueOf(field), QStringLiteral("ppce"));
    EXPECT_TRUE(accessible(field).state().readOnly);

    field->setSelection(1, 2);
    field->resize(field->sizeHint());
    QAccessibleTextInterface& text = *accessible(field).textInterface();
    int start = 0;
    int end = 0;
    text.selection(0, &start, &end);
    EXPECT_EQ(text.text(start, end), QStringLiteral("pc"));
    EXPECT_EQ(text.offsetAtPoint(text.characterRect(2).center() - QPoint(1, 0)), 2);
}

TEST_F(Names, SlidersAreTurnedByTheirOwnValues) {
    auto* const slider = new SliderBrick(&window);
    slider->setValueRange(-1, 1);
    slider->setNumberOfTickMarks(5);
    slider->sliderValueChangedFunc = [](float value) { return value / 2; };
    QAccessibleValueInterface& value = *accessible(slider).valueInterface();
    value.setCurrentValue(0.5);
    EXPECT_EQ(value.currentValue().toDouble(), 0.25);
    EXPECT_EQ(valueOf(slider), QStringLiteral("0.25"));
    EXPECT_EQ(value.minimumValue().toDouble(), -1);
    EXPECT_EQ(value.minimumStepSize().toDouble(), 0.5);
}

TEST(Label, ShowsTheWholeTextWhereItIsCut) {
    Label label(QStringLiteral("a rather long <b>text</b>"));
    label.show();
    const auto ask = [&] {
        QHelpEvent help(QEvent::ToolTip, QPoint(1, 1), label.mapToGlobal(QPoint(1, 1)));
        return QCoreApplication::sendEvent(&label, &help) && QToolTip::isVisible();
    };
    label.resize(label.sizeHint());
    EXPECT_FALSE(ask());
    label.resize(label.width() / 2, label.height());
    EXPECT_TRUE(ask());
    EXPECT_EQ(QToolTip::text(), toolTipText(label.text()));
    QToolTip::hideText();
}

TEST(SegmentWidths, FillTheLength) {
    EXPECT_THAT(segmentWidths({50, 30}, {40, 20}, 101), ElementsAre(61, 40));
    EXPECT_THAT(segmentWidths({50, 30, 30}, {40, 30, 20}, 97), ElementsAre(43, 30, 24));
    EXPECT_THAT(segmentWidths({50, 30}, {40, 20}, 60), ElementsAre(40, 20));
    EXPECT_THAT(segmentWidths({50, 30, 30}, {40, 10, 20}, 47), ElementsAre(19, 10, 18));
    EXPECT_THAT(segmentWidths({50, 30, 30}, {40, 10, 20}, 65), ElementsAre(35, 10, 20));
    EXPECT_THAT(segmentWidths({}, {}, 31), ElementsAre());
}

}  // namespace
}  // namespace marquell::toolkit
