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
constexpr Unit days = {"1 day", "%d days"};
constexpr Unit hours = {"1 hour", "%d hours"};
constexpr Unit minutes = {"1 minute", "%d minutes"};
constexpr Unit seconds = {"1 second", "%d seconds"};

std::string counted(std::int64_t count, const Unit& unit) {
    std::string text = platform::localizedPlural(unit.one, unit.several, count, context);
    constexpr std::string_view place = "%d";
    const std::size_t at = text.find(place);
    return at == std::string::npos ? text : text.replace(at, place.size(), std::to_string(count));
}

}  // namespace

std::string formatAsDaysAndHoursAndMinutes(double number) {
    const auto whole = static_cast<std::int64_t>(number);
    const std::int64_t wholeMinutes = whole / 60;
    if (wholeMinutes >= minutesPerDay) return counted(wholeMinutes / minutesPerDay, days);
    std::string text;
    const auto add = [&text](std::int64_t count, const Unit& unit) {
        if (count > 0) text.append(text.empty() ? "" : " ").append(counted(count, unit));
    };
    add(wholeMinutes / 60, hours);
    add(wholeMinutes % 60, minutes);
    add(whole % 60, seconds);
    return text.empty() ? platform::localized("less than 1 second", context) : text;
}

std::string formatAsHoursAndMinutesAndSecondsWithColon(double number) {
    const auto whole = static_cast<std::int64_t>(number);
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%02" PRId64 ":%02" PRId64 ":%02" PRId64, whole / 3600,
                  whole / 60 % 60, whole % 60);
    return text.data();
}

}  // namespace marquell::metadata
