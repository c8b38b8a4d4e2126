// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DiagnosticText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "platform/Utf8.h"

namespace marquell::platform {
namespace {

constexpr std::size_t maximumLength = 600;
/// Of a longer one: paths differ at their ends, and begin with what tells where they are.
constexpr std::size_t shownStart = 200;
constexpr std::size_t shownEnd = 350;

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

void appendEscape(std::string& text, char kind, std::uint32_t number) {
    std::array<char, 8> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), number, 16).ptr;
    text.append({'\\', kind, '{'}).append(digits.begin(), end).append("}");
}

void appendSafely(std::string& text, std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t length = utf8SequenceLength(bytes);
        if (length == 0) {
            appendEscape(text, 'x', static_cast<unsigned char>(bytes.front()));
        } else if (const char32_t codePoint = firstCodePoint(bytes); isHidden(codePoint)) {
            appendEscape(text, 'u', codePoint);
        } else {
            text.append(bytes.substr(0, length));
        }
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
}

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

}  // namespace

std::string diagnosticText(std::string_view bytes) {
    std::string text;
    if (bytes.size() <= maximumLength) {
        appendSafely(text, bytes);
        return text;
    }
    // No character is cut apart; of what isn't text, up to three bytes more are left out.
    std::size_t start = shownStart;
    std::size_t end = bytes.size() - shownEnd;
    for (int i = 0; i < 3 && isContinuation(bytes[start]); ++i) --start;
    for (int i = 0; i < 3 && isContinuation(bytes[end]); ++i) ++end;
    appendSafely(text, bytes.substr(0, start));
    text.append("…");
    appendSafely(text, bytes.substr(end));
    return text;
}

}  // namespace marquell::platform
