// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/DurationTexts.h"

#include <array>
#include <cinttypes>
#include <cstdint>
#include <cstdio>

#include "platform/Localization.h"

namespace marquell::metadata {
namespace {

constexpr const char* context = "duration";
constexpr std::int64_t minutesPerDay = 1440;

struct Unit {
    const char* one;
    const char* several;
};
constexpr Unit dayUnit = {"1 day", "%d days"};
constexpr Unit hourUnit = {"1 hour", "%d hours"};
constexpr Unit minuteUnit = {"1 minute", "%d minutes"};
constexpr Unit secondUnit = {"1 second", "%d seconds"};

std::string counted(std::int64_t count, const Unit& unit) {
    std::string text = platform::localizedPlural(unit.one, unit.several, count, context);
    constexpr std::string_view place = "%d";
    const std::size_t at = text.find(place);
    return at == std::string::npos ? text : text.replace(at, place.size(), std::to_string(count));
}

}  // namespace

std::string formatAsDaysAndHoursAndMinutes(double seconds) {
    const auto whole = static_cast<std::int64_t>(seconds);
    const std::int64_t wholeMinutes = whole / 60;
    if (wholeMinutes >= minutesPerDay) return counted(wholeMinutes / minutesPerDay, dayUnit);
    std::string text;
    const auto add = [&text](std::int64_t count, const Unit& unit) {
        if (count > 0) text.append(text.empty() ? "" : " ").append(counted(count, unit));
    };
    add(wholeMinutes / 60, hourUnit);
    add(wholeMinutes % 60, minuteUnit);
    add(whole % 60, secondUnit);
    return text.empty() ? platform::localized("less than 1 second", context) : text;
}

std::string formatAsHoursAndMinutesAndSecondsWithColon(double seconds) {
    const auto whole = static_cast<std::int64_t>(seconds);
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%02" PRId64 ":%02" PRId64 ":%02" PRId64, whole / 3600,
                  whole / 60 % 60, whole % 60);
    return text.data();
}

}  // namespace marquell::metadata
