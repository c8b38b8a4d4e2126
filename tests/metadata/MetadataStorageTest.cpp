// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <atomic>
#include <latch>
#include <string>
#include <thread>
#include <vector>

#include "metadata/MetadataStorage.h"

namespace marquell::metadata {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using testing::Optional;
using Source = MetadataSource;
using Value = WrappedMetaDataValue;

const auto never = [] { return false; };

constexpr std::string_view file = "/folder/file";

class MetadataStorageTest : public testing::Test {
protected:
    /// Runs `work(0)` to `work(count - 1)`, each on a thread of its own, all at once.
    template <typename Work>
    static void atOnce(int count, const Work& work) {
        std::latch start(count);
        std::vector<std::thread> threads;
        for (int i = 0; i < count; ++i) {
            threads.emplace_back([&, i] {
                start.arrive_and_wait();
                work(i);
            });
        }
        for (std::thread& thread : threads) thread.join();
    }

    MetadataStorage storage;
};

TEST_F(MetadataStorageTest, KeepsValuesApartByPathKeyAndSource) {
    storage.store(file, Source::imageIO, "title", "old"s);
    storage.store(file, Source::imageIO, "title", "new"s);
    storage.store(file, Source::spotlight, "title", "other"s);
    storage.store(file, Source::imageIO, "Title", std::int64_t{7});
    storage.store("/folder/File"sv, Source::imageIO, "title", platform::Date{5, 6});
    storage.store("/folder/file/"sv, Source::imageIO, "title", true);
    EXPECT_EQ(storage.getWrappedValue(file, "title", Source::imageIO), Value("new"));
    EXPECT_EQ(storage.getWrappedValue(file, "title", Source::spotlight), Value("other"));
    EXPECT_EQ(storage.getWrappedValue(file, "Title", Source::imageIO), Value(std::int64_t{7}));
    EXPECT_EQ(storage.getWrappedValue("/folder/File"sv, "title", Source::imageIO),
              Value(platform::Date{5, 6}));
    EXPECT_EQ(storage.getWrappedValue("/folder/file/"sv, "title", Source::imageIO), Value(true));
    EXPECT_EQ(storage.getWrappedValue(file, "title", Source::avKit), Value(None{}));
    EXPECT_EQ(storage.getWrappedValue(file, "name", Source::imageIO), Value(None{}));
    EXPECT_EQ(storage.getWrappedValue("/folder"sv, "title", Source::imageIO), Value(None{}));
    EXPECT_EQ(storage.itemCounter(), 6);
}

TEST_F(MetadataStorageTest, KeepsContentsOfEveryLengthAndReplacesThem) {
    const auto key = [](std::size_t length) { return "key" + std::to_string(length); };
    const auto lengths = {0UL, 1UL, 253UL, 254UL, 255UL, 256UL, 70'000UL};
    for (const char letter : {'a', 'b'}) {
        for (const std::size_t length : lengths) {
            storage.store(file, Source::imageIO, key(length), std::string(length, letter));
        }
        storage.store(file, Source::imageIO, "date", platform::Date{-5, 999'999'999});
        storage.store(file, Source::imageIO, "flag", letter == 'b');
    }
    for (const std::size_t length : lengths) {
        EXPECT_EQ(storage.getWrappedValue(file, key(length), Source::imageIO),
                  Value(std::string(length, 'b')));
        EXPECT_EQ(storage.getWrappedValue(file, key(length), Source::avKit), Value(None{}));
    }
    EXPECT_EQ(storage.getWrappedValue(file, "date", Source::imageIO),
              Value(platform::Date{-5, 999'999'999}));
    EXPECT_EQ(storage.getWrappedValue(file, "flag", Source::imageIO), Value(true));
}

TEST_F(MetadataStorageTest, ReadsByTypeWithDefaults) {
    storage.store(file, Source::avKit, "text", "yes"s);
    storage.store(file, Source::avKit, "flag", true);
    storage.store(file, Source::avKit, "no", false);
    storage.store(file, Source::avKit, "date", platform::Date{978307201, 500'000'000});
    EXPECT_THAT(storage.getStringValue(file, "text", Source::avKit), Optional("yes"s));
    EXPECT_EQ(storage.getStringValue(file, "flag", Source::avKit), std::nullopt);
    EXPECT_EQ(storage.getTimeIntervalValue(file, "date", Source::avKit), 1.5);
    EXPECT_EQ(storage.getTimeIntervalValue(file, "text", Source::avKit), -63114076800.0);
    EXPECT_EQ(storage.getTimeIntervalValue("/-"sv, "date", Source::avKit), -63114076800.0);
    EXPECT_TRUE(storage.boolValueExistsAndIsTrue(file, "flag", Source::avKit));
    EXPECT_FALSE(storage.boolValueExistsAndIsTrue(file, "no", Source::avKit));
    EXPECT_FALSE(storage.boolValueExistsAndIsTrue(file, "text", Source::avKit));
    EXPECT_FALSE(storage.boolValueExistsAndIsTrue(file, "flag", Source::imageIO));
    EXPECT_FALSE(storage.boolValueExistsAndIsTrue("/-"sv, "flag", Source::avKit));
}

TEST_F(MetadataStorageTest, PrefersStringsInTheOrderOfSources) {
    storage.store(file, Source::basic, "key", "basic"s);
    storage.store(file, Source::hashes, "key", "hashes"s);
    EXPECT_EQ(storage.getPreferredStringValue(file, "key"), std::nullopt);
    for (const Source source :
         {Source::spotlight, Source::sourceThree, Source::avKit, Source::imageIO}) {
        storage.store(file, source, "key", std::string(caseName(source)));
        EXPECT_THAT(storage.getPreferredStringValue(file, "key"), Optional(caseName(source)));
    }
    storage.store(file, Source::imageIO, "key", true);  // no string any more
    EXPECT_THAT(storage.getPreferredStringValue(file, "key"), Optional("avKit"s));
}

struct Sizes {
    std::int64_t bytes;
    std::string human, kb, mb;
};

TEST_F(MetadataStorageTest, BasicRecordAnswersAllItsKeys) {
    const Sizes cases[] = {
        {0, "Zero KB", "0", "0"},
        {1, "1 byte", "1", "1"},
        {1024, "1 KB", "1", "1"},
        {1025, "1 KB", "2", "1"},
        {1'048'576, "1 MB", "1024", "1"},
        {1'048'577, "1 MB", "1025", "2"},
        {INT64_MAX, "9", "9007199254740992", "8796093022208"},
    };
    for (const Sizes& sizes : cases) {
        SCOPED_TRACE(sizes.bytes);
        storage.storeBasicInformation(file, {sizes.bytes, platform::Date{1, 2}, {}});
        const auto text = [&](std::string_view key) {
            return storage.getStringValue(file, key, Source::basic);
        };
        EXPECT_EQ(storage.getWrappedValue(file, "size", Source::basic), Value(sizes.bytes));
        EXPECT_THAT(text("size_in_bytes"), Optional(std::to_string(sizes.bytes)));
        EXPECT_THAT(text("size_in_kb"), Optional(sizes.kb));
        EXPECT_THAT(text("size_in_mb"), Optional(sizes.mb));
        EXPECT_THAT(text("human_readable_size"), Optional(testing::StartsWith(sizes.human)));
    }
    EXPECT_EQ(storage.getWrappedValue(file, "creation_date", Source::basic),
              Value(platform::Date{1, 2}));
    EXPECT_EQ(storage.getWrappedValue(file, "modification_date", Source::basic), Value(None{}));
    EXPECT_EQ(storage.getWrappedValue(file, "size", Source::imageIO), Value(None{}));
    EXPECT_EQ(storage.itemCounter(), 6 * std::ssize(cases));
    EXPECT_FALSE(storage.isRetrieved(file, Source::basic));

    // The later of a single value and a record holds.
    storage.store(file, Source::basic, "size", std::int64_t{3});
    EXPECT_EQ(storage.getWrappedValue(file, "size", Source::basic), Value(std::int64_t{3}));
    storage.storeBasicInformation(file, {4, {}, {}});
    EXPECT_EQ(storage.getWrappedValue(file, "size", Source::basic), Value(std::int64_t{4}));
}

TEST_F(MetadataStorageTest, FlagIsOfOneSourceAndGoesWithAClear) {
    EXPECT_EQ(storage.getValueIfRetrieved(file, metadataKey("size"), Source::basic), std::nullopt);
    storage.storeBasicInformation(file, {9, {}, {}});
    EXPECT_EQ(storage.getValueIfRetrieved(file, metadataKey("size"), Source::basic), std::nullopt);
    const auto ticket = storage.beginRetrieval(file, Source::basic, never);
    ASSERT_TRUE(ticket && storage.beginRetrieval(file, Source::hashes, never));
    EXPECT_TRUE(storage.finishRetrieval(file, Source::basic, *ticket));
    EXPECT_THAT(storage.getValueIfRetrieved(file, metadataKey("size"), Source::basic),
                Optional(Value(std::int64_t{9})));
    EXPECT_THAT(storage.getValueIfRetrieved(file, metadataKey("md5"), Source::basic),
                Optional(Value(None{})));
    EXPECT_TRUE(storage.boolValueExistsAndIsTrue(file, "retrieved", Source::basic));
    EXPECT_FALSE(storage.boolValueExistsAndIsTrue(file, "retrieved", Source::hashes));
    EXPECT_FALSE(storage.beginRetrieval(file, Source::basic, never));
    storage.store(file, Source::avKit, "retrieved", true);
    EXPECT_TRUE(storage.isRetrieved(file, Source::avKit));
    storage.store(file, Source::avKit, "retrieved", false);
    EXPECT_FALSE(storage.isRetrieved(file, Source::avKit));
    EXPECT_EQ(storage.itemCounter(), 5 + 1 + 2);

    storage.clear();
    EXPECT_EQ(storage.itemCounter(), 0);
    EXPECT_FALSE(storage.isRetrieved(file, Source::basic));
    EXPECT_EQ(storage.getWrappedValue(file, "size", Source::basic), Value(None{}));
    EXPECT_TRUE(storage.beginRetrieval(file, Source::basic, never));
}

TEST_F(MetadataStorageTest, OneThreadExtractsAndTheOthersWaitForItsValues) {
    constexpr int paths = 200;
    std::vector<std::atomic<int>> extractions(paths);
    atOnce(6, [&](int) {
        for (int i = 0; i < paths; ++i) {
            const std::string text = "/" + std::to_string(i);
            const PathKey path(text);
            if (const auto ticket = storage.beginRetrieval(path, Source::hashes, never)) {
                extractions[static_cast<std::size_t>(i)] += 1;
                storage.store(path, Source::hashes, "md5", text);
                storage.storeBasicInformation(path, {i, {}, {}});
                EXPECT_TRUE(storage.finishRetrieval(path, Source::hashes, *ticket));
            }
            EXPECT_THAT(storage.getStringValue(path, "md5", Source::hashes), Optional(text));
            EXPECT_EQ(storage.getWrappedValue(path, "size", Source::basic), Value(std::int64_t{i}));
        }
    });
    for (const std::atomic<int>& count : extractions) EXPECT_EQ(count, 1);
    EXPECT_EQ(storage.itemCounter(), paths * (1 + 5 + 1));
}

TEST_F(MetadataStorageTest, AClearLetsWhoWaitsExtractAnew) {
    const auto first = storage.beginRetrieval(file, Source::hashes, never);
    ASSERT_TRUE(first);
    storage.store(file, Source::hashes, "md5", "lost"s);
    std::latch arrived(1);
    std::thread waiting([&] {
        arrived.count_down();
        const auto second = storage.beginRetrieval(file, Source::hashes, never);
        ASSERT_TRUE(second);
        // The first one's values are gone: its end must not pass for that of this one.
        EXPECT_FALSE(storage.finishRetrieval(file, Source::hashes, *first));
        EXPECT_FALSE(storage.isRetrieved(file, Source::hashes));
        EXPECT_TRUE(storage.finishRetrieval(file, Source::hashes, *second));
    });
    arrived.wait();
    storage.clear();
    waiting.join();
    EXPECT_TRUE(storage.isRetrieved(file, Source::hashes));
}

TEST_F(MetadataStorageTest, ThreadsThatStoreReadAndClearNeverMixFilesUp) {
    constexpr int rounds = 2000;

    atOnce(5, [&](int thread) {
        for (int i = 0; i < rounds; ++i) {
            if (thread == 0) {
                if (i % 20 == 0) storage.clear();
                continue;
            }
            const std::string text = "/" + std::to_string(i % 97);
            const std::string own = "of thread " + std::to_string(thread);
            const PathKey path(text);
            storage.store(path, Source::avKit, "text", text);
            storage.store(path, Source::avKit, own, std::int64_t{i});
            storage.storeBasicInformation(path, {i % 97, {}, {}});
            const auto stored = storage.getStringValue(path, "text", Source::avKit);
            EXPECT_EQ(stored.value_or(text), text);
            const auto size = storage.getWrappedValue(path, "size", Source::basic);
            EXPECT_TRUE(size == Value(std::int64_t{i % 97}) || size == Value(None{}));
            const Value mine = storage.getWrappedValue(path, own, Source::avKit);
            EXPECT_TRUE(mine == Value(std::int64_t{i}) || mine == Value(None{}));
        }
    });
    storage.clear();
    EXPECT_EQ(storage.itemCounter(), 0);
    EXPECT_EQ(storage.getWrappedValue("/1"sv, "text", Source::avKit), Value(None{}));
}

}  // namespace
}  // namespace marquell::metadata
