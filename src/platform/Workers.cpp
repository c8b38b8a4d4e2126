// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Workers.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <utility>

namespace marquell::platform {
namespace {

std::atomic<unsigned>& countSlot() {
    static std::atomic<unsigned> slot = std::max(1U, std::thread::hardware_concurrency());
    return slot;
}

}  // namespace

unsigned workerCount() { return countSlot().load(std::memory_order_relaxed); }

void setWorkerCount(unsigned count) { countSlot().store(count, std::memory_order_relaxed); }

bool startThread(std::vector<std::thread>& threads, std::function<void()> work) {
    try {
        threads.emplace_back(std::move(work));
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

void forRanges(std::size_t count, std::size_t grain,
               const std::function<void(std::size_t begin, std::size_t end)>& work) {
    const std::size_t parts = std::clamp<std::size_t>(count / grain, 1, workerCount());
    const std::size_t size = (count + parts - 1) / parts;
    std::vector<std::thread> threads;
    std::size_t begin = size;
    for (; begin < count; begin += size) {
        const std::size_t end = std::min(begin + size, count);
        if (!startThread(threads, [&work, begin, end] { work(begin, end); })) break;
    }
    work(0, std::min(size, count));
    if (begin < count) work(begin, count);  // what no thread could be had for
    for (std::thread& thread : threads) thread.join();
}

}  // namespace marquell::platform
