// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "metadata/MetadataStorage.h"
#include "metadata/RunAhead.h"
#include "platform/Path.h"
#include "platform/Surroundings.h"
#include "platform/Workers.h"

namespace marquell::metadata {
namespace {

using pipeline::Column;

/// A list of some thousand nodes, most of them of the same few files, some of none.
class RunAheadTest : public testing::Test {
protected:
    static constexpr std::size_t realFiles = 20;

    void SetUp() override {
        MetadataStorage::shared().clear();
        for (std::size_t i = 0; i < realFiles; ++i) {
            tests::writeFile(folder / std::to_string(i), std::string(i, 'x'));
        }
        pipeline::NodeArena arena;
        for (std::size_t i = 0; i < 3000; ++i) {
            const std::string path = folder / std::to_string(i / 7 % 400);
            files.push_back(arena.make<pipeline::FileNode>(platform::lastPathComponent(path), path,
                                                           std::string_view()));
        }
    }
    void TearDown() override {
        MetadataStorage::shared().clear();
        platform::setWorkerCount(workers_);
    }

    WrappedMetaDataValue expectedSize(std::size_t index) const {
        const std::size_t number = index / 7 % 400;
        if (number >= realFiles) return None{};
        return static_cast<NSInteger>(number);
    }

    bool isRetrieved(std::size_t index) const {
        return MetadataStorage::shared().isRetrieved(files[index]->pathKey(),
                                                     MetadataSource::basic);
    }

    tests::TemporaryFolder folder;
    std::vector<std::shared_ptr<pipeline::Node>> files;
    const std::vector<Column> columns{Column("name"), Column("size"), Column("nothing")};
    std::atomic<bool> unwanted = false;
    const pipeline::StopCheck isUnwanted = [this] { return unwanted.load(); };

private:
    const unsigned workers_ = platform::workerCount();
};

TEST_F(RunAheadTest, AStageReadsTheSameWithAnyNumberOfWorkers) {
    for (const unsigned workers : {1U, 2U, 7U}) {
        platform::setWorkerCount(workers);
        MetadataStorage::shared().clear();
        RunAhead ahead(files, columns, isUnwanted);
        for (std::size_t i = 0; i < files.size(); ++i) {
            EXPECT_TRUE(ahead.waitFor(i));
            EXPECT_EQ(files[i]->getWrappedValueSync(columns[1]), expectedSize(i)) << i;
        }
        std::set<std::string_view> paths;
        for (const auto& node : files) paths.insert(node->absolutePath());
        // Each path once: its flag, and five sizes and the modification date of those that are.
        // The birth time counts too where the file system has one.
        const auto stored = static_cast<std::size_t>(MetadataStorage::shared().itemCounter());
        EXPECT_GE(stored, paths.size() + realFiles * 6);
        EXPECT_LE(stored, paths.size() + realFiles * 7);
    }
}

TEST_F(RunAheadTest, AStageMayLeaveAtAnyPoint) {
    platform::setWorkerCount(7);
    for (const std::size_t last : {std::size_t{0}, std::size_t{300}, files.size() - 1}) {
        MetadataStorage::shared().clear();
        {
            RunAhead ahead(files, columns, isUnwanted);
            ahead.waitFor(last);
        }
        // What was begun is finished, so that nobody waits for it in vain.
        for (std::size_t i = 0; i < files.size(); ++i) {
            EXPECT_EQ(files[i]->getWrappedValueSync(columns[1]), expectedSize(i)) << i;
        }
    }
    MetadataStorage::shared().clear();
    { const RunAhead unused(files, columns, isUnwanted); }
}

TEST_F(RunAheadTest, AnUnwantedStageReadsWhatIsStoredAndNothingElse) {
    for (const unsigned workers : {1U, 2U}) {
        platform::setWorkerCount(workers);
        MetadataStorage::shared().clear();
        unwanted = false;
        for (std::size_t i = 0; i < 1000; ++i) files[i]->getWrappedValueSync(columns[1]);
        const auto stored = MetadataStorage::shared().itemCounter();
        unwanted = true;
        RunAhead ahead(files, columns, isUnwanted);
        std::size_t read = 0;
        while (read < files.size() && ahead.waitFor(read)) ++read;
        ASSERT_LT(read, files.size());
        EXPECT_EQ(files[read]->absolutePath(), folder / "143") << "the first that is not stored";
        EXPECT_EQ(MetadataStorage::shared().itemCounter(), stored);
    }
}

TEST_F(RunAheadTest, AnUnwantedStageDoesNotWaitForAnotherThatReadsForLong) {
    MetadataStorage& storage = MetadataStorage::shared();
    const auto ticket = storage.tryBeginRetrieval(files[0]->pathKey(), MetadataSource::hashes);
    ASSERT_TRUE(ticket);
    std::atomic<int> asked = 0;
    RunAhead ahead(files, {Column("md5")}, [&asked] { return ++asked > 50; });
    EXPECT_FALSE(ahead.waitFor(0));
    storage.cancelRetrieval(files[0]->pathKey(), MetadataSource::hashes, *ticket);
    EXPECT_FALSE(storage.isRetrieved(files[0]->pathKey(), MetadataSource::hashes));
}

TEST_F(RunAheadTest, ExtractsOnlyWhatTheColumnsNeed) {
    platform::setWorkerCount(2);
    {
        RunAhead ahead(files, {Column("name"), Column("nothing")}, isUnwanted);
        ahead.waitFor(files.size() - 1);
    }
    EXPECT_EQ(MetadataStorage::shared().itemCounter(), 0);
    for (std::size_t i = 0; i < files.size(); ++i) EXPECT_FALSE(isRetrieved(i));
}

}  // namespace
}  // namespace marquell::metadata
