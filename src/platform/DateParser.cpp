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

/// The moment that the machine's clock shows that time.
std::int64_t utcSeconds(std::int64_t local) {
    // The offset at about that moment tells the moment, and that its offset. mktime() would have
    // all threads wait for one lock.
    const std::int64_t about = local - offsetFromUtc(local);
    return local - offsetFromUtc(about);
}

/// Takes parts off the front of a text.
class TextReader {
public:
    explicit TextReader(std::string_view text) : text_(text) {}

    bool isAtEnd() const { return text_.empty(); }

    bool take(char character) {
        if (!text_.starts_with(character)) return false;
        text_.remove_prefix(1);
        return true;
    }

    /// The number that exactly so many digits make.
    std::optional<int> digits(std::size_t count) {
        if (text_.size() < count || !hasDigits(text_.substr(0, count))) return std::nullopt;
        const int value = number(text_.substr(0, count));
        text_.remove_prefix(count);
        return value;
    }

    /// Nanoseconds from the digits of a fraction.
    std::uint32_t fraction() {
        std::uint32_t value = 0;
        std::uint32_t unit = 1'000'000'000;
        for (; !text_.empty() && hasDigits(text_.substr(0, 1)); text_.remove_prefix(1)) {
            unit /= 10;
            value += unit * static_cast<std::uint32_t>(text_[0] - '0');
        }
        return value;
    }

private:
    static bool hasDigits(std::string_view text) {
        return text.find_first_not_of("0123456789") == std::string_view::npos;
    }

    std::string_view text_;
};

struct IsoTime {
    int year = 0;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    std::uint32_t nanoseconds = 0;
    std::optional<int> offset;  ///< seconds east of UTC
};

/// Takes a number behind a separator. False if there is the separator and no number.
bool takeField(TextReader& reader, bool isThere, int& field) {
    if (!isThere) return true;
    const auto value = reader.digits(2);
    if (value) field = *value;
    return value.has_value();
}

bool takeClock(TextReader& reader, IsoTime& time) {
    if (!reader.take('T') && !reader.take('t') && !reader.take(' ')) return true;
    if (!takeField(reader, true, time.hour)) return false;
    const bool hasMinutes = reader.take(':');
    if (!takeField(reader, hasMinutes, time.minute)) return false;
    if (!takeField(reader, hasMinutes && reader.take(':'), time.second)) return false;
    if (reader.take('.') || reader.take(',')) time.nanoseconds = reader.fraction();
    // A leap second is the last one of its minute here.
    if (time.second == 60) time.second = 59;
    return true;
}

bool takeZone(TextReader& reader, IsoTime& time) {
    static_cast<void>(reader.take(' '));
    if (reader.take('Z') || reader.take('z')) {
        time.offset = 0;
        return true;
    }
    const bool isWest = reader.take('-');
    if (!isWest && !reader.take('+')) return true;
    int hours = 0;
    int minutes = 0;
    if (!takeField(reader, true, hours)) return false;
    const bool hasMinutes = reader.take(':') || !reader.isAtEnd();
    if (!takeField(reader, hasMinutes, minutes) || hours > 23 || minutes > 59) return false;
    time.offset = (hours * 60 + minutes) * (isWest ? -60 : 60);
    return true;
}

}  // namespace

std::optional<Date> parseIsoDate(std::string_view text) {
    TextReader reader(trimmed(text));
    IsoTime time;
    const auto year = reader.digits(4);
    if (!year) return std::nullopt;
    time.year = *year;
    const bool hasMonth = reader.take('-');
    if (!takeField(reader, hasMonth, time.month)) return std::nullopt;
    const bool hasDay = hasMonth && reader.take('-');
    if (!takeField(reader, hasDay, time.day)) return std::nullopt;
    if (hasDay && !(takeClock(reader, time) && takeZone(reader, time))) return std::nullopt;
    if (!reader.isAtEnd()) return std::nullopt;
    const std::chrono::year_month_day date(std::chrono::year(time.year),
                                           std::chrono::month(static_cast<unsigned>(time.month)),
                                           std::chrono::day(static_cast<unsigned>(time.day)));
    const auto local = localSeconds(date, time.hour, time.minute, time.second);
    if (!local) return std::nullopt;
    return Date{time.offset ? *local - *time.offset : utcSeconds(*local), time.nanoseconds};
}

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
    return Date{utcSeconds(*local), 0};
}

}  // namespace marquell::platform
