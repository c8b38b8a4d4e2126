// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/documents/DocumentText.h"

#include <algorithm>
#include <utility>

#include "helpers/common/IndexProperties.h"

namespace marquell::helpers {
namespace {

constexpr std::string_view blanks = " \t\r\n\f\v";

char lowered(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

}  // namespace

bool isSameName(std::string_view one, std::string_view other) {
    return std::ranges::equal(one, other, {}, lowered, lowered);
}

std::string lowerCase(std::string_view ascii) {
    std::string lower(ascii);
    std::ranges::transform(lower, lower.begin(), lowered);
    return lower;
}

bool isBlank(char byte) { return blanks.find(byte) != std::string_view::npos; }

bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

bool isLetter(char byte) { return lowered(byte) >= 'a' && lowered(byte) <= 'z'; }

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string collapsed(std::string_view text) {
    std::string result;
    for (const char byte : trimmed(text)) {
        if (!isBlank(byte)) {
            result.push_back(byte);
        } else if (!result.ends_with(' ')) {
            result.push_back(' ');
        }
    }
    return result;
}

}  // namespace marquell::helpers
