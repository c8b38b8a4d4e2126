// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "variables/AnyVariable.h"
#include "variables/CombinedVariable.h"
#include "variables/StraightVariable.h"

namespace marquell::variables {
namespace {

using testing::ElementsAre;
using Calls = std::vector<std::string>;

TEST(StraightVariable, CallsItsListenersInOrderAtEverySet) {
    StraightVariable<int> variable(7);
    Calls calls;
    variable.addColdListener([&](int value) { calls.push_back("cold " + std::to_string(value)); });
    variable.addHotListener([&](int value) { calls.push_back("hot " + std::to_string(value)); });
    EXPECT_THAT(calls, ElementsAre("hot 7"));
    variable.setValue(7);
    variable.setValue(8);
    EXPECT_THAT(calls, ElementsAre("hot 7", "cold 7", "hot 7", "cold 8", "hot 8"));
}

TEST(StraightVariable, ListenersMayAddSetAndEnd) {
    auto variable = std::make_shared<StraightVariable<int>>(0);
    Calls calls;
    const auto note = [&](const std::string& name) {
        return [&calls, name](int value) { calls.push_back(name + std::to_string(value)); };
    };
    variable->addColdListener([&](int value) {
        if (value == 1) variable->addColdListener(note("late "));
        if (value == 2) variable->setValue(3);
        if (value == 4) variable.reset();
    });
    variable->addColdListener(note(""));
    variable->setValue(1);
    EXPECT_THAT(calls, ElementsAre("1")) << "one that is added waits for the next change";
    calls.clear();
    variable->setValue(2);
    EXPECT_THAT(calls, ElementsAre("3", "late 3", "3", "late 3")) << "none is left with the old 2";
    calls.clear();
    variable->setValue(4);
    EXPECT_THAT(calls, ElementsAre()) << "the variable has gone";
    // A hot listener that sets the variable hears of it.
    StraightReadWriteVariable<int> other(0);
    other.addHotListener([&](int value) {
        calls.push_back(std::to_string(value));
        if (value < 2) other.setWrappedValue(value + 1);
    });
    EXPECT_THAT(calls, ElementsAre("0", "1", "2"));
    EXPECT_EQ(other.wrappedValue(), 2);
}

TEST(CombinedVariable, FollowsBothInputsAndMayEndBeforeThem) {
    enum class Fruit { apple = 3, pear = 4 };
    const auto fruit = std::make_shared<RawRepresentableStraightVariable<Fruit>>(Fruit::apple);
    const auto factor = std::make_shared<StraightVariable<int>>(10);
    auto product = std::make_shared<CombinedVariable<std::string, Fruit, int>>(
        fruit, factor, [](Fruit a, int b) { return std::to_string(static_cast<int>(a) * b); });
    Calls calls;
    const AnyReadOnlyVariable<std::string> readable(product);
    readable.addHotListener([&](const std::string& value) { calls.push_back(value); });
    AnyReadWriteVariable<Fruit>(fruit).setValue(Fruit::pear);
    AnyReadWriteVariable<int> writable(factor);
    writable.addColdListener(
        [&](int value) { calls.push_back("factor " + std::to_string(value)); });
    writable.setValue(2);
    EXPECT_THAT(calls, ElementsAre("30", "40", "8", "factor 2"));
    EXPECT_EQ(readable.value(), "8");
    EXPECT_EQ(writable.value(), 2);
}

TEST(CombinedVariable, IsForgottenByInputsThatOutliveIt) {
    const auto input = std::make_shared<StraightVariable<int>>(0);
    int calls = 0;
    {
        CombinedVariable<int, int, int> sum(input, input, [](int a, int b) { return a + b; });
        sum.addColdListener([&](int) { ++calls; });
        input->setValue(1);
    }
    input->setValue(2);
    EXPECT_EQ(calls, 2) << "once for each input, while it lived";
}

}  // namespace
}  // namespace marquell::variables
