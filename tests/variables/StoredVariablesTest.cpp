// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "pipeline/DataModelSnapshot.h"
#include "support/OneSetting.h"
#include "variables/ColorReadWriteDefaultVariable.h"
#include "variables/UserDefaultsVariable.h"

namespace marquell::variables {
namespace {

using pipeline::OutputFormatIndexEnum;
using platform::DefaultsValue;
using testing::ElementsAre;

class StoredVariables : public tests::OneSetting {};

TEST_F(StoredVariables, LiveInTheStoreAlone) {
    store(5);
    UserDefaultsVariable<int> variable("key", 1, defaults);
    EXPECT_EQ(variable.value(), 5) << "the stored value wins over the default";
    std::vector<int> heard;
    variable.addColdListener([&](int value) { heard.push_back(value); });
    variable.setValue(6);
    EXPECT_EQ(stored(), DefaultsValue(6));
    store(6);
    store(7.0);
    store("seven");
    store(std::int64_t{1} << 40);
    defaults->removeObject("key");
    EXPECT_THAT(heard, ElementsAre(6, 6, 7, 1, 1, 1)) << "what is no number is the default";
}

TEST_F(StoredVariables, StoreEnumerationsAsTheirRawValue) {
    RawRepresentableUserDefaultsVariable<OutputFormatIndexEnum> format(
        "key", OutputFormatIndexEnum::TSV, defaults);
    EXPECT_EQ(stored(), DefaultsValue(1));
    format.setValue(OutputFormatIndexEnum::JSON);
    EXPECT_EQ(stored(), DefaultsValue(5));
    for (const DefaultsValue& unknown : {DefaultsValue(6), DefaultsValue(-1), DefaultsValue("5")}) {
        store(unknown);
        EXPECT_EQ(format.value(), OutputFormatIndexEnum::TSV);
    }
    EXPECT_EQ(stored(), DefaultsValue(1)) << "a text is no number, so the default shows";
}

TEST_F(StoredVariables, StoreCodableValuesAsJson) {
    using Numbers = std::vector<int>;
    CodableUserDefaultsVariable<Numbers> numbers("key", {1, 2}, {-1}, defaults);
    EXPECT_EQ(stored(), DefaultsValue("[1,2]"));
    numbers.setValue({3});
    EXPECT_EQ(stored(), DefaultsValue("[3]"));
    for (const char* broken : {"[3", "{}", "[\"a\"]", ""}) {
        store(broken);
        EXPECT_THAT(numbers.value(), ElementsAre(-1)) << broken;
    }
    NillableCodableUserDefaultsVariable<std::string> name("name", std::nullopt, defaults);
    EXPECT_EQ(name.value(), std::nullopt);
    name.setValue("\xFF\"");
    EXPECT_EQ(name.value(), "\uFFFD\"") << "JSON holds valid text only";
    name.setValue(std::nullopt);
    EXPECT_EQ(defaults->object("name"), DefaultsValue("null"));
    defaults->setObject("x", "name");
    EXPECT_EQ(name.value(), std::nullopt);
}

TEST_F(StoredVariables, StoreColoursAsData) {
    const Color first{0, 0, 0, 1};
    const Color red{1, 0.25, 0, 0.5};
    const Color blue{0, 0, 1, 1};
    ColorReadWriteDefaultVariable colour("key", first, defaults);
    std::vector<std::optional<DefaultsValue>> storedBefore;
    colour.addColdListener([&](const Color& value) {
        storedBefore.push_back(stored());
        if (value == blue) colour.setValue(red);
    });
    colour.setValue(red);
    EXPECT_THAT(storedBefore, ElementsAre(std::nullopt)) << "listeners come before the store";
    EXPECT_EQ(ColorReadWriteDefaultVariable("key", first, defaults).value(), red);
    colour.setValue(blue);
    EXPECT_EQ(stored(), DefaultsValue(colorData(red))) << "the newest is what is stored";
    store(platform::DefaultsData{"short"});
    EXPECT_EQ(ColorReadWriteDefaultVariable("key", blue, defaults).value(), blue);
}

}  // namespace
}  // namespace marquell::variables
