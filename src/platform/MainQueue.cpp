// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MainQueue.h"

#include <utility>

namespace marquell::platform {
namespace {

MainQueue*& slot() {
    static MainQueue* queue = nullptr;
    return queue;
}

}  // namespace

MainQueue* MainQueue::installed() { return slot(); }

void MainQueue::install(MainQueue* queue) { slot() = queue; }

void PumpedMainQueue::post(std::function<void()> task) {
    const std::lock_guard lock(mutex_);
    tasks_.push_back(std::move(task));
}

void PumpedMainQueue::postAfter(Seconds delay, std::function<void()> task) {
    waiting_.emplace(now_ + delay, std::move(task));
}

void PumpedMainQueue::advance(Seconds time) {
    const Seconds end = now_ + time;
    for (;;) {
        drain();
        if (waiting_.empty() || waiting_.begin()->first > end) break;
        const auto next = waiting_.extract(waiting_.begin());
        now_ = next.key();
        next.mapped()();
    }
    now_ = end;
}

std::size_t PumpedMainQueue::drain() {
    std::size_t count = 0;
    for (;;) {
        std::vector<std::function<void()>> batch;
        {
            const std::lock_guard lock(mutex_);
            batch.swap(tasks_);
        }
        if (batch.empty()) return count;
        for (const auto& task : batch) task();
        count += batch.size();
    }
}

}  // namespace marquell::platform
