// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LocalTime.h"

#include <algorithm>
#include <ctime>

namespace marquell::platform {
namespace {

constexpr std::int64_t secondsPerDay = 86400;
constexpr std::size_t cachedDays = 16384;  // a power of two, for 45 years of dates
constexpr std::int32_t clocksChange = INT32_MAX;

std::int64_t floorDivide(std::int64_t value, std::int64_t divisor) {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

/// Months counted from March, so that the leap day ends the year (the algorithm is known as
/// civil_from_days).
void setDate(CivilTime& civil, std::int64_t daysSince1970) {
    const std::int64_t days = daysSince1970 + 719468;
    const std::int64_t era = floorDivide(days, 146097);
    const std::int64_t dayOfEra = days - era * 146097;
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t monthFromMarch = (5 * dayOfYear + 2) / 153;
    civil.day = static_cast<unsigned>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1);
    civil.month =
        static_cast<unsigned>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
    civil.year = yearOfEra + era * 400 + (civil.month <= 2 ? 1 : 0);
}

}  // namespace

std::int64_t offsetFromUtc(std::int64_t seconds) {
    // Beyond this the year no longer fits the C library's int; the zone's last rule goes on.
    constexpr std::int64_t limit = 60'000'000'000'000'000;
    const std::time_t moment = std::clamp(seconds, -limit, limit);
    std::tm fields = {};
    return ::localtime_r(&moment, &fields) == nullptr ? 0 : fields.tm_gmtoff;
}

CivilTime civilTime(std::int64_t localSeconds) {
    const std::int64_t days = floorDivide(localSeconds, secondsPerDay);
    const auto secondOfDay = static_cast<unsigned>(localSeconds - days * secondsPerDay);
    CivilTime civil;
    setDate(civil, days);
    civil.hour = secondOfDay / 3600;
    civil.minute = secondOfDay / 60 % 60;
    civil.second = secondOfDay % 60;
    return civil;
}

LocalZone::LocalZone() { ::tzset(); }

std::int64_t LocalZone::offsetAt(std::int64_t seconds) {
    const std::int64_t day = floorDivide(seconds, secondsPerDay);
    if (day <= INT32_MIN || day > INT32_MAX) return offsetFromUtc(seconds);
    if (days_.empty()) days_.resize(cachedDays);
    CachedDay& cached = days_[static_cast<std::size_t>(day) % cachedDays];
    if (cached.day != day) {
        const std::int64_t first = offsetFromUtc(day * secondsPerDay);
        const std::int64_t last = offsetFromUtc((day + 1) * secondsPerDay - 1);
        cached.day = static_cast<std::int32_t>(day);
        cached.offset = first == last ? static_cast<std::int32_t>(first) : clocksChange;
    }
    return cached.offset != clocksChange ? cached.offset : offsetFromUtc(seconds);
}

}  // namespace marquell::platform
