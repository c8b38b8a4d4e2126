// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <latch>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "platform/MainQueue.h"
#include "platform/OperationQueue.h"
#include "platform/Workers.h"

namespace marquell::platform {
namespace {

using testing::ElementsAre;

class Task : public Operation {
public:
    explicit Task(std::function<void(Task&)> work) : work_(std::move(work)) {}
    void main() override { work_(*this); }

private:
    std::function<void(Task&)> work_;
};

std::shared_ptr<Task> task(std::function<void(Task&)> work) {
    return std::make_shared<Task>(std::move(work));
}

TEST(OperationQueue, RunsOneAfterTheOtherAlsoWhatOperationsAdd) {
    std::vector<int> order;  // without a lock: the queue itself keeps operations apart
    std::latch done(1);
    OperationQueue queue("test queue with a long name");
    EXPECT_TRUE(queue.isEmpty());
    queue.addOperation(task([&](Task&) {
        queue.addOperation(task([&](Task&) { order.push_back(1); }));
        queue.addOperation(task([&](Task& self) {
            queue.inspect([&](const auto operations) {
                order.push_back(operations.front().get() == &self ? 2 : -1);
            });
            done.count_down();
        }));
        order.push_back(0);
    }));
    done.wait();
    EXPECT_THAT(order, ElementsAre(0, 1, 2));
}

TEST(OperationQueue, CancelsTheRunningAndTheWaitingButStillRunsThem) {
    std::latch started(1);
    std::latch cancelled(1);
    std::latch done(3);
    std::atomic<int> seen = 0;
    OperationQueue queue("test");
    const auto count = [&](Task& self) {
        seen += self.isCancelled() && !self.isAbandoned() ? 1 : 0;
        done.count_down();
    };
    queue.addOperation(task([&](Task& self) {
        started.count_down();
        cancelled.wait();
        count(self);
    }));
    queue.addOperation(task(count));
    started.wait();
    queue.cancelAllOperations();
    queue.addOperation(task(count));
    cancelled.count_down();
    done.wait();
    EXPECT_EQ(seen, 2) << "the third came after the call";
}

TEST(OperationQueue, TellsWhatIsSupersededAndWhenNothingIsLeft) {
    std::latch added(1);
    std::latch drained(1);
    std::vector<bool> superseded;
    OperationQueue queue("test");
    std::atomic<int> timesDrained = 0;
    std::weak_ptr<Task> last;
    queue.setDrainedHandler([&] {
        EXPECT_TRUE(queue.isEmpty());
        EXPECT_TRUE(last.expired()) << "what an operation holds is given back by then";
        ++timesDrained;
        drained.count_down();
    });
    const auto note = [&](Task& self) {
        added.wait();
        superseded.push_back(self.isSuperseded());
    };
    for (int i = 0; i < 3; ++i) {
        const auto next = task(note);
        queue.addOperation(next);
        last = next;
    }
    added.count_down();
    drained.wait();
    EXPECT_THAT(superseded, ElementsAre(true, true, false));
    EXPECT_EQ(timesDrained, 1);
}

TEST(OperationQueue, AbandonsWhatItHoldsAndWaitsForWhatRuns) {
    std::atomic<bool> ended = false;
    std::atomic<bool> waitingRan = false;
    std::weak_ptr<Task> waiting;
    {
        std::latch started(1);
        OperationQueue queue("test");
        queue.addOperation(task([&](Task& self) {
            started.count_down();
            while (!self.isAbandoned()) std::this_thread::yield();
            EXPECT_TRUE(self.isCancelled());
            queue.addOperation(task([&](Task&) { waitingRan = true; }));
            ended = true;
        }));
        const auto second = task([&](Task&) { waitingRan = true; });
        waiting = second;
        queue.addOperation(second);
        started.wait();
    }
    EXPECT_TRUE(ended);
    EXPECT_FALSE(waitingRan);
    EXPECT_TRUE(waiting.expired());
}

TEST(PumpedMainQueue, RunsTasksInOrderAlsoThoseThatTasksPost) {
    PumpedMainQueue queue;
    std::vector<int> order;
    queue.post([&] {
        order.push_back(1);
        queue.post([&] { order.push_back(3); });
    });
    queue.post([&] { order.push_back(2); });
    EXPECT_THAT(order, ElementsAre());
    EXPECT_EQ(queue.drain(), 3U);
    EXPECT_THAT(order, ElementsAre(1, 2, 3));
    EXPECT_EQ(queue.drain(), 0U);
}

TEST(PumpedMainQueue, RunsDelayedTasksWhenTheirTimeHasCome) {
    using std::chrono_literals::operator""s;
    PumpedMainQueue queue;
    std::vector<int> order;
    queue.postAfter(2s, [&] { order.push_back(2); });
    queue.postAfter(1s, [&] {
        order.push_back(1);
        queue.post([&] { order.push_back(-1); });
        queue.postAfter(1.5s, [&] { order.push_back(3); });
    });
    queue.drain();
    queue.advance(0.9s);
    EXPECT_THAT(order, ElementsAre());
    queue.advance(1.5s);
    EXPECT_THAT(order, ElementsAre(1, -1, 2));
    queue.advance(0.1s);
    EXPECT_THAT(order, ElementsAre(1, -1, 2, 3));
}

TEST(Workers, CoverARangeOnceWhateverTheirNumber) {
    const unsigned before = workerCount();
    for (const unsigned workers : {1U, 2U, 7U, 64U}) {
        setWorkerCount(workers);
        for (const std::size_t count : {0U, 1U, 2U, 63U, 64U, 65U, 1000U}) {
            std::vector<std::atomic<int>> visits(count);
            std::atomic<unsigned> calls = 0;
            forRanges(count, 3, [&](std::size_t begin, std::size_t end) {
                ++calls;
                for (std::size_t i = begin; i < end; ++i) ++visits[i];
            });
            const bool once =
                std::all_of(visits.begin(), visits.end(), [](int n) { return n == 1; });
            EXPECT_TRUE(once) << count << " items, " << workers << " workers";
            EXPECT_LE(calls, workers);
        }
    }
    setWorkerCount(before);
}

}  // namespace
}  // namespace marquell::platform
