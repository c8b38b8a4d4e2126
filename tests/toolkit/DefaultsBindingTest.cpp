// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QtTest/QTest>
#include <memory>
#include <optional>

#include "support/OneSetting.h"
#include "toolkit/bricks/CheckBoxBrick.h"
#include "toolkit/bricks/DefaultsBinding.h"
#include "toolkit/bricks/IntegerTextField.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/bricks/SmartMenuItem.h"
#include "toolkit/bricks/SmartTextField.h"
#include "toolkit/bricks/SwitchBrick.h"

namespace marquell::toolkit {
namespace {

using platform::DefaultsValue;

class Binding : public tests::OneSetting {};

TEST_F(Binding, TiesTheStateOfABox) {
    CheckBoxBrick box(QStringLiteral("Files"));
    SwitchBrick other;
    DefaultsBinding::bindValue(&box, "key", defaults);
    DefaultsBinding::bindValue(&other, "key", defaults);
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(stored(), std::nullopt) << "reading writes nothing";
    store(true);
    EXPECT_TRUE(box.isChecked());
    bool told = true;
    box.actualCheckboxFunc = [&](bool isOn) {
        told = isOn;
        EXPECT_EQ(stored(), DefaultsValue(isOn)) << "stored by now";
    };
    box.resize(box.sizeHint());
    QTest::mouseClick(&box, Qt::LeftButton);
    EXPECT_EQ(stored(), DefaultsValue(false));
    EXPECT_FALSE(other.isChecked()) << "by way of the store";
    EXPECT_FALSE(told) << "the box's own function stays";
    store("no truth");
    EXPECT_FALSE(box.isChecked());
    defaults->registerDefault("key", true);
    store("no truth");
    EXPECT_TRUE(box.isChecked()) << "the registered default";
}

TEST_F(Binding, TiesTheIndexOfAChoice) {
    PopUpButtonBrick popup;
    popup.addItem(QStringLiteral("0"));
    popup.addSeparator();
    popup.addItem(QStringLiteral("2"));
    SegmentedControlBrick row({QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("2")});
    DefaultsBinding::bindSelectedIndex(&popup, "key", defaults);
    DefaultsBinding::bindSelectedIndex(&row, "key", defaults);
    EXPECT_EQ(popup.indexOfSelectedItem(), -1) << "nothing is stored";
    store(std::int64_t{2});
    EXPECT_EQ(popup.indexOfSelectedItem(), 2);
    EXPECT_EQ(row.indexOfSelectedItem(), 2);
    for (const DefaultsValue& none : {DefaultsValue(std::int64_t{1}), DefaultsValue("2"),
                                      DefaultsValue(std::int64_t{1} << 33 | 2)}) {
        store(none);
        EXPECT_EQ(popup.indexOfSelectedItem(), -1);
        EXPECT_EQ(stored(), none) << "not rewritten";
    }
    popup.show();
    popup.showPopup();
    QTest::keyClick(popup.view(), Qt::Key_End);
    QTest::keyClick(popup.view(), Qt::Key_Return);
    EXPECT_EQ(stored(), DefaultsValue(std::int64_t{2})) << "the separator counts";
    EXPECT_EQ(row.indexOfSelectedItem(), 2);
    row.resize(row.sizeHint());
    bool isRun = false;
    row.selectionChangedFunction = [&](int index) {
        isRun = true;
        EXPECT_EQ(stored(), DefaultsValue(std::int64_t{index}));
    };
    QTest::mouseClick(row.childAt(2, 5), Qt::LeftButton);
    EXPECT_TRUE(isRun);
    EXPECT_EQ(popup.indexOfSelectedItem(), 0);
}

TEST_F(Binding, ShowsTheChoiceAsSoonAsThereIsSuchAnItem) {
    store(std::int64_t{2});
    PopUpButtonBrick popup;
    DefaultsBinding::bindSelectedIndex(&popup, "key", defaults);
    bool isRun = false;
    for (int round = 0; round < 2; ++round) {
        popup.addItem(QStringLiteral("0"));
        EXPECT_EQ(popup.indexOfSelectedItem(), -1) << "not the first by itself";
        popup.addSeparator();
        EXPECT_EQ(popup.indexOfSelectedItem(), -1);
        popup.addItem(new SmartMenuItem(QStringLiteral("2"), [&] {
            isRun = true;
            EXPECT_EQ(stored(), DefaultsValue(std::int64_t{2})) << "stored by now";
        }));
        EXPECT_EQ(popup.indexOfSelectedItem(), 2);
        if (round == 0) popup.removeAllItems();
    }
    store(std::int64_t{0});
    delete popup.addItem(QStringLiteral("3"));
    EXPECT_EQ(popup.count(), 3);
    EXPECT_EQ(popup.indexOfSelectedItem(), 0);
    popup.show();
    popup.showPopup();
    QTest::keyClick(popup.view(), Qt::Key_End);
    QTest::keyClick(popup.view(), Qt::Key_Return);
    EXPECT_TRUE(isRun);
}

TEST_F(Binding, StoresNumbersWhenTheyAreSettled) {
    IntegerTextField field;
    auto* const formatter = new IntegerValidatingNumberFormatter;
    formatter->minimum = 10;
    field.setNumberFormatter(formatter);
    field.setIntegerValue(40);
    DefaultsBinding::bindValue(&field, "key", defaults);
    EXPECT_EQ(field.integerValue(), 40) << "nothing is stored";
    store(std::int64_t{50});
    EXPECT_EQ(field.integerValue(), 50);
    field.selectAll();
    QTest::keyClicks(&field, QStringLiteral("7"));
    EXPECT_EQ(stored(), DefaultsValue(std::int64_t{50})) << "on the way";
    field.returnKeyActionFunction = [&] {
        EXPECT_EQ(stored(), DefaultsValue(std::int64_t{10})) << "stored by now";
    };
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(stored(), DefaultsValue(std::int64_t{10}));
}

TEST_F(Binding, EndsWithItsControl) {
    auto field = std::make_unique<SmartTextField>();
    DefaultsBinding::bindValue(field.get(), "key", defaults);
    store("text");
    EXPECT_EQ(field->text(), QStringLiteral("text"));
    field->textChangedAction = [&](const QString& text) {
        EXPECT_EQ(stored(), DefaultsValue(text.toStdString())) << "stored by now";
    };
    QTest::keyClicks(field.get(), QStringLiteral("!"));
    EXPECT_EQ(stored(), DefaultsValue("text!"));
    field.reset();
    const long users = defaults.use_count();
    EXPECT_EQ(users, 1) << "the store is let go";
    store("more");
}

}  // namespace
}  // namespace marquell::toolkit
