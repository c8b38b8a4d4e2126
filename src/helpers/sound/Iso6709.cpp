// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/Iso6709.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>

namespace marquell::helpers {
namespace {

constexpr std::string_view digits = "0123456789";

/// A number with its sign, and the length of its whole part, which tells degrees from minutes.
struct SignedNumber {
    double value = 0;
    std::size_t wholeDigits = 0;
    bool isNegative = false;
};

/// Takes a number that begins with a sign off the front.
std::optional<SignedNumber> takeNumber(std::string_view& text) {
    if (text.empty() || (text.front() != '+' && text.front() != '-')) return std::nullopt;
    SignedNumber number;
    number.isNegative = text.front() == '-';
    const std::string_view rest = text.substr(1);
    number.wholeDigits = std::min(rest.find_first_not_of(digits), rest.size());
    const std::size_t length = std::min(rest.find_first_not_of("0123456789."), rest.size());
    const auto [end, error] =
        std::from_chars(rest.data(), rest.data() + length, number.value, std::chars_format::fixed);
    if (number.wholeDigits == 0 || number.wholeDigits > 8 || error != std::errc{} ||
        end != rest.data() + length) {
        return std::nullopt;
    }
    text.remove_prefix(1 + length);
    return number;
}

/// In degrees of at most `limit`; their whole part has `degreeDigits`, with minutes and seconds
/// there are two or four more.
std::optional<double> angle(const SignedNumber& number, std::size_t degreeDigits, double limit) {
    double degrees = number.value;
    if (number.wholeDigits == degreeDigits + 2) {
        const double whole = std::floor(degrees / 100);
        degrees = whole + (degrees - whole * 100) / 60;
    } else if (number.wholeDigits == degreeDigits + 4) {
        const double whole = std::floor(degrees / 10'000);
        const double rest = degrees - whole * 10'000;
        const double minutes = std::floor(rest / 100);
        degrees = whole + minutes / 60 + (rest - minutes * 100) / 3600;
    } else if (number.wholeDigits > degreeDigits) {
        return std::nullopt;
    }
    if (degrees > limit) return std::nullopt;
    return number.isNegative ? -degrees : degrees;
}

/// With four digits behind the point and at least so many before it.
std::string signedNumber(double number, std::size_t wholeDigits) {
    std::array<char, 32> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                            std::abs(number), std::chars_format::fixed, 4);
    if (error != std::errc{}) return {};
    std::string text(buffer.data(), end);
    const std::size_t length = wholeDigits + 5;
    if (text.size() < length) text.insert(0, length - text.size(), '0');
    return (number < 0 ? "-" : "+") + text;
}

}  // namespace

std::optional<GeographicPosition> parseIso6709(std::string_view text) {
    const auto first = takeNumber(text);
    const auto second = first ? takeNumber(text) : std::nullopt;
    if (!second) return std::nullopt;
    const auto latitude = angle(*first, 2, 90);
    const auto longitude = angle(*second, 3, 180);
    if (!latitude || !longitude) return std::nullopt;
    GeographicPosition position{*latitude, *longitude, std::nullopt};
    if (const auto third = takeNumber(text)) {
        position.altitude = third->isNegative ? -third->value : third->value;
    }
    return position;
}

std::string iso6709Text(const GeographicPosition& position) {
    std::string text = signedNumber(position.latitude, 2) + signedNumber(position.longitude, 3);
    if (position.altitude) text += signedNumber(*position.altitude, 3);
    return text + "/";
}

}  // namespace marquell::helpers
