// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/IntegerValidatingNumberFormatter.h"

#include <charconv>
#include <string>

namespace marquell::toolkit {

std::optional<std::int64_t> integerFrom(const QString& text) {
    const std::string characters = text.toStdString();
    const char* first = characters.data();
    const char* const last = first + characters.size();
    if (characters.starts_with('+') && !characters.starts_with("+-")) ++first;
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(first, last, number);
    if (error != std::errc() || end != last) return std::nullopt;
    return number;
}

bool IntegerValidatingNumberFormatter::isPartialStringValid(const QString& partialString) const {
    if (partialString.isEmpty()) return true;  // on the way to another number
    const std::optional<std::int64_t> number = integerFrom(partialString);
    return number && !(maximum && *number > *maximum);
}

QValidator::State IntegerValidatingNumberFormatter::validate(QString& input, int&) const {
    return isPartialStringValid(input) ? Acceptable : Invalid;
}

}  // namespace marquell::toolkit
