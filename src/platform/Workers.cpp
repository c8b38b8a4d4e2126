// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Workers.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

namespace marquell::platform {
namespace {

std::atomic<unsigned>& countSlot() {
    static std::atomic<unsigned> slot = std::max(1U, std::thread::hardware_concurrency());
    return slot;
}

}  // namespace

unsigned workerCount() { return countSlot().load(std::memory_order_relaxed); }

void setWorkerCount(unsigned count) { countSlot().store(count, std::memory_order_relaxed); }

void forRanges(std::size_t count, std::size_t grain,
               const std::function<void(std::size_t begin, std::size_t end)>& work) {
    const std::size_t parts = std::clamp<std::size_t>(count / grain, 1, workerCount());
    const std::size_t size = (count + parts - 1) / parts;
    std::vector<std::thread> threads;
    for (std::size_t begin = size; begin < count; begin += size) {
        threads.emplace_back(work, begin, std::min(begin + size, count));
    }
    work(0, std::min(size, count));
    for (std::thread& thread : threads) thread.join();
}

}  // namespace marquell::platform
