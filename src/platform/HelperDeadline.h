// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <optional>

#include "platform/HelperPool.h"
#include "platform/HelperProcess.h"

namespace marquell::platform {

/// How long a helper may take for the request that it is at.
class HelperDeadline {
public:
    explicit HelperDeadline(const HelperPool::Settings& settings)
        : wallLimit_(settings.wallLimit), cpuLimit_(settings.cpuLimit) {}

    /// The helper begins with another request.
    void restart() {
        since_ = Clock::now();
        cpuBefore_.reset();
    }

    /// To be asked when no answer came. CPU time counts from the first time that this is asked, so
    /// that what is answered at once costs no look at it.
    bool isOver(const HelperProcess& process) {
        if (Clock::now() - since_ >= wallLimit_) return true;
        const auto taken = process.cpuTime();
        if (!taken) return false;  // has ended, as its stream will say
        if (!cpuBefore_) cpuBefore_ = taken;
        return *taken - *cpuBefore_ >= cpuLimit_;
    }

private:
    using Clock = std::chrono::steady_clock;

    std::chrono::milliseconds wallLimit_;
    std::chrono::milliseconds cpuLimit_;
    Clock::time_point since_ = Clock::now();
    std::optional<std::chrono::nanoseconds> cpuBefore_;
};

}  // namespace marquell::platform
