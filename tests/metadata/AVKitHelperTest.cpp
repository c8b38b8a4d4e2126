// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "metadata/AVKitHelper.h"
#include "metadata/MetadataStorage.h"
#include "metadata/TagManager.h"
#include "platform/AudioVisualProperties.h"
#include "platform/Console.h"

namespace marquell::metadata {
namespace {

using namespace std::string_view_literals;
using Key = platform::AudioVisualPropertyKey;
using platform::AudioVisualAsset;
using platform::AudioVisualItem;
using testing::ElementsAre;

class AVKitHelperTest : public testing::Test {
protected:
    void SetUp() override {
        MetadataStorage::shared().clear();
        platform::setConsoleWriter(
            [this](std::string_view, std::string_view line) { lines.emplace_back(line); });
    }
    void TearDown() override {
        platform::setConsoleWriter({});
        MetadataStorage::shared().clear();
    }

    static WrappedMetaDataValue stored(std::string_view key) {
        return MetadataStorage::shared().getWrappedValue("/x.mp3"sv, key, MetadataSource::avKit);
    }

    AVKitHelper helper{
        []() -> platform::HelperPool& { throw std::logic_error("nothing to read"); }};
    std::vector<std::string> lines;
};

TEST_F(AVKitHelperTest, StoresCommonKeysInTheFormThatTheyHave) {
    AudioVisualAsset asset;
    const auto common = [](const char* key) {
        AudioVisualItem item;
        item.commonKey = key;
        return item;
    };
    AudioVisualItem title = common("title");
    title.stringValue = "A title";
    title.numberValue = 1;
    AudioVisualItem date = common("creationDate");
    date.dateValue = platform::Date{1709208000, 5};
    AudioVisualItem type = common("type");
    type.numberValue = 17.5;
    AudioVisualItem unknown = common("lyrics");
    unknown.stringValue = "no such key";
    AudioVisualItem other;
    other.key = "artist";
    other.stringValue = "no common key";
    asset.commonMetadata = {title, date, type, common("artist"), unknown, other};
    asset.lyrics = "La la";
    helper.store("/x.mp3"sv, asset);
    EXPECT_EQ(stored("av_title"), WrappedMetaDataValue("A title"));
    EXPECT_EQ(stored("av_creation_date"),
              WrappedMetaDataValue("date value!2024-02-29 12:00:00 +0000"));
    EXPECT_EQ(stored("av_type"), WrappedMetaDataValue("date number!17.5"));
    EXPECT_EQ(stored("av_artist"), WrappedMetaDataValue(None{}));
    EXPECT_EQ(stored("av_lyrics"), WrappedMetaDataValue("La la"));
    EXPECT_THAT(lines, ElementsAre());
}

TEST_F(AVKitHelperTest, StoresTheLastOfTheFramesForOneColumnAndNamesUnknownOnes) {
    const platform::PropertyDictionary properties = {
        {static_cast<platform::PropertyKey>(Key::commonKeyAlbumName), "An album"},
        {static_cast<platform::PropertyKey>(Key::id3Frames),
         std::vector<std::string>{"TYE 1999", "TYER 2000", "TT2 A song", "TIT2 ", "XSOP a b",
                                  "XSOP c", "COM x"}}};
    helper.store("/x.mp3"sv, platform::audioVisualAsset(properties));
    EXPECT_EQ(stored("av_album"), WrappedMetaDataValue("An album"));
    EXPECT_EQ(stored("id3_year"), WrappedMetaDataValue("2000"));
    EXPECT_EQ(stored("id3_title_description"), WrappedMetaDataValue(""));
    EXPECT_EQ(stored("id3_comments"), WrappedMetaDataValue("x"));
    EXPECT_THAT(lines, ElementsAre("key not recognized: XSOP, value a b",
                                   "key not recognized: XSOP, value c"));

    MetadataStorage::shared().clear();
    helper.setWantedColumns(std::vector<std::string>{"id3_comments"});
    helper.store("/x.mp3"sv, platform::audioVisualAsset(properties));
    EXPECT_EQ(stored("id3_comments"), WrappedMetaDataValue("x"));
    EXPECT_EQ(stored("id3_year"), WrappedMetaDataValue(None{}));
}

TEST_F(AVKitHelperTest, KnowsAColumnOfItsOwnForEveryKey) {
    EXPECT_THAT(AVKitHelper::stringValueKeys(), testing::SizeIs(162));
    for (const auto& [key, column] : AVKitHelper::stringValueKeys()) {
        EXPECT_EQ(TagManager::shared().source(column), MetadataSource::avKit) << key;
    }
}

}  // namespace
}  // namespace marquell::metadata
