// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <memory>

#include "platform/Date.h"
#include "shell/SmartTimerWrapper.h"

namespace marquell::shell {

/// How a simulated time runs beside the real one. Times are seconds since platform::referenceDate.
struct ClockPace {
    double realStart;
    double simulatedStart;
    double factor;  // simulated seconds in a real one

    double simulatedTime(double realTime) const {
        return simulatedStart + (realTime - realStart) * factor;
    }
    std::chrono::duration<double> realDuration(std::chrono::duration<double> simulated) const {
        return simulated / factor;
    }
};

/// The program's clock. It shows the system's time: the factor of its pace is 1.
class Clock {
public:
    using Duration = std::chrono::duration<double>;

    /// Seconds since platform::referenceDate.
    static double now();
    static platform::Date nowAsDate();

    static Duration translateDurationForSystemClock(Duration duration);

    static std::unique_ptr<SmartTimerWrapper> timerWithSimulatedTimeInterval(
        Duration interval, bool repeat, SmartTimerWrapper::Block block);
    static std::unique_ptr<SmartTimerWrapper> timerWithSystemTimeInterval(
        Duration interval, bool repeat, SmartTimerWrapper::Block block);
};

}  // namespace marquell::shell
