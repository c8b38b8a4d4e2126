// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DiagnosticText.h"

#include <array>
#include <charconv>

#include "platform/Utf8.h"

namespace marquell::platform {
namespace {

constexpr std::size_t maximumCharacters = 200;

struct Range {
    char32_t first;
    char32_t last;
};

constexpr std::array<Range, 8> hiddenRanges = {{
    {0x0000, 0x001F},
    {0x007F, 0x009F},
    {0x061C, 0x061C},  // Arabic letter mark
    {0x200B, 0x200F},  // zero width, left-to-right and right-to-left marks
    {0x2028, 0x202E},  // line separators, bidirectional embeddings and overrides
    {0x2060, 0x2060},  // word joiner
    {0x2066, 0x206F},  // bidirectional isolates and deprecated format characters
    {0xFEFF, 0xFEFF},
}};

bool isHidden(char32_t codePoint) {
    for (const Range& range : hiddenRanges) {
        if (codePoint >= range.first && codePoint <= range.last) return true;
    }
    return false;
}

void appendEscape(std::string& text, char32_t codePoint) {
    std::array<char, 8> digits{};
    const auto end =
        std::to_chars(digits.begin(), digits.end(), static_cast<std::uint32_t>(codePoint), 16).ptr;
    text.append("\\u{").append(digits.begin(), end).append("}");
}

}  // namespace

std::string diagnosticText(std::string_view bytes) {
    // A character has at most four bytes, so the rest of a huge input needs no look.
    const std::string valid = displayText(bytes.substr(0, 4 * maximumCharacters + 4));
    std::string_view rest = valid;
    std::string text;
    for (std::size_t count = 0; !rest.empty(); ++count) {
        if (count == maximumCharacters) return text + "…";
        const std::size_t length = utf8SequenceLength(rest);
        const char32_t codePoint = firstCodePoint(rest);
        if (isHidden(codePoint)) {
            appendEscape(text, codePoint);
        } else {
            text.append(rest.substr(0, length));
        }
        rest.remove_prefix(length);
    }
    return text;
}

}  // namespace marquell::platform
