// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/HelperProcess.h"

namespace marquell::platform {

/// How a pool's helpers have fared, and whether it is worth starting more. Any thread.
class HelperHealth {
public:
    void started(std::uint32_t protections);
    void didNotStart();
    void answered() { answers_.fetch_add(1, std::memory_order_relaxed); }
    void died();

    /// Ends a process, and keeps it for later if it can't be ended now.
    void bury(std::unique_ptr<HelperProcess> process);
    /// Tries again with those that were kept. Returns whether any are left.
    bool buryRest();

    bool isUnavailable() const { return isUnavailable_.load(std::memory_order_relaxed); }
    std::uint32_t protections() const;

private:
    struct Death {
        std::chrono::steady_clock::time_point time;
        std::uint64_t answersBefore = 0;
    };

    std::atomic<std::uint64_t> answers_ = 0;
    std::atomic<bool> isUnavailable_ = false;
    mutable std::mutex mutex_;
    // Guarded by mutex_:
    int failedStarts_ = 0;  // in a row
    bool hasStarted_ = false;
    std::uint32_t protections_ = ~std::uint32_t{0};
    std::deque<Death> deaths_;  // the latest
    std::vector<std::unique_ptr<HelperProcess>> stuck_;
};

}  // namespace marquell::platform
