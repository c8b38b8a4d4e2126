// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/NumberText.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <string_view>

namespace marquell::platform {

std::string numberText(double number) {
    if (number == 0) return "0";
    // The longest: 2^-1074 with its 17 significant digits, or 1.8e308 with a sign.
    std::array<char, 352> characters{};
    const auto end = std::to_chars(characters.data(), characters.data() + characters.size(), number,
                                   std::chars_format::fixed)
                         .ptr;
    return {characters.data(), end};
}

std::string oneDecimalText(double number) {
    std::string text = numberText(number);
    const std::size_t point = text.find('.');
    if (point == std::string::npos || text.size() == point + 2) return text;
    const std::string_view dropped = std::string_view(text).substr(point + 2);
    const bool isOdd = (text[point + 1] - '0') % 2 != 0;
    const bool isUp = dropped == "5" ? isOdd : dropped[0] >= '5';
    text.resize(point + 2);
    text.erase(point, 1);
    // The digits make a number of tenths now, to which one may have to be added.
    std::size_t i = text.size();
    while (isUp && i > 0 && text[i - 1] == '9') text[--i] = '0';
    if (isUp) {
        if (i > 0 && text[i - 1] != '-') {
            ++text[i - 1];
        } else {
            text.insert(i, 1, '1');
        }
    }
    const char tenths = text.back();
    text.pop_back();
    if (tenths != '0') return text + '.' + tenths;
    return text == "-0" ? "0" : text;
}

}  // namespace marquell::platform
