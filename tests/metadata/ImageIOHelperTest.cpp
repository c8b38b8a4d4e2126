// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "metadata/ImageIOHelper.h"
#include "metadata/MetadataStorage.h"
#include "platform/DateParser.h"
#include "platform/NumberText.h"
#include "platform/Path.h"
#include "platform/ReadFailures.h"
#include "platform/Surroundings.h"

namespace marquell::metadata {
namespace {

using platform::PropertyDictionary;
using platform::PropertyKey;
using platform::PropertyValue;
using testing::ElementsAre;
using testing::Pair;
using testing::SizeIs;

class ImageIOHelperTest : public testing::Test {
protected:
    void SetUp() override {
        MetadataStorage::shared().clear();
        platform::setReadFailureListener([this](std::string_view path, const std::error_code& why) {
            failures.emplace_back(path, why);
        });
    }
    void TearDown() override {
        platform::setReadFailureListener({});
        MetadataStorage::shared().clear();
    }

    static WrappedMetaDataValue stored(std::string_view path, std::string_view key) {
        return MetadataStorage::shared().getWrappedValue(path, key, MetadataSource::imageIO);
    }

    /// Has a pool of these helpers read files of the given names and contents. Returns how many
    /// nodes were finished.
    int read(const std::string& program,
             const std::vector<std::pair<std::string, std::string>>& files) {
        platform::HelperPool::Settings settings;
        settings.program = program;
        settings.arguments = {folder / "log"};
        platform::HelperPool pool(settings);
        ImageIOHelper helper([&pool]() -> platform::HelperPool& { return pool; });
        pipeline::NodeArena arena;
        std::vector<std::shared_ptr<pipeline::Node>> kept;
        std::vector<pipeline::Node*> nodes;
        for (const auto& [name, content] : files) {
            const std::string path = folder / name;
            if (!content.empty()) tests::writeFile(path, content);
            kept.push_back(arena.make<pipeline::FileNode>(platform::lastPathComponent(path), path,
                                                          std::string_view()));
            nodes.push_back(kept.back().get());
        }
        int finished = 0;
        helper.retrieveAndStoreAllTagsFor(
            nodes, [&finished](std::size_t) { ++finished; }, [] { return false; });
        return finished;
    }

    tests::TemporaryFolder folder;
    std::vector<std::pair<std::string, std::error_code>> failures;
};

TEST_F(ImageIOHelperTest, StoresEachKindOfPropertyInItsForm) {
    using Instruction = ImageIOHelper::Instruction;
    using Key = platform::ImagePropertyKey;
    const Key key = Key::kCGImagePropertyExifFNumber;
    const auto extracted = [key](Transformation transformation, PropertyValue value) {
        MetadataStorage::shared().clear();
        const Instruction instruction{key, "column", transformation};
        ImageIOHelper::extract(std::string_view("/x.jpg"),
                               {{static_cast<PropertyKey>(key), std::move(value)}},
                               std::span(&instruction, 1));
        return stored("/x.jpg", "column");
    };
    const WrappedMetaDataValue none = None{};
    for (const auto transformation :
         {Transformation::integer, Transformation::decimal, Transformation::string}) {
        EXPECT_EQ(extracted(transformation, 3000.0), WrappedMetaDataValue("3000"));
        EXPECT_EQ(extracted(transformation, "as\tit\nis "), WrappedMetaDataValue("as\tit\nis "));
        EXPECT_EQ(extracted(transformation, std::vector<std::string>{"a\n", "b, c"}),
                  WrappedMetaDataValue("a, b, c"));
        EXPECT_EQ(extracted(transformation, std::vector<double>{1, 2}), none);
    }
    const auto date = platform::parseCameraDate("2024:02:29 23:59:58");
    ASSERT_TRUE(date);
    EXPECT_EQ(extracted(Transformation::date, "2024:02:29 23:59:58"), WrappedMetaDataValue(*date));
    EXPECT_EQ(extracted(Transformation::date, "2023:02:29 23:59:58"), none);
    EXPECT_EQ(extracted(Transformation::date, 2024.0), none);
}

TEST_F(ImageIOHelperTest, HasAModelForEveryProperty) {
    EXPECT_THAT(ImageIOHelper::imageMetadataExtractionModel(), SizeIs(6));
    EXPECT_THAT(ImageIOHelper::gpsMetadataExtractionModel(), SizeIs(32));
    EXPECT_THAT(ImageIOHelper::iptcMetadataExtractionModel(), SizeIs(59));
    EXPECT_THAT(ImageIOHelper::tiffMetadataExtractionModel(), SizeIs(2));
    EXPECT_THAT(ImageIOHelper::exifMetadataExtractionModel(), SizeIs(44));
    EXPECT_EQ(ImageIOHelper::supportedFileTypes().back(), "m4b");
}

TEST_F(ImageIOHelperTest, TellsWhyAFileWasNotRead) {
    EXPECT_EQ(read(MARQUELL_MISBEHAVING_HELPER, {{"no image", "exit"},
                                                 {"gone.jpg", ""},
                                                 {"bad.JPG", "exit"},
                                                 {"good.jpg", "good"},
                                                 {"sound.m4b", "good"}}),
              5);
    EXPECT_THAT(failures, testing::UnorderedElementsAre(
                              Pair(folder / "gone.jpg", std::errc::no_such_file_or_directory),
                              Pair(folder / "bad.JPG", platform::ReadFailure::readerFailed)));
    failures.clear();
    EXPECT_EQ(read("/no/program", {{"a.jpg", "good"}}), 1);
    EXPECT_THAT(failures,
                ElementsAre(Pair("/no/program", platform::ReadFailure::readersUnavailable)));
}

TEST(NumberText, IsPlainAndReadsBack) {
    const std::pair<double, std::string> cases[] = {{0.0, "0"},
                                                    {-0.0, "0"},
                                                    {2.8, "2.8"},
                                                    {3000, "3000"},
                                                    {0.004, "0.004"},
                                                    {1.0 / 3, "0.3333333333333333"},
                                                    {-1.5, "-1.5"},
                                                    {1e-7, "0.0000001"},
                                                    {4294967295.0, "4294967295"},
                                                    {1e22, "10000000000000000000000"}};
    for (const auto& [number, text] : cases) EXPECT_EQ(platform::numberText(number), text);
    for (const double edge :
         {std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::lowest()}) {
        EXPECT_EQ(std::strtod(platform::numberText(edge).c_str(), nullptr), edge);
    }
}

TEST(DateParser, TakesRealDatesOfOneFormOnly) {
    using platform::parseCameraDate;
    const tests::Environment zone{{"TZ", "Europe/Berlin"}};
    ::tzset();
    const std::pair<std::string, std::int64_t> dates[] = {{"1970:01:01 01:00:00", 0},
                                                          {"1970:01:01 00:59:59", -1},
                                                          {" 2024:07:01 12:00:00\n", 1719828000},
                                                          {"2024:01:01 12:00:00", 1704106800},
                                                          {"0001:01:01 00:00:00", -62135600008},
                                                          {"2024:03:31 02:30:00", 1711848600},
                                                          {"2024:10:27 03:00:00", 1729994400}};
    for (const auto& [text, seconds] : dates) {
        const auto date = parseCameraDate(text);
        ASSERT_TRUE(date) << text;
        EXPECT_EQ(date->seconds, seconds) << text;
    }
    for (const char* text : {"", "2024:07:01", "2024-07-01 12:00:00", "2024:07:01T12:00:00",
                             "2024:07:01 12:00:00Z", "2024:07:01 12:00:00.5", "2023:02:29 00:00:00",
                             "2024:13:01 00:00:00", "2024:04:31 00:00:00", "2024:01:00 00:00:00",
                             "2024:01:01 24:00:00", "2024:01:01 00:60:00", "2024:01:01 00:00:60",
                             "    :  :     :  :  ", "0000:00:00 00:00:00", "+024:07:01 12:00:00"}) {
        EXPECT_FALSE(parseCameraDate(text)) << text;
    }
}

TEST(DateParser, TakesIsoDatesOfAnyPrecision) {
    using platform::parseIsoDate;
    const tests::Environment zone{{"TZ", "Europe/Berlin"}};
    ::tzset();
    const std::pair<std::string, platform::Date> dates[] = {
        {"2024", {1704063600, 0}},
        {"2024-07", {1719784800, 0}},
        {"2024-07-01", {1719784800, 0}},
        {" 2024-07-01T12:00 ", {1719828000, 0}},
        {"2024-07-01 12:00:00.25", {1719828000, 250'000'000}},
        {"2024-07-01T12:00:00Z", {1719835200, 0}},
        {"2024-07-01T12:00:00.1234567891+05:30", {1719815400, 123'456'789}},
        {"2024-07-01T12-0130", {1719840600, 0}},
        {"2016-12-31T23:59:60Z", {1483228799, 0}},
        {"2024-07-01T12:00:00 +02", {1719828000, 0}}};
    for (const auto& [text, date] : dates) EXPECT_EQ(parseIsoDate(text), date) << text;
    for (const char* text :
         {"", "24", "2024-", "2024-7-1", "2024-13", "2023-02-29", "2024-01-01T", "2024-01-01T24:00",
          "2024-01-01T12:60", "2024-01-01T12:00+", "2024-01-01T12:00+24:00", "2024-01-01x",
          "2024/01/01", "-2024-01-01"}) {
        EXPECT_FALSE(parseIsoDate(text)) << text;
    }
}

}  // namespace
}  // namespace marquell::metadata
