// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DateFormatter.h"

#include <unicode/datefmt.h>
#include <unicode/timezone.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/IcuLocale.h"

namespace marquell::platform {
namespace {

void appendTwoDigits(std::string& text, char before, unsigned value) {
    const std::array<char, 3> digits = {before, static_cast<char>('0' + value / 10),
                                        static_cast<char>('0' + value % 10)};
    text.append(digits.data(), digits.size());
}

/// At least four digits.
void appendYear(std::string& text, std::int64_t year) {
    std::array<char, 20> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), year < 0 ? -year : year).ptr;
    const auto length = static_cast<std::size_t>(end - digits.begin());
    if (year < 0) text.push_back('-');
    if (length < 4) text.append(4 - length, '0');
    text.append(digits.data(), length);
}

void appendDate(std::string& text, const CivilTime& civil) {
    appendYear(text, civil.year);
    appendTwoDigits(text, '-', civil.month);
    appendTwoDigits(text, '-', civil.day);
}

void appendTime(std::string& text, const CivilTime& civil, unsigned hour) {
    appendTwoDigits(text, ' ', hour);
    appendTwoDigits(text, ':', civil.minute);
    appendTwoDigits(text, ':', civil.second);
}

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
    appendDate(text, civil);
    if (style_ == DateStyle::dateAndTime) appendTime(text, civil, civil.hour);
    if (style_ == DateStyle::dateAndTimeWithAmPm) {
        appendTime(text, civil, civil.hour % 12 == 0 ? 12 : civil.hour % 12);
        text.append(civil.hour < 12 ? " AM" : " PM");
    }
}

}  // namespace marquell::platform
