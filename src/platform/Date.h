// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <compare>
#include <cstdint>

namespace marquell::platform {

/// A moment in UTC: whole seconds since 1970-01-01 and the nanoseconds (0 to 999,999,999) behind
/// them. Not one count of nanoseconds: that would end in 2262, and file systems and cameras go on.
struct Date {
    std::int64_t seconds = 0;
    std::uint32_t nanoseconds = 0;

    friend auto operator<=>(const Date&, const Date&) = default;
};

/// 2001-01-01 00:00:00 UTC, the zero of time intervals.
inline constexpr Date referenceDate{978307200, 0};

/// What a missing date counts as: earlier than any date of a file.
inline constexpr Date distantPast{referenceDate.seconds - 63114076800, 0};

/// Seconds since referenceDate.
constexpr double timeIntervalSinceReferenceDate(const Date& date) {
    return static_cast<double>(date.seconds - referenceDate.seconds) +
           static_cast<double>(date.nanoseconds) / 1e9;
}

}  // namespace marquell::platform
