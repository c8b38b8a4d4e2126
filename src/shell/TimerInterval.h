// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>

namespace marquell::shell {

/// The interval as Qt's timers take it: whole milliseconds, as many as an int can count. At least
/// one, as with none at all a repeating timer would never let the thread rest.
inline std::chrono::milliseconds timerInterval(std::chrono::duration<double> interval) {
    constexpr double longest = std::numeric_limits<int>::max();
    const double milliseconds = std::round(interval.count() * 1000);
    if (!(milliseconds > 1)) return std::chrono::milliseconds(1);  // also what is no number
    return std::chrono::milliseconds(static_cast<int>(std::min(milliseconds, longest)));
}

}  // namespace marquell::shell
