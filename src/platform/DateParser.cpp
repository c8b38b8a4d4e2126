// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DateParser.h"

#include <chrono>
#include <cstddef>
#include <ctime>

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

bool isReal(const std::tm& time) {
    using namespace std::chrono;
    const year_month_day date(year(time.tm_year + 1900),
                              month(static_cast<unsigned>(time.tm_mon + 1)),
                              day(static_cast<unsigned>(time.tm_mday)));
    return date.ok() && time.tm_hour < 24 && time.tm_min < 60 && time.tm_sec < 60;
}

}  // namespace

std::optional<Date> parseCameraDate(std::string_view text) {
    text = trimmed(text);
    if (!hasForm(text)) return std::nullopt;
    std::tm time{};
    time.tm_year = number(text.substr(0, 4)) - 1900;
    time.tm_mon = number(text.substr(5, 2)) - 1;
    time.tm_mday = number(text.substr(8, 2));
    time.tm_hour = number(text.substr(11, 2));
    time.tm_min = number(text.substr(14, 2));
    time.tm_sec = number(text.substr(17, 2));
    if (!isReal(time)) return std::nullopt;
    time.tm_isdst = -1;  // the zone's rules decide
    time.tm_wday = -1;   // stays so only on failure, as a result of -1 is also a moment
    const std::time_t seconds = std::mktime(&time);
    if (time.tm_wday < 0) return std::nullopt;
    return Date{seconds, 0};
}

}  // namespace marquell::platform
