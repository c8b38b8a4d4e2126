// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <chrono>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "shell/EventLoop.h"
#include "shell/LoggedLines.h"
#include "shell/QtMainQueue.h"

namespace marquell::shell {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(QtMainQueue, RunsWhatComesFromAnyThreadOnItsOwnInOrder) {
    constexpr int count = 2000;
    QtMainQueue queue;
    std::vector<int> runs[2];
    const auto main = std::this_thread::get_id();
    const auto postAll = [&](int poster) {
        for (int i = 0; i < count; ++i) {
            queue.post([&, poster, i] {
                runs[poster].push_back(std::this_thread::get_id() == main ? i : -1);
            });
        }
    };
    std::thread other(postAll, 1);
    postAll(0);
    EXPECT_TRUE(runs[0].empty());  // also the main thread's own tasks wait
    ASSERT_TRUE(tests::waitUntil([&] { return runs[0].size() + runs[1].size() == 2 * count; }));
    other.join();
    for (const auto& run : runs) {
        for (int i = 0; i < count; ++i) ASSERT_EQ(run[static_cast<std::size_t>(i)], i);
    }
}

TEST(QtMainQueue, GoesOnAfterTasksThatPostAndTasksThatThrow) {
    const tests::LoggedLines logged;
    QtMainQueue queue;
    std::vector<int> order;
    queue.post([&] {
        queue.post([&] { order.push_back(3); });
        order.push_back(1);
    });
    queue.post([] { throw std::runtime_error("torn cable"); });
    queue.post([] { throw 1; });
    queue.post([&] { order.push_back(2); });
    ASSERT_TRUE(tests::waitUntil([&] { return order.size() == 3; }));
    EXPECT_THAT(order, ElementsAre(1, 2, 3));
    EXPECT_THAT(tests::LoggedLines::lines(),
                ElementsAre(HasSubstr("torn cable"), HasSubstr("failed")));
}

TEST(QtMainQueue, RunsDelayedTasksByTheirTime) {
    QtMainQueue queue;
    std::vector<std::pair<int, qint64>> runs;
    QElapsedTimer clock;
    clock.start();
    queue.postAfter(0.15s, [&] { runs.emplace_back(3, clock.elapsed()); });
    queue.postAfter(0.05s, [&] { runs.emplace_back(1, clock.elapsed()); });
    queue.postAfter(0.05s, [&] { runs.emplace_back(2, clock.elapsed()); });
    ASSERT_TRUE(tests::waitUntil([&] { return runs.size() == 3; }));
    for (const int i : {0, 1, 2}) {
        const auto [number, time] = runs[static_cast<std::size_t>(i)];
        EXPECT_EQ(number, i + 1);
        EXPECT_GE(time, number == 3 ? 149 : 49);
    }
}

TEST(QtMainQueue, DropsWhatWaitsWhenItGoesAway) {
    bool ran = false;
    const auto held = std::make_shared<int>();
    std::optional<QtMainQueue> queue(std::in_place);
    platform::MainQueue::install(&*queue);
    queue->post([&ran, held] { ran = true; });
    queue->postAfter(10ms, [&ran, held] { ran = true; });
    queue.reset();
    EXPECT_EQ(platform::MainQueue::installed(), nullptr);
    tests::runFor(50ms);
    EXPECT_FALSE(ran);
    EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
}  // namespace marquell::shell
