// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <functional>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "metadata/HashesHelper.h"
#include "metadata/MetadataStorage.h"
#include "pipeline/NodeArena.h"
#include "platform/Path.h"
#include "platform/ReadFailures.h"
#include "platform/Surroundings.h"

namespace marquell::metadata {
namespace {

using testing::ElementsAre;
using testing::Pair;

class HashesHelperTest : public testing::Test {
protected:
    void SetUp() override {
        MetadataStorage::shared().clear();
        platform::setReadFailureListener([this](std::string_view path, const std::error_code& why) {
            failures.emplace_back(path, why.value());
        });
    }
    void TearDown() override {
        platform::setReadFailureListener({});
        MetadataStorage::shared().clear();
    }

    std::shared_ptr<pipeline::Node> node(const std::string& path) {
        return arena.make<pipeline::FileNode>(platform::lastPathComponent(path), path,
                                              std::string_view());
    }
    static std::string stored(const pipeline::Node& node, std::string_view key) {
        return MetadataStorage::shared()
            .getStringValue(node.pathKey(), key, MetadataSource::hashes)
            .value_or("");
    }

    const tests::TemporaryFolder folder;
    pipeline::NodeArena arena;
    std::vector<std::pair<std::string, int>> failures;
    HashesHelper helper;
};

const std::function<bool()> never = [] { return false; };

TEST_F(HashesHelperTest, StoresTheWantedDigests) {
    tests::writeFile(folder / "abc", "abc");
    const auto file = node(folder / "abc");
    const std::vector<std::string> keys{"name", "sha1", "md5", "sha1"};
    helper.setWantedDigests(keys);
    EXPECT_TRUE(helper.retrieveAndStoreAllTagsFor(*file, never));
    EXPECT_EQ(stored(*file, "md5"), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(stored(*file, "sha1"), "a9993e364706816aba3e25717850c26c9cd0d89d");
    EXPECT_EQ(MetadataStorage::shared().itemCounter(), 2);
    HashesHelper fresh;
    EXPECT_TRUE(fresh.retrieveAndStoreAllTagsFor(*file, never));
    EXPECT_EQ(stored(*file, "sha384").size(), 96U);
    EXPECT_EQ(stored(*file, "sha512").size(), 128U);
    EXPECT_THAT(failures, ElementsAre());
}

TEST_F(HashesHelperTest, StoresNothingOfWhatCantBeReadOrWasStopped) {
    tests::writeFile(folder / "abc", "abc");
    EXPECT_FALSE(helper.retrieveAndStoreAllTagsFor(*node(folder / "abc"), [] { return true; }));
    EXPECT_TRUE(helper.retrieveAndStoreAllTagsFor(*node(folder.path()), never));
    EXPECT_THAT(failures, ElementsAre());
    EXPECT_TRUE(helper.retrieveAndStoreAllTagsFor(*node(folder / "gone"), never));
    EXPECT_THAT(failures, ElementsAre(Pair(folder / "gone", ENOENT)));
    EXPECT_EQ(MetadataStorage::shared().itemCounter(), 0);
}

}  // namespace
}  // namespace marquell::metadata
