// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <cstddef>
#include <latch>
#include <mutex>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/ReadFailures.h"

namespace marquell::tests {

/// Notes when extraction comes to which file, of those that aren't there: of these it tells. At
/// "/gate" it stops, once, until the gate is opened.
class GatedExtraction {
public:
    GatedExtraction() {
        platform::setReadFailureListener([this](std::string_view path, const std::error_code&) {
            if (path == "/gate") {
                gateReached.count_down();
                gateOpened.wait();
            }
            const std::lock_guard lock(mutex_);
            extracted_.emplace_back(path);
            changed_.notify_all();
        });
    }
    GatedExtraction(const GatedExtraction&) = delete;
    GatedExtraction& operator=(const GatedExtraction&) = delete;
    ~GatedExtraction() { platform::setReadFailureListener({}); }

    /// The paths so far in their order; waits until there are so many.
    std::vector<std::string> extracted(std::size_t atLeast = 0) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return extracted_.size() >= atLeast; });
        return extracted_;
    }

    std::latch gateReached{1};
    std::latch gateOpened{1};

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::string> extracted_;
};

}  // namespace marquell::tests
