// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/NumberText.h"

#include <array>
#include <charconv>

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

}  // namespace marquell::platform
