// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

namespace marquell::platform {

/// Fields of the proleptic Gregorian calendar. Year 0 is the year before year 1.
struct CivilTime {
    std::int64_t year = 0;
    unsigned month = 1;
    unsigned day = 1;
    unsigned hour = 0;
    unsigned minute = 0;
    unsigned second = 0;
};

/// `localSeconds` since 1970-01-01 00:00 of the same clock.
CivilTime civilTime(std::int64_t localSeconds);

/// Seconds east of UTC in the machine's time zone (TZ) at a moment, given in seconds since
/// 1970-01-01 UTC. Any thread.
std::int64_t offsetFromUtc(std::int64_t seconds);

/// The machine's time zone (TZ), with the offsets it met kept by day: asking the C library costs
/// several times what formatting a date does. Not for two threads at once.
class LocalZone {
public:
    LocalZone();

    /// Seconds east of UTC at a moment, given in seconds since 1970-01-01 UTC.
    std::int64_t offsetAt(std::int64_t seconds);

private:
    struct CachedDay {
        std::int32_t day = INT32_MIN;
        std::int32_t offset = 0;  ///< or clocksChange
    };
    std::vector<CachedDay> days_;
};

}  // namespace marquell::platform
