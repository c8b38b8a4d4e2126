// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <atomic>
#include <functional>
#include <latch>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "metadata/DataCoordinator.h"
#include "metadata/MetadataStorage.h"
#include "platform/DateFormatter.h"
#include "platform/MainQueue.h"
#include "platform/Surroundings.h"
#include "support/GatedExtraction.h"
#include "support/NodeAt.h"

namespace marquell::metadata {
namespace {

using tests::nodeAt;

using pipeline::Node;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = DisplayStringWrapper::Kind;
using Paths = std::vector<std::string>;

/// A main queue whose thread can wait for what other threads post.
class AwaitedMainQueue : public platform::PumpedMainQueue {
public:
    void post(std::function<void()> task) override {
        PumpedMainQueue::post(std::move(task));
        posts.fetch_add(1);
        posts.notify_all();
    }

    void drainUntil(const std::function<bool()>& isDone) {
        for (;;) {
            const int seen = posts;
            drain();
            if (isDone()) return;
            posts.wait(seen);
        }
    }

    std::atomic<int> posts = 0;
};

/// A table cell: notes each signal.
class Cell : public DataIsReadyObserver {
public:
    void update(MetadataSource source) override {
        EXPECT_EQ(source, MetadataSource::basic);
        ++updates;
        if (onUpdate) onUpdate();
    }
    int updates = 0;
    std::function<void()> onUpdate;
};

class DataCoordinatorTest : public testing::Test {
protected:
    void SetUp() override {
        MetadataStorage::shared().clear();
        platform::MainQueue::install(&mainQueue);
    }
    void TearDown() override {
        coordinator.reset();
        // The program's own goes on, so that it has to be past all requests of this test.
        const auto last = nodeAt(folder.path());
        const auto cell = cellOf(*last);
        DataCoordinator::shared().retrieveDataAsynchronously(last, MetadataSource::basic);
        drainUntilTold(*cell);
        platform::MainQueue::install(nullptr);
        MetadataStorage::shared().clear();
    }

    std::shared_ptr<Node> fileOf(const std::string& content) const {
        tests::writeFile(folder / "file", content);
        return nodeAt(folder / "file");
    }

    static std::shared_ptr<Cell> cellOf(Node& node, std::string_view column = "size") {
        auto cell = std::make_shared<Cell>();
        node.addDataObserver(cell, column);
        return cell;
    }

    void request(const std::shared_ptr<Node>& node) {
        coordinator->retrieveDataAsynchronously(node, MetadataSource::basic);
    }

    /// Keeps the thread of a coordinator busy, so that requests wait.
    void closeGate(DataCoordinator& of) {
        of.retrieveDataAsynchronously(nodeAt("/gate"), MetadataSource::basic);
        extraction.gateReached.wait();
    }

    void drainUntilTold(const Cell& cell) {
        mainQueue.drainUntil([&cell] { return cell.updates > 0; });
    }

    /// Waits for so many extractions of missing files and returns their paths in order.
    Paths extracted(std::size_t count) { return extraction.extracted(count); }

    tests::TemporaryFolder folder;
    AwaitedMainQueue mainQueue;
    tests::GatedExtraction extraction;
    std::unique_ptr<DataCoordinator> coordinator = std::make_unique<DataCoordinator>();
};

TEST_F(DataCoordinatorTest, TwoColumnsOfOneSourceRunItOnceAndShareTheSignal) {
    const auto node = fileOf("12345");
    closeGate(DataCoordinator::shared());
    EXPECT_EQ(node->getDisplayString("size").kind, Kind::notRetrievedYet);
    const auto size = cellOf(*node, "size");
    EXPECT_EQ(node->getDisplayString("size_in_kb").kind, Kind::notRetrievedYet);
    const auto kb = cellOf(*node, "size_in_kb");
    extraction.gateOpened.count_down();
    drainUntilTold(*size);
    EXPECT_EQ(mainQueue.posts, 1);
    EXPECT_EQ(kb->updates, 1);
    EXPECT_EQ(node->getDisplayString("size"), (DisplayStringWrapper{Kind::string, "5 bytes"}));
    EXPECT_EQ(node->getDisplayString("size_in_kb"), (DisplayStringWrapper{Kind::string, "1"}));
    const std::int64_t stored = MetadataStorage::shared().itemCounter();
    EXPECT_EQ(node->getIntValueSync(pipeline::Column("size")), 5);
    EXPECT_EQ(node->getIntValueSync(pipeline::Column("size_in_bytes")), 0);  // a text
    EXPECT_EQ(MetadataStorage::shared().itemCounter(), stored);

    tests::writeFile(folder / "file", "123456");
    EXPECT_EQ(node->getDisplayString("size").text, "5 bytes");
    MetadataStorage::shared().clear();
    EXPECT_EQ(node->getDisplayString("size").kind, Kind::notRetrievedYet);
    const auto anew = cellOf(*node);
    drainUntilTold(*anew);
    EXPECT_EQ(node->getDisplayString("size").text, "6 bytes");
    EXPECT_EQ(size->updates, 1);
}

TEST_F(DataCoordinatorTest, AVanishedFileHasNoValue) {
    const auto node = nodeAt(folder / "vanished");
    EXPECT_EQ(node->getDisplayString("creation_date").kind, Kind::notRetrievedYet);
    const auto cell = cellOf(*node);
    drainUntilTold(*cell);
    EXPECT_EQ(node->getDisplayString("creation_date").kind, Kind::noValue);
    EXPECT_EQ(node->getWrappedValueSync("size"), WrappedMetaDataValue(None{}));
    EXPECT_EQ(node->getDateValueSync(pipeline::Column("creation_date")), platform::distantPast);
    EXPECT_EQ(node->getIntValueSync(pipeline::Column("size")), 0);
    EXPECT_THAT(extracted(1), ElementsAre(folder / "vanished"));
}

TEST_F(DataCoordinatorTest, DisplayStrings) {
    const auto node = nodeAt("/a\tb/\xff\\\n");
    const auto bare = nodeAt("/folder/plain");
    EXPECT_EQ(node->getDisplayString("name").text, "\uFFFD\\\\n");
    EXPECT_EQ(node->getDisplayString("absolute_path").text, "/a\\tb/\uFFFD\\\\n");
    EXPECT_EQ(node->getDisplayString("full_path_name_length").text, "8");
    for (const char* column : {"extension", "tags", "no_such_column", ""}) {
        EXPECT_EQ(fileOf("")->getDisplayString(column).kind, Kind::noValue);
    }
    EXPECT_EQ(bare->getDisplayString("relative_path"), (DisplayStringWrapper{Kind::string, ""}));

    std::string date;
    platform::DateFormatter(platform::DateStyle::mediumDateShortTime).append(date, {12345, 0});
    const std::pair<StoredValue, std::string> cases[] = {
        {"a\r\nb", R"(a\r\nb)"}, {platform::Date{12345, 678}, date}, {true, "true"},
        {false, "false"},        {std::int64_t{1000}, "1 KB"},
    };
    MetadataStorage& storage = MetadataStorage::shared();
    storage.store(node->pathKey(), MetadataSource::basic, "retrieved", true);
    for (const auto& [value, text] : cases) {
        storage.store(node->pathKey(), MetadataSource::basic, "creation_date", value);
        EXPECT_EQ(node->getDisplayString("creation_date"),
                  (DisplayStringWrapper{Kind::string, text}));
    }
    EXPECT_EQ(mainQueue.posts, 0);
}

TEST_F(DataCoordinatorTest, UnknownColumnsAndSourcesAskNobody) {
    const auto node = nodeAt("/missing");
    const char* column = "no_such_column";
    const auto cell = cellOf(*node, column);
    EXPECT_EQ(node->getWrappedValueSync(column), WrappedMetaDataValue(None{}));
    EXPECT_EQ(node->getDateValueSync(pipeline::Column(column)), platform::distantPast);
    EXPECT_EQ(node->getIntValueSync(pipeline::Column(column)), 0);
    coordinator->retrieveDataAsynchronously(node, MetadataSource::sourceThree);
    mainQueue.drain();
    EXPECT_EQ(cell->updates, 0);
    EXPECT_EQ(MetadataStorage::shared().itemCounter(), 0);
}

TEST_F(DataCoordinatorTest, TellsObserversThatComeLateAndNoneThatHaveGone) {
    const auto node = fileOf("");
    const auto early = cellOf(*node);
    auto gone = cellOf(*node);
    const auto removed = cellOf(*node);
    const auto removedAtLast = cellOf(*node);
    node->remove(*removed, MetadataSource::basic);
    coordinator->retrieveDataSynchronously(*node, MetadataSource::basic);
    const auto late = cellOf(*node);
    gone.reset();
    early->onUpdate = [&] { node->remove(*removedAtLast, MetadataSource::basic); };
    EXPECT_EQ(early->updates, 0);  // not before the main thread's turn
    EXPECT_EQ(mainQueue.drain(), 2U);
    EXPECT_EQ(early->updates, 1);
    EXPECT_EQ(late->updates, 1);
    EXPECT_EQ(removed->updates, 0);
    EXPECT_EQ(removedAtLast->updates, 0);
    node->signalDataIsNowReady(MetadataSource::basic);
    EXPECT_EQ(mainQueue.drain(), 0U);  // nobody is left to be told
}

TEST_F(DataCoordinatorTest, AnObserverMayEndWhileItIsTold) {
    // Its owner lets it go in the update, and it takes itself off the node's list as it ends.
    class Ending : public Cell {
    public:
        explicit Ending(Node& node) : node_(node) {}
        ~Ending() override { node_.remove(*this, MetadataSource::basic); }

    private:
        Node& node_;
    };
    const auto node = fileOf("");
    auto ending = std::make_shared<Ending>(*node);
    ending->onUpdate = [&ending] { ending.reset(); };
    node->addDataObserver(ending, "size");
    const auto next = cellOf(*node);
    coordinator->retrieveDataSynchronously(*node, MetadataSource::basic);
    mainQueue.drain();
    EXPECT_EQ(ending, nullptr);
    EXPECT_EQ(next->updates, 1);
}

TEST_F(DataCoordinatorTest, WaitingRequestsGoByInterestAndThenTheNewestFirst) {
    const auto awaited = nodeAt("/awaited");
    const auto abandoned = nodeAt("/abandoned");
    const auto first = nodeAt("/first");
    closeGate(*coordinator);
    request(first);
    request(awaited);
    request(nodeAt("/second"));
    request(abandoned);
    request(nodeAt("/third"));
    request(first);  // again: now the newest
    const auto cell = cellOf(*awaited);
    cellOf(*abandoned);
    extraction.gateOpened.count_down();
    EXPECT_THAT(extracted(5), ElementsAre("/gate", "/awaited", "/first", "/third", "/second"));
    EXPECT_FALSE(
        MetadataStorage::shared().isRetrieved(abandoned->pathKey(), MetadataSource::basic));
}

TEST_F(DataCoordinatorTest, ACellThatComesBackIntoViewIsServed) {
    // The earlier cell of the file has gone. The new one asks, and the request's turn comes before
    // it has registered.
    const auto node = nodeAt("/scrolled");
    closeGate(*coordinator);
    request(nodeAt("/last"));
    request(node);
    cellOf(*node);
    request(node);
    extraction.gateOpened.count_down();
    EXPECT_THAT(extracted(3), ElementsAre("/gate", "/scrolled", "/last"));
    const auto cell = cellOf(*node);
    drainUntilTold(*cell);
}

TEST_F(DataCoordinatorTest, NodesOfOnePathShareValuesAndEachTellsItsObservers) {
    const auto one = nodeAt("/missing");
    const auto other = nodeAt("/missing");
    const auto cellOfOne = cellOf(*one);
    const auto cellOfOther = cellOf(*other);
    request(one);
    request(other);
    drainUntilTold(*cellOfOne);
    drainUntilTold(*cellOfOther);
    EXPECT_THAT(extracted(1), ElementsAre("/missing"));
}

TEST_F(DataCoordinatorTest, NoSignalIsMissedAndNoneComesTwice) {
    std::vector<std::shared_ptr<Node>> nodes;
    for (int i = 0; i < 300; ++i) nodes.push_back(nodeAt("/-/" + std::to_string(i)));
    std::vector<std::shared_ptr<Cell>> cells;
    std::latch start(3);
    const auto extractAll = [&] {
        start.arrive_and_wait();
        for (const auto& node : nodes) {
            coordinator->retrieveDataSynchronously(*node, MetadataSource::basic);
        }
    };
    std::thread stage(extractAll);
    std::thread otherStage(extractAll);
    start.arrive_and_wait();
    for (auto node = nodes.rbegin(); node != nodes.rend(); ++node) {
        request(*node);
        cells.push_back(cellOf(**node));
        cells.push_back(cellOf(**node));
        mainQueue.drain();
    }
    stage.join();
    otherStage.join();
    mainQueue.drain();
    for (const auto& cell : cells) EXPECT_EQ(cell->updates, 1);
    EXPECT_EQ(extracted(nodes.size()).size(), nodes.size());  // no file twice
}

}  // namespace
}  // namespace marquell::metadata
