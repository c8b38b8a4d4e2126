// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Clock.h"

#include <cmath>
#include <cstdint>
#include <utility>

namespace marquell::shell {
namespace {

double systemTime() {
    const Clock::Duration sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return sinceEpoch.count() - static_cast<double>(platform::referenceDate.seconds);
}

const ClockPace& pace() {
    static const ClockPace pace = [] {
        const double start = systemTime();
        return ClockPace{start, start, 1.0};
    }();
    return pace;
}

}  // namespace

double Clock::now() {
    const ClockPace& current = pace();  // before the time is taken, as its start is the earlier one
    return current.simulatedTime(systemTime());
}

platform::Date Clock::nowAsDate() {
    const double time = now();
    const double whole = std::floor(time);
    return {platform::referenceDate.seconds + static_cast<std::int64_t>(whole),
            static_cast<std::uint32_t>((time - whole) * 1e9)};
}

Clock::Duration Clock::translateDurationForSystemClock(Duration duration) {
    return pace().realDuration(duration);
}

std::unique_ptr<SmartTimerWrapper> Clock::timerWithSimulatedTimeInterval(
    Duration interval, bool repeat, SmartTimerWrapper::Block block) {
    return timerWithSystemTimeInterval(translateDurationForSystemClock(interval), repeat,
                                       std::move(block));
}

std::unique_ptr<SmartTimerWrapper> Clock::timerWithSystemTimeInterval(
    Duration interval, bool repeat, SmartTimerWrapper::Block block) {
    return SmartTimerWrapper::wrapTimer(interval, repeat, std::move(block));
}

}  // namespace marquell::shell
