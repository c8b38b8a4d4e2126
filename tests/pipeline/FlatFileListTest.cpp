// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "metadata/MetadataStorage.h"
#include "pipeline/FlatFileList.h"
#include "pipeline/TextHelpers.h"
#include "platform/Path.h"
#include "platform/Workers.h"

namespace marquell::pipeline {
namespace {

using metadata::MetadataSource;
using metadata::MetadataStorage;
using Nodes = std::vector<std::shared_ptr<Node>>;

class FlatFileListTest : public testing::Test {
protected:
    void SetUp() override { MetadataStorage::shared().clear(); }
    void TearDown() override {
        MetadataStorage::shared().clear();
        platform::setWorkerCount(workers_);
    }

    template <typename Choices>
    const auto& any(const Choices& choices) {
        return choices[std::uniform_int_distribution<std::size_t>(0,
                                                                  std::size(choices) - 1)(random_)];
    }

    /// Built of few parts, so that names share beginnings of all lengths, tie and nearly tie.
    std::string anyName() {
        static const std::string parts[] = {
            "a",  "A",  "ä",      "a\u0308",    "ss",       "ß",   "1",    "01",
            "٣",  "10", "file",   "long part ", "12345678", " ",   "\x01", "~",
            "\n", ".",  "\uFFFF", "\U0010FFFF", "\xff",     "\xc3"};
        std::string name;
        for (int left = any(std::vector{1, 1, 2, 3, 5, 20}); left > 0; --left) name += any(parts);
        return name;
    }

    std::optional<platform::Date> anyDate() {
        static const std::optional<platform::Date> dates[] = {
            {}, platform::distantPast, {{-1, 999999999}}, {{0, 0}}, {{0, 1}}, {{1LL << 36, 5}}};
        return any(dates);
    }

    void storeAttributes(const Node& node) {
        static const std::int64_t sizes[] = {0, 1, 255, 256, 1LL << 40, INT64_MAX};
        MetadataStorage& storage = MetadataStorage::shared();
        storage.storeBasicInformation(node.pathKey(), {any(sizes), anyDate(), anyDate()});
        if (const auto date = anyDate()) {
            storage.store(node.pathKey(), MetadataSource::spotlight, "contentcreationdate", *date);
        }
        storage.store(node.pathKey(), MetadataSource::basic, "retrieved", true);
    }

    Nodes anyNodes(int count) {
        static const std::string folders[] = {"/", "/f2/", "/F2/", "/f10/", "/f10/\xff/", "/f2 /"};
        NodeArena arena;
        Nodes nodes;
        while (count-- > 0) {
            const std::string path = any(folders) + anyName();
            nodes.push_back(arena.make<FileNode>(platform::lastPathComponent(path), path, {}));
            if (any(std::vector{0, 1, 1})) storeAttributes(*nodes.back());
        }
        return nodes;
    }

    static Nodes sorted(const Nodes& nodes, int first, int second) {
        FlatFileList list;
        list.files = nodes;
        list.sort(first, second);
        return list.files;
    }

    std::mt19937 random_{20240309};

private:
    const unsigned workers_ = platform::workerCount();
};

TEST_F(FlatFileListTest, SortsAsAStableSortByComparisonDoes) {
    Nodes nodes = anyNodes(200);
    NodeArena arena;
    for (std::size_t length = 1; length < 50; ++length) {  // each the beginning of the next
        const std::string name(length, 'z');
        nodes.push_back(arena.make<FileNode>(name, "/" + name, {}));
    }
    std::shuffle(nodes.begin(), nodes.end(), random_);
    std::uniform_int_distribution<int> anyMode(0, 15);
    for (int round = 0; round < 48; ++round) {
        const int first = round < 16 ? round : anyMode(random_);  // each is first at least once
        const int second = anyMode(random_);
        Nodes expected = nodes;
        std::stable_sort(expected.begin(), expected.end(), [&](const auto& a, const auto& b) {
            const NodeComparisonResult result = Node::compare(*a, *b, first);
            if (result != NodeComparisonResult::same) {
                return result == NodeComparisonResult::aComesFirst;
            }
            return Node::compare(*a, *b, second) == NodeComparisonResult::aComesFirst;
        });
        EXPECT_TRUE(sorted(nodes, first, second) == expected) << first << ", " << second;
    }
}

TEST_F(FlatFileListTest, EachModeHasItsKeyAndDirection) {
    NodeArena arena;
    const auto add = [&arena](const std::string& path, const platform::EntryAttributes& information,
                              platform::Date inside) {
        const metadata::PathKey key{std::string_view(path)};
        MetadataStorage& storage = MetadataStorage::shared();
        storage.storeBasicInformation(key, information);
        storage.store(key, MetadataSource::spotlight, "contentcreationdate", inside);
        storage.store(key, MetadataSource::basic, "retrieved", true);
        return arena.make<FileNode>(platform::lastPathComponent(path), path, "");
    };
    const auto ten = add("/a10/file10", {5, {{3, 0}}, {{9, 0}}}, {1, 0});
    const auto nine = add("/a9/File9", {300, {{3, 1}}, {{2, 0}}}, {2, 0});
    const auto bare = arena.make<FileNode>("x", "/a/x", "");  // missing, so without size and dates
    const Nodes orders[] = {
        {nine, ten, bare}, {bare, ten, nine},  // name
        {bare, nine, ten}, {ten, nine, bare},  // path
        {nine, ten, bare}, {bare, ten, nine},  // creation
        {ten, nine, bare}, {bare, nine, ten},  // modification
        {nine, ten, bare}, {bare, ten, nine},  // date inside the contents
        {bare, ten, nine}, {nine, ten, bare},  // size
        {ten, nine, bare}, {bare, nine, ten},  // name, digit by digit
        {bare, ten, nine}, {nine, ten, bare},  // path, digit by digit
    };
    for (int mode = 0; mode < 16; ++mode) {
        EXPECT_TRUE(sorted({ten, bare, nine}, mode, 0) == orders[mode]) << mode;
    }
}

TEST(TextHelpers, NumbersAreTheirDigitsPaddedTo32Characters) {
    const auto zeros = [](std::size_t count) { return std::string(count, '0'); };
    const std::string nines(33, '9');
    for (const auto& [text, expanded] : std::vector<std::pair<std::string, std::string>>{
             {"", ""},
             {"a1b022", "a" + zeros(31) + "1b" + zeros(29) + "022"},
             {nines + "-0", nines + "-" + zeros(32)},
             {"٣½x", zeros(30) + "٣½x"},
             {"1\u0301", zeros(31) + "1\u0301"},
             {"1\uFE0F\u20E3 2", zeros(31) + "1\uFE0F\u20E3 " + zeros(31) + "2"}}) {
        EXPECT_EQ(stringByExpandingAllNumberGroups(text), expanded) << text;
    }
}

TEST_F(FlatFileListTest, UnknownModesKeepTheOrder) {
    const Nodes nodes = anyNodes(50);
    EXPECT_TRUE(sorted(nodes, -1, 12) == nodes);
    EXPECT_TRUE(sorted(nodes, 16, 12) == nodes);
    EXPECT_TRUE(sorted(nodes, 12, 99) == sorted(nodes, 12, 12));
    EXPECT_TRUE(sorted({}, 0, 2).empty());
}

TEST_F(FlatFileListTest, ThreadsDoNotShowInTheOrder) {
    const Nodes nodes = anyNodes(20'000);
    for (const int first : {0, 11}) {
        platform::setWorkerCount(1);
        const Nodes byOne = sorted(nodes, first, 4);
        platform::setWorkerCount(5);
        EXPECT_TRUE(sorted(nodes, first, 4) == byOne) << first;
    }
}

TEST_F(FlatFileListTest, AStopLeavesTheEarlierOrder) {
    platform::setWorkerCount(3);
    FlatFileList list;
    list.files = anyNodes(300);
    const Nodes before = list.files;
    const Nodes after = sorted(before, 10, 0);
    int stopsInTime = 0;
    for (int allowed = 0; list.files == before; ++allowed) {
        std::atomic<int> asked = 0;
        list.sort(10, 0, [&] { return ++asked > allowed; });
        if (list.files == before) ++stopsInTime;
    }
    EXPECT_TRUE(list.files == after);
    EXPECT_GT(stopsInTime, 3);
}

}  // namespace
}  // namespace marquell::pipeline
