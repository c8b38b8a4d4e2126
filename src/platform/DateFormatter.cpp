// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DateFormatter.h"

#include <unicode/datefmt.h>
#include <unicode/timezone.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cinttypes>
#include <cstdio>

#include "platform/IcuLocale.h"

namespace marquell::platform {
namespace {

/// Digits and separators, collected here so that a text is appended to once.
class DateText {
public:
    /// At least four digits.
    void addYear(std::int64_t year) {
        if (year >= 0 && year <= 9999) {
            addTwoDigits(static_cast<unsigned>(year) / 100);
            return addTwoDigits(static_cast<unsigned>(year) % 100);
        }
        if (year < 0) *end_++ = '-';
        const std::uint64_t digits = static_cast<std::uint64_t>(year < 0 ? -year : year);
        for (const std::uint64_t limit : {1000U, 100U, 10U}) {
            if (digits < limit) *end_++ = '0';
        }
        end_ = std::to_chars(end_, characters_.end(), digits).ptr;
    }
    void addTwoDigits(unsigned value) {
        *end_++ = static_cast<char>('0' + value / 10);
        *end_++ = static_cast<char>('0' + value % 10);
    }
    void addTwoDigits(char before, unsigned value) {
        *end_++ = before;
        addTwoDigits(value);
    }
    void addDate(const CivilTime& civil) {
        addYear(civil.year);
        addTwoDigits('-', civil.month);
        addTwoDigits('-', civil.day);
    }
    void addTime(const CivilTime& civil, unsigned hour) {
        addTwoDigits(' ', hour);
        addTwoDigits(':', civil.minute);
        addTwoDigits(':', civil.second);
    }
    std::string_view view() const {
        return {characters_.data(), static_cast<std::size_t>(end_ - characters_.begin())};
    }

private:
    std::array<char, 48> characters_{};
    char* end_ = characters_.begin();
};

}  // namespace

/// The locale's medium date and short time, of a clock that is already local.
class DateFormatter::LocaleFormat {
public:
    LocaleFormat() : format_(formatOf(icuLocale("LC_TIME"))) {
        if (format_ == nullptr) format_.reset(formatOf(icu::Locale("en_US_POSIX")));
        if (format_ != nullptr) format_->setTimeZone(*icu::TimeZone::getGMT());
    }

    void append(std::string& text, std::int64_t localSeconds) const {
        if (format_ == nullptr) return;
        icu::UnicodeString formatted;
        format_->format(static_cast<UDate>(localSeconds) * U_MILLIS_PER_SECOND, formatted);
        // Some locales put U+202F before AM and PM, which no legacy encoding has.
        formatted.findAndReplace(icu::UnicodeString(char16_t(0x202F)), icu::UnicodeString(u' '));
        formatted.toUTF8String(text);
    }

private:
    static icu::DateFormat* formatOf(const icu::Locale& locale) {
        return icu::DateFormat::createDateTimeInstance(icu::DateFormat::kMedium,
                                                       icu::DateFormat::kShort, locale);
    }

    std::unique_ptr<icu::DateFormat> format_;
};

DateFormatter::DateFormatter(DateStyle style) : style_(style) {}

DateFormatter::~DateFormatter() = default;

void DateFormatter::append(std::string& text, const Date& date) {
    // The clamp keeps the sum in range; such dates are far outside of what a clock could show.
    constexpr std::int64_t limit = INT64_MAX - 2 * 86400;
    const std::int64_t seconds = std::clamp(date.seconds, -limit, limit);
    const std::int64_t local = seconds + zone_.offsetAt(seconds);
    if (style_ == DateStyle::mediumDateShortTime) {
        // Reading the locale's data takes long, and many lists have no dates.
        if (localeFormat_ == nullptr) localeFormat_ = std::make_unique<LocaleFormat>();
        localeFormat_->append(text, local);
        return;
    }
    const CivilTime civil = civilTime(local);
    DateText written;
    written.addDate(civil);
    if (style_ == DateStyle::dateAndTime) written.addTime(civil, civil.hour);
    if (style_ == DateStyle::dateAndTimeWithAmPm) {
        written.addTime(civil, civil.hour % 12 == 0 ? 12 : civil.hour % 12);
    }
    text.append(written.view());
    if (style_ == DateStyle::dateAndTimeWithAmPm) text.append(civil.hour < 12 ? " AM" : " PM");
}

std::string dateDescription(const Date& date) {
    const CivilTime time = civilTime(date.seconds);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04" PRId64 "-%02u-%02u %02u:%02u:%02u +0000",
                  time.year, time.month, time.day, time.hour, time.minute, time.second);
    return text.data();
}

}  // namespace marquell::platform
