// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "metadata/DurationTexts.h"
#include "metadata/IndexEntry.h"
#include "metadata/IndexTasks.h"
#include "metadata/MetadataStorage.h"
#include "metadata/SpotlightHelper.h"
#include "platform/ContentType.h"
#include "platform/ReadFailures.h"
#include "platform/Surroundings.h"

namespace marquell::metadata {
namespace {

using namespace std::string_view_literals;
using Attribute = platform::IndexAttribute;
using platform::Date;

platform::HelperPool& noReaders() { throw std::logic_error("nothing to read"); }

class SpotlightHelperTest : public testing::Test {
protected:
    void SetUp() override { MetadataStorage::shared().clear(); }
    void TearDown() override { MetadataStorage::shared().clear(); }

    static WrappedMetaDataValue stored(std::string_view key) {
        return MetadataStorage::shared().getWrappedValue("/x"sv, key, MetadataSource::spotlight);
    }

    void store(const IndexItem& item) {
        MetadataStorage::shared().clear();
        helper.store("/x"sv, item);
    }

    SpotlightHelper helper{FileIndex(&noReaders, &noReaders)};
};

TEST_F(SpotlightHelperTest, StoresEachKindOfAttributeInItsForm) {
    const WrappedMetaDataValue none = None{};
    store({{Attribute::kMDItemTitle, "A title"},
           {Attribute::kMDItemCopyright, ""},
           {Attribute::kMDItemComment, 5.0},
           {Attribute::kMDItemWhereFroms, std::vector<std::string>{"http://a", "http://b"}},
           {Attribute::kMDItemKeywords, std::vector<std::string>{}},
           {Attribute::kMDItemLayerNames, std::vector<std::string>{"Top"}},
           {Attribute::kMDItemPixelWidth, 3.0},
           {Attribute::kMDItemFNumber, 2.8},
           {Attribute::kMDItemAltitude, std::numeric_limits<double>::infinity()},
           {Attribute::kMDItemLatitude, "text"},
           {Attribute::kMDItemContentCreationDate, Date{5, 6}},
           {Attribute::kMDItemDateAdded, std::vector<Date>{{7, 0}, {8, 0}}},
           {Attribute::kMDItemDownloadedDate, std::vector<Date>{}}});
    const std::pair<const char*, WrappedMetaDataValue> expected[] = {
        {"title", "A title"},
        {"copyright", none},
        {"comment", none},
        {"wherefroms", "http://a, http://b"},
        {"keywords", none},
        {"layernames", "Top"},
        {"pixelwidth", "3"},
        {"fnumber", "2.8"},
        {"altitude", none},
        {"latitude", none},
        {"contentcreationdate", Date{5, 6}},
        {"dateadded", Date{7, 0}},
        {"downloadDate", none}};
    for (const auto& [key, value] : expected) EXPECT_EQ(stored(key), value) << key;
}

TEST_F(SpotlightHelperTest, StoresADurationInThreeForms) {
    const std::tuple<double, const char*, const char*, const char*> cases[] = {
        {59.5, "59.5", "59 seconds", "00:00:59"},
        {3661, "3661", "1 hour 1 minute 1 second", "01:01:01"},
        {7325.04, "7325", "2 hours 2 minutes 5 seconds", "02:02:05"},
        {0.25, "0.2", "less than 1 second", "00:00:00"},
        {0.35, "0.4", "less than 1 second", "00:00:00"},
        {0.97, "1", "less than 1 second", "00:00:00"},
        {9.96, "10", "9 seconds", "00:00:09"},
        {99.951, "100", "1 minute 39 seconds", "00:01:39"},
        {86399.99, "86400", "23 hours 59 minutes 59 seconds", "23:59:59"},
        {90000, "90000", "1 day", "25:00:00"},
        {172799, "172799", "1 day", "47:59:59"},
        {172800, "172800", "2 days", "48:00:00"},
        {360000000, "360000000", "4166 days", "100000:00:00"}};
    for (const auto& [seconds, number, words, clock] : cases) {
        SCOPED_TRACE(seconds);
        store({{Attribute::kMDItemDurationSeconds, seconds}});
        EXPECT_EQ(stored("duration"), WrappedMetaDataValue(number));
        EXPECT_EQ(stored("human_readable_duration"), WrappedMetaDataValue(words));
        EXPECT_EQ(stored("duration_hh_mm_ss"), WrappedMetaDataValue(clock));
    }
    for (const double seconds : {-0.1, 1e19, std::numeric_limits<double>::quiet_NaN()}) {
        store({{Attribute::kMDItemDurationSeconds, seconds}});
        for (const char* key : {"duration", "human_readable_duration", "duration_hh_mm_ss"}) {
            EXPECT_EQ(stored(key), WrappedMetaDataValue(None{})) << seconds;
        }
    }
}

TEST_F(SpotlightHelperTest, LooksNoDeeperThanTheColumnsTake) {
    const tests::TemporaryFolder folder;
    tests::writeFile(folder / "a.mp3", "ID3");
    pipeline::NodeArena arena;
    const auto node = arena.make<pipeline::FileNode>("a.mp3"sv, folder / "a.mp3", ""sv);
    const std::vector<pipeline::Node*> nodes = {node.get()};
    const auto look = [&](const std::string& column) {
        helper.setWantedColumns(std::vector<std::string>{column});
        MetadataStorage::shared().clear();
        helper.retrieveAndStoreAllTagsFor(
            nodes, [](std::size_t) {}, [] { return false; });
        return MetadataStorage::shared().getWrappedValue(std::string_view(node->absolutePath()),
                                                         column, MetadataSource::spotlight);
    };
    EXPECT_EQ(look("contenttype"), WrappedMetaDataValue("audio/mpeg"));
    EXPECT_EQ(look("wherefroms"), WrappedMetaDataValue(None{}));
    EXPECT_THROW(look("duration_hh_mm_ss"), std::logic_error);
    EXPECT_THROW(look("title"), std::logic_error);
}

TEST(IndexEntry, KnowsEveryKindOfEntry) {
    const tests::TemporaryFolder folder;
    std::vector<std::string> failures;
    platform::setReadFailureListener([&failures](std::string_view path, const std::error_code&) {
        failures.emplace_back(path);
    });
    tests::writeFile(folder / "text.txt", "words\n");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    ASSERT_EQ(::symlink("text.txt", (folder / "link").c_str()), 0);
    ASSERT_EQ(::symlink("nowhere", (folder / "dangling").c_str()), 0);
    const std::pair<const char*, const char*> types[] = {{"text.txt", "text/plain"},
                                                         {"link", "text/plain"},
                                                         {"", "inode/directory"},
                                                         {"pipe", "inode/fifo"}};
    for (const auto& [name, type] : types) {
        const auto entry = indexEntry(folder / name, FileIndex::Depth::type);
        ASSERT_TRUE(entry) << name;
        EXPECT_EQ(entry->item.at(Attribute::kMDItemContentType), IndexValue(type)) << name;
    }
    EXPECT_FALSE(indexEntry(folder / "dangling", FileIndex::Depth::type));
    EXPECT_THAT(failures, testing::IsEmpty());
    EXPECT_FALSE(indexEntry(folder / "missing", FileIndex::Depth::type));
    EXPECT_THAT(failures, testing::ElementsAre(folder / "missing"));
    platform::setReadFailureListener({});

    const std::string path = folder / "text.txt";
    const auto set = [&path](const char* name, std::string_view value) {
        return ::setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
    };
    if (!set("user.xdg.comment", "caf\xE9")) GTEST_SKIP() << "no extended attributes here";
    EXPECT_FALSE(
        indexEntry(path, FileIndex::Depth::entry)->item.contains(Attribute::kMDItemDownloadedDate));
    ASSERT_TRUE(set("user.xdg.origin.url", "http://a/b") &&
                set("user.xdg.referrer.url", "http://a"));
    const IndexItem item = indexEntry(path, FileIndex::Depth::entry)->item;
    EXPECT_EQ(item.at(Attribute::kMDItemFinderComment), IndexValue("caf\uFFFD"));
    EXPECT_EQ(item.at(Attribute::kMDItemWhereFroms),
              IndexValue(std::vector<std::string>{"http://a/b", "http://a"}));
    EXPECT_EQ(item.at(Attribute::kMDItemDownloadedDate), item.at(Attribute::kMDItemDateAdded));
}

TEST(ContentType, GoesByNameUnlessTheContentIsPlainlySomethingElse) {
    constexpr std::string_view png = "\x89PNG\r\n\x1A\n\0\0\0\rIHDR"sv;
    constexpr std::string_view mp4 =
        "\0\0\0\x18"
        "ftypmp42\0\0\0\0mp42isom"sv;
    const std::tuple<const char*, std::string_view, const char*, const char*> cases[] = {
        {"a.png", png, "image/png", "image/png"},
        {"a.jpg", png, "image/png", "image/png"},
        {"a", png, "image/png", "image/png"},
        {"a\xE9.TXT", png, "image/png", "image/png"},
        {"a.m4a", mp4, "audio/mp4", "video/mp4"},
        {"a.mp3", "fLaC\0\0\0\x22"sv, "audio/flac", "audio/flac"},
        {"a.flac", "ID3\3"sv, "audio/flac", "audio/mpeg"},
        {"a.py", "# %PDF-1.4\n", "text/x-python", "text/x-python"},
        {"a.docx", "%PDF-1.4\n", "application/pdf", "application/pdf"},
        {"a.jpg", mp4, "video/mp4", "video/mp4"},
        {"a.docx", "PK\3\4",
         "application/vnd.openxmlformats-officedocument.wordprocessingml.document",
         "application/vnd.openxmlformats-officedocument.wordprocessingml.document"},
        {"a.caf", "caff", "audio/x-caf", "audio/x-caf"},
        {"a.html", "<p>", "text/html", "text/html"},
        {"a.unheard", "\1\2\3", "application/octet-stream", "application/octet-stream"},
        {"unheard", "words", "text/plain", "text/plain"},
        {"a.mp3", "", "audio/mpeg", "audio/mpeg"}};
    for (const auto& [name, start, type, readerType] : cases) {
        const platform::ContentType found = platform::contentType(name, start);
        EXPECT_EQ(found.type, type) << name;
        EXPECT_EQ(found.readerType, readerType) << name;
    }
    using platform::HelperTask;
    EXPECT_EQ(indexTask("audio/x-wav"), HelperTask::soundIndex);
    EXPECT_EQ(indexTask("audio/mpeg"), HelperTask::streamIndex);
    EXPECT_EQ(indexTask("audio/x-wavpack"), HelperTask::streamIndex);
    EXPECT_EQ(indexTask("audio/x-mpegurl"), std::nullopt);
    EXPECT_EQ(indexTask("text/plain"), std::nullopt);
}

}  // namespace
}  // namespace marquell::metadata
