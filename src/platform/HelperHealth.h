// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/HelperProcess.h"

namespace marquell::platform {

/// How a pool's helpers have fared, and whether it is worth starting more. Any thread.
class HelperHealth {
public:
    void started(std::uint32_t protections);
    /// One did not come to its first file. After three in a row none is tried again.
    void didNotStart();
    void answered() { failedStarts_.store(0, std::memory_order_relaxed); }

    /// Ends a process, and keeps it for later if it can't be ended now.
    void bury(std::unique_ptr<HelperProcess> process);
    /// Tries again with those that were kept. Returns whether any are left.
    bool buryRest();

    bool isUnavailable() const { return isUnavailable_.load(std::memory_order_relaxed); }
    std::uint32_t protections() const;

    /// Something to be held by each process that is ready.
    std::shared_ptr<const void> mark() const { return mark_; }
    bool isAnyReady() const { return mark_.use_count() > 1; }

private:
    const std::shared_ptr<const int> mark_ = std::make_shared<int>();
    std::atomic<int> failedStarts_ = 0;  ///< since the last answer
    std::atomic<bool> isUnavailable_ = false;
    mutable std::mutex mutex_;
    // Guarded by mutex_:
    bool hasStarted_ = false;
    std::uint32_t protections_ = ~std::uint32_t{0};
    std::vector<std::unique_ptr<HelperProcess>> stuck_;
};

}  // namespace marquell::platform
