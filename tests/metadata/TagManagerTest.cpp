// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <array>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "metadata/TagManager.h"

namespace marquell::metadata {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using Space = TagManager::DescriptiveTagSpace;
using Source = MetadataSource;

struct Expected {
    Space space;
    int ids;
    int separators;
    Source source;
};

constexpr Expected expectedSpaces[] = {
    {Space::Basic, 12, 2, Source::basic},
    {Space::Size, 4, 0, Source::basic},
    {Space::Spotlight, 57, 6, Source::spotlight},
    {Space::BasicImage, 6, 0, Source::imageIO},
    {Space::EXIF, 46, 10, Source::imageIO},
    {Space::GPS, 32, 10, Source::imageIO},
    {Space::IPTCCommonUsage, 22, 5, Source::imageIO},
    {Space::IPTCContactInfo, 9, 1, Source::imageIO},
    {Space::IPTCIISLegacy, 27, 0, Source::imageIO},
    {Space::AudioVisualCommon, 23, 4, Source::avKit},
    {Space::ID3, 83, 10, Source::avKit},
    {Space::Hashes, 5, 0, Source::hashes},
};

class TagManagerTest : public testing::Test {
protected:
    const TagManager& manager = TagManager::shared();
};

template <typename Rows>
Rows withoutSeparators(Rows rows) {
    std::erase(rows, "-");
    return rows;
}

TEST_F(TagManagerTest, HoldsTheWholeCatalogue) {
    EXPECT_EQ(manager.columnIDsToDescriptiveTagSpaceMapping.size(), 326);
    EXPECT_EQ(manager.metaDataKeysToSourceMapping.size(), 325);
    EXPECT_EQ(manager.columnNameTranslations.size(), 328);
    EXPECT_EQ(manager.columnIDs.size(), 332);
    EXPECT_EQ(std::ranges::count(manager.columnIDs, "-"), 4);
    ASSERT_EQ(manager.columnIDsByCategory.size(), std::size(expectedSpaces));
    for (const Expected& expected : expectedSpaces) {
        SCOPED_TRACE(caseName(expected.space));
        const auto& menu = manager.columnIDsByCategory[static_cast<std::size_t>(expected.space)];
        EXPECT_EQ(std::ssize(menu), expected.ids + expected.separators);
        EXPECT_EQ(std::ranges::count(menu, "-"), expected.separators);
    }
    EXPECT_EQ(manager.columnIDsByCategory[7].front(), "-");
}

TEST_F(TagManagerTest, MenusSpacesAndSourcesAgree) {
    const std::set<std::string_view> ofTheNode{"name", "absolute_path", "absolute_parent_path",
                                               "extension"};
    auto sources = manager.metaDataKeysToSourceMapping;
    for (const Expected& expected : expectedSpaces) {
        SCOPED_TRACE(caseName(expected.space));
        const int raw = static_cast<int>(expected.space);
        const auto& ids = manager.columnIDArrayForDescriptiveTag.at(expected.space);
        EXPECT_EQ(ids, withoutSeparators(
                           manager.columnIDsByCategory[static_cast<std::size_t>(expected.space)]));
        EXPECT_TRUE(std::ranges::equal(ids, manager.columns(raw)));
        for (const auto id : ids) {
            SCOPED_TRACE(id);
            EXPECT_EQ(manager.columnIDsToDescriptiveTagSpaceMapping.at(id), expected.space);
            EXPECT_EQ(manager.source(id), ofTheNode.contains(id)
                                              ? std::nullopt
                                              : std::optional<Source>(expected.source));
            sources.erase(id);
        }
    }
    EXPECT_THAT(sources, UnorderedElementsAre(std::pair("size", Source::basic),
                                              std::pair("layernames", Source::spotlight),
                                              std::pair("iptc_star_rating", Source::imageIO)));
    EXPECT_THAT(manager.keysWithoutTagSpace, ElementsAre("size", "layernames", "iptc_star_rating"));
}

TEST_F(TagManagerTest, TagTableHoldsEveryNamedIdOnce) {
    const auto rows = withoutSeparators(manager.columnIDs);
    const std::set<std::string_view> distinct(rows.begin(), rows.end());
    EXPECT_EQ(distinct.size(), rows.size());
    std::set<std::string_view> named;
    for (const auto& [id, name] : manager.columnNameTranslations) named.insert(id);
    EXPECT_EQ(distinct, named);
    std::vector<std::string_view> afterSeparators;
    for (std::size_t i = 1; i < manager.columnIDs.size(); ++i) {
        if (manager.columnIDs[i - 1] == "-") afterSeparators.push_back(manager.columnIDs[i]);
    }
    EXPECT_THAT(afterSeparators, ElementsAre("iptc_keywords", "iptc_date_created", "iptc_city",
                                             "iptc_originating_program"));
}

TEST_F(TagManagerTest, NamesSplitWordsAndKeepAcronyms) {
    constexpr std::array<std::pair<const char*, const char*>, 10> samples{{
        {"bitspersample", "Bits Per Sample"},
        {"timestamp", "Timestamp"},
        {"fnumber", "F Number"},
        {"exif_iso_speed", "ISO Speed"},
        {"exifgpsversion", "EXIF GPS Version"},
        {"duration_hh_mm_ss", "Duration HH MM SS"},
        {"iptc_contact_info_web_urls", "Contact Info Web URLs"},
        {"iptc_caption_abstract", "Description/ Caption"},
        {"id3_relative_volume_adjustment2", "Relative Volume Adjustment 2"},
        {"layernames", "Layer Names"},
    }};
    for (const auto& [id, name] : samples) EXPECT_EQ(manager.displayName(id), name) << id;
}

TEST_F(TagManagerTest, DecoratesTitlesOfSpacesWithAnAbbreviation) {
    EXPECT_EQ(manager.decoratedTitle("exif_lens_model"), "Lens Model (EXIF)");
    EXPECT_EQ(manager.decoratedTitle("lensmodel"), "Lens Model (Spotlight)");
    EXPECT_EQ(manager.decoratedTitle("image_pixel_width"), "Pixel Width (Image)");
    EXPECT_EQ(manager.decoratedTitle("iptc_urgency"), "Urgency (IPTC)");
    EXPECT_EQ(manager.decoratedTitle("av_title"), "Title (AV)");
    EXPECT_EQ(manager.decoratedTitle("name"), "Name (with file extension)");
    EXPECT_EQ(manager.decoratedTitle("size_in_mb"), "Size In MB");
    EXPECT_EQ(manager.decoratedTitle("layernames"), "Layer Names");
}

TEST_F(TagManagerTest, UnknownIdsAndSpacesHaveNothing) {
    for (const std::string_view id : {"size", "-", "", "NAME", "exif_retired_column"}) {
        EXPECT_EQ(manager.displayName(id), id);
        EXPECT_EQ(manager.abbreviation(id), std::nullopt) << id;
        EXPECT_EQ(manager.decoratedTitle(id), id);
    }
    EXPECT_EQ(manager.source("-"), std::nullopt);
    EXPECT_EQ(manager.source("exif_retired_column"), std::nullopt);
    for (const int raw : {-1, 12}) {
        EXPECT_THAT(manager.columns(raw), IsEmpty());
        EXPECT_EQ(manager.localizedAbbreviation(static_cast<Space>(raw)), std::nullopt);
        EXPECT_EQ(caseName(static_cast<Space>(raw)), "");
    }
}

}  // namespace
}  // namespace marquell::metadata
