// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/common/TagDate.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>

namespace marquell::helpers {
namespace {

constexpr std::string_view digits = "0123456789";
constexpr std::array<std::string_view, 12> monthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// Takes parts off the front of a text.
class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    std::string_view rest() const { return text_; }

    std::size_t digitsAhead() const {
        return std::min(text_.find_first_not_of(digits), text_.size());
    }

    /// One of the characters; NUL if none of them is next.
    char oneOf(std::string_view characters) {
        if (text_.empty() || characters.find(text_.front()) == std::string_view::npos) return '\0';
        const char found = text_.front();
        text_.remove_prefix(1);
        return found;
    }

    bool word(std::string_view expected) {
        if (!text_.starts_with(expected)) return false;
        text_.remove_prefix(expected.size());
        return true;
    }

    void blanks() {
        while (oneOf(" \t\r\n") != '\0') {
        }
    }

    /// A number of exactly so many digits; -1 if there are fewer.
    int number(std::size_t length) {
        if (digitsAhead() < length) return -1;
        int value = 0;
        for (const char digit : text_.substr(0, length)) value = value * 10 + (digit - '0');
        text_.remove_prefix(length);
        return value;
    }

private:
    std::string_view text_;
};

std::string twoDigits(int number) {
    return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

std::string zone(Scanner& scanner) {
    if (scanner.word("Z") || scanner.word("UTC") || scanner.word("GMT")) return "Z";
    const char sign = scanner.oneOf("+-");
    const int hours = sign == '\0' ? -1 : scanner.number(2);
    if (hours < 0 || hours > 23) return {};
    scanner.oneOf(":");
    const int minutes = std::max(scanner.number(2), 0);
    if (minutes > 59) return {};
    return sign + twoDigits(hours) + ":" + twoDigits(minutes);
}

/// The time with "T" before it, and its zone; empty if there is none.
std::string timeOfDay(Scanner& scanner) {
    const int hour = scanner.number(std::clamp<std::size_t>(scanner.digitsAhead(), 1, 2));
    const bool hasColons = scanner.oneOf(":") != '\0';
    const int minute = scanner.number(2);
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59) return {};
    std::string text = "T" + twoDigits(hour) + ":" + twoDigits(minute);
    const bool hasSecond = !hasColons || scanner.oneOf(":") != '\0';
    const int second = hasSecond ? scanner.number(2) : -1;
    if (second >= 0 && second < 60) {
        text += ":" + twoDigits(second);
        if (scanner.oneOf(".,") != '\0') {
            const std::size_t length = std::min<std::size_t>(scanner.digitsAhead(), 9);
            if (length > 0) text += "." + std::string(scanner.rest().substr(0, length));
            scanner.number(length);
        }
    }
    scanner.blanks();
    return text + zone(scanner);
}

bool isDate(int year, int month, int day) {
    return std::chrono::year_month_day(std::chrono::year(year),
                                       std::chrono::month(static_cast<unsigned>(month)),
                                       std::chrono::day(static_cast<unsigned>(day)))
        .ok();
}

std::string yearText(int year) { return twoDigits(year / 100) + twoDigits(year); }

/// "Thu Feb 29 12:30:15 2024", the day of the week apart.
std::string cTimeDate(Scanner& scanner) {
    const std::string_view name = scanner.rest().substr(0, 3);
    const auto* const month = std::find(monthNames.begin(), monthNames.end(), name);
    if (month == monthNames.end()) return {};
    scanner.word(name);
    scanner.blanks();
    const int day = scanner.number(std::clamp<std::size_t>(scanner.digitsAhead(), 1, 2));
    scanner.blanks();
    const std::string time = timeOfDay(scanner);
    scanner.blanks();
    const int year = scanner.number(4);
    const int number = static_cast<int>(month - monthNames.begin()) + 1;
    if (year <= 0 || day < 0 || !isDate(year, number, day)) return {};
    return yearText(year) + "-" + twoDigits(number) + "-" + twoDigits(day) + time;
}

/// One or two digits behind a separator, or just two; -1 if there are none.
int datePart(Scanner& scanner, char separator) {
    const bool isSeparated = separator != '\0';
    if (isSeparated && scanner.oneOf({&separator, 1}) == '\0') return -1;
    const bool isShort = isSeparated && scanner.digitsAhead() == 1;
    return scanner.number(isShort ? 1 : 2);
}

}  // namespace

std::string isoDate(std::string_view text) {
    Scanner scanner(text);
    scanner.blanks();
    if (scanner.digitsAhead() == 0) {
        if (scanner.rest().size() > 4 && scanner.rest()[3] == ' ')
            scanner = Scanner(scanner.rest().substr(4));
        return cTimeDate(scanner);
    }
    const std::size_t length = scanner.digitsAhead();
    const int year = scanner.number(4);
    if (year <= 0 || (length != 4 && length != 6 && length != 8 && length != 14)) return {};
    const std::string_view next = scanner.rest().substr(0, 1);
    const bool isSeparated = next.find_first_of("-:/.") == 0;
    const char separator = isSeparated ? next.front() : '\0';
    const int month = datePart(scanner, separator);
    if (month < 1 || month > 12) return month > 12 ? std::string() : yearText(year);
    std::string yearAndMonth = yearText(year) + "-" + twoDigits(month);
    const int day = datePart(scanner, separator);
    if (day < 1) return yearAndMonth;
    if (!isDate(year, month, day)) return {};
    if (length != 14) {
        if (scanner.oneOf("Tt ") == '\0') return yearAndMonth + "-" + twoDigits(day);
        scanner.blanks();
    }
    return yearAndMonth + "-" + twoDigits(day) + timeOfDay(scanner);
}

std::string quickTimeDate(std::uint64_t seconds) {
    constexpr std::uint64_t from1904To1970 = 2'082'844'800;
    constexpr std::uint64_t end = 253'402'300'800;  // of the year 9999
    if (seconds >= from1904To1970) seconds -= from1904To1970;
    if (seconds == 0 || seconds >= end) return {};
    const std::chrono::sys_seconds moment{std::chrono::seconds(static_cast<std::int64_t>(seconds))};
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(moment - day);
    return yearText(static_cast<int>(date.year())) + "-" +
           twoDigits(static_cast<int>(static_cast<unsigned>(date.month()))) + "-" +
           twoDigits(static_cast<int>(static_cast<unsigned>(date.day()))) + "T" +
           twoDigits(static_cast<int>(time.hours().count())) + ":" +
           twoDigits(static_cast<int>(time.minutes().count())) + ":" +
           twoDigits(static_cast<int>(time.seconds().count())) + "Z";
}

}  // namespace marquell::helpers
