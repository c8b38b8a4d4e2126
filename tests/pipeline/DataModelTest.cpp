// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <map>

#include "pipeline/DataModel.h"
#include "platform/Surroundings.h"

namespace marquell::pipeline {
namespace {

using platform::DefaultsValue;
using testing::ElementsAre;

TEST(DataModel, StoresEachSettingUnderItsKey) {
    const tests::TemporaryFolder folder;
    const auto open = [&folder] {
        return platform::UserDefaults::open(folder / "settings.json", [](const auto&) {});
    };
    const auto defaults = open();
    const DataModel model(defaults);
    EXPECT_THAT(model.createSnapshot().columnList, ElementsAre("name", "absolute_path"));
    // Values by key; each differs from its default and from the others of its type in a snapshot.
    std::map<std::string, DefaultsValue> values = {
        {"processFiles", false},
        {"processFolders", false},
        {"prodcessSubfolders", true},
        {"outputFormat", 5},
        {"quoteStrings", false},
        {"Sources", std::vector<std::string>{"/s"}},
        {"Columns", std::vector<std::string>{"c"}},
    };
    int number = 100;
    for (const char* key :
         {"firstSortMode", "secondSortMode", "includeColumnTitlesMode", "boolValuesMode",
          "nullValuesMode", "dateFormatMode", "multiLineMode", "linebreaksMode", "encodingMode",
          "htmlIndentationMode", "htmlColumnIdHeaderMode", "htmlColumnClassMode",
          "jsonIndentationMode", "jsonDateFormatMode"}) {
        values[key] = ++number;
    }
    for (const auto& [key, value] : values) defaults->setObject(value, key);
    const DataModelSnapshot now = model.createSnapshot();
    EXPECT_FALSE(now.processFiles || now.processFolders || now.quoteStrings);
    EXPECT_TRUE(now.processSubFolders);
    EXPECT_EQ(now.outputFormat, OutputFormatIndexEnum::JSON);
    EXPECT_THAT(
        (std::vector{now.firstSortMode, now.secondSortMode, now.includeColumnTitlesMode,
                     now.boolValuesMode, now.nullValuesMode, now.dateFormatMode, now.multiLineMode,
                     now.linebreaksMode, now.encodingMode, now.htmlIndentationMode,
                     now.htmlColumnIdHeaderMode, now.htmlColumnClassMode, now.jsonIndentationMode,
                     now.jsonDateFormatMode}),
        ElementsAre(101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111, 112, 113, 114));
    EXPECT_THAT(now.sourceList, ElementsAre("/s"));
    EXPECT_THAT(now.columnList, ElementsAre("c"));
    // The next launch.
    model.infoPaneHeight->setValue(222.5);
    EXPECT_TRUE(defaults->synchronize());
    const DataModel next(open());
    EXPECT_THAT(next.createSnapshot().sourceList, testing::IsEmpty());
    EXPECT_THAT(next.createSnapshot().columnList, ElementsAre("c"));
    EXPECT_EQ(next.createSnapshot().jsonDateFormatMode, 114);
    EXPECT_EQ(next.infoPaneHeight->value(), 222.5);
}

TEST(DataModel, ShowsThePreviewTabOnceThereIsData) {
    const tests::TemporaryFolder folder;
    const DataModel model(
        platform::UserDefaults::open(folder / "settings.json", [](const auto&) {}));
    std::vector<int> heard;
    model.previewTabIndex->addHotListener([&](int index) { heard.push_back(index); });
    model.previewMode->setValue(1);
    model.waitingForData->setValue(false);
    model.previewMode->setValue(0);
    EXPECT_THAT(heard, ElementsAre(0, 0, 2, 1));
}

}  // namespace
}  // namespace marquell::pipeline
