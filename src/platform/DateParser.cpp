// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DateParser.h"

#include <chrono>
#include <cstddef>
#include <cstdint>

#include "platform/LocalTime.h"

namespace marquell::platform {
namespace {

constexpr std::string_view form = "dddd:dd:dd dd:dd:dd";

bool hasForm(std::string_view text) {
    if (text.size() != form.size()) return false;
    for (std::size_t i = 0; i < form.size(); ++i) {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (form[i] == 'd' ? !isDigit : text[i] != form[i]) return false;
    }
    return true;
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view padding(" \t\r\n\0", 5);
    const std::size_t first = text.find_first_not_of(padding);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(padding) - first + 1);
}

/// The number that the digits make.
int number(std::string_view digits) {
    int value = 0;
    for (const char digit : digits) value = value * 10 + (digit - '0');
    return value;
}

/// Of that day and clock time, in seconds since 1970-01-01 00:00 of the same clock.
std::optional<std::int64_t> localSeconds(const std::chrono::year_month_day& date, int hour,
                                         int minute, int second) {
    if (!date.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
    const std::chrono::sys_seconds midnight = std::chrono::sys_days(date);
    return midnight.time_since_epoch().count() + (hour * 60 + minute) * 60 + second;
}

}  // namespace

std::optional<Date> parseCameraDate(std::string_view text) {
    text = trimmed(text);
    if (!hasForm(text)) return std::nullopt;
    const std::chrono::year_month_day date(
        std::chrono::year(number(text.substr(0, 4))),
        std::chrono::month(static_cast<unsigned>(number(text.substr(5, 2)))),
        std::chrono::day(static_cast<unsigned>(number(text.substr(8, 2)))));
    const auto local = localSeconds(date, number(text.substr(11, 2)), number(text.substr(14, 2)),
                                    number(text.substr(17, 2)));
    if (!local) return std::nullopt;
    // The offset at about that moment tells the moment, and that its offset. mktime() would have
    // all threads wait for one lock.
    const std::int64_t about = *local - offsetFromUtc(*local);
    return Date{*local - offsetFromUtc(about), 0};
}

}  // namespace marquell::platform
