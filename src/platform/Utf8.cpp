// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Utf8.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace marquell::platform {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

unsigned char byteAt(std::string_view bytes, std::size_t index) {
    return static_cast<unsigned char>(bytes[index]);
}

bool isContinuation(std::string_view bytes, std::size_t index) {
    return index < bytes.size() && (byteAt(bytes, index) & 0xC0) == 0x80;
}

bool inRange(std::string_view bytes, std::size_t index, unsigned char low, unsigned char high) {
    return index < bytes.size() && byteAt(bytes, index) >= low && byteAt(bytes, index) <= high;
}

std::size_t threeByteLength(std::string_view bytes) {
    const unsigned char lead = byteAt(bytes, 0);
    const unsigned char low = lead == 0xE0 ? 0xA0 : 0x80;
    const unsigned char high = lead == 0xED ? 0x9F : 0xBF;
    return inRange(bytes, 1, low, high) && isContinuation(bytes, 2) ? 3 : 0;
}

std::size_t fourByteLength(std::string_view bytes) {
    const unsigned char lead = byteAt(bytes, 0);
    const unsigned char low = lead == 0xF0 ? 0x90 : 0x80;
    const unsigned char high = lead == 0xF4 ? 0x8F : 0xBF;
    const bool valid =
        inRange(bytes, 1, low, high) && isContinuation(bytes, 2) && isContinuation(bytes, 3);
    return valid ? 4 : 0;
}

}  // namespace

std::size_t asciiLength(std::string_view bytes) {
    std::size_t index = 0;
    // Eight bytes a step, since nearly every name is all ASCII.
    for (; index + 8 <= bytes.size(); index += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + index, 8);
        if ((word & 0x8080808080808080ULL) != 0) break;
    }
    while (index < bytes.size() && byteAt(bytes, index) < 0x80) ++index;
    return index;
}

bool isAscii(std::string_view bytes) { return asciiLength(bytes) == bytes.size(); }

std::size_t utf8SequenceLength(std::string_view bytes) {
    const unsigned char lead = byteAt(bytes, 0);
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    if (lead < 0xE0) return isContinuation(bytes, 1) ? 2 : 0;
    return lead < 0xF0 ? threeByteLength(bytes) : fourByteLength(bytes);
}

bool isValidUtf8(std::string_view bytes) {
    for (;;) {
        bytes.remove_prefix(asciiLength(bytes));
        if (bytes.empty()) return true;
        const std::size_t length = utf8SequenceLength(bytes);
        if (length == 0) return false;
        bytes.remove_prefix(length);
    }
}

std::string displayText(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::size_t length = utf8SequenceLength(bytes);
        text.append(length == 0 ? replacement : bytes.substr(0, length));
        bytes.remove_prefix(length == 0 ? 1 : length);
    }
    return text;
}

char32_t firstCodePoint(std::string_view text) {
    const std::size_t length = utf8SequenceLength(text);
    const unsigned char lead = byteAt(text, 0);
    if (length <= 1) return lead;
    char32_t codePoint = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        codePoint = (codePoint << 6) | (byteAt(text, i) & 0x3FU);
    }
    return codePoint;
}

std::string utf8Text(char32_t codePoint) {
    constexpr std::array<unsigned char, 4> leads = {0x00, 0xC0, 0xE0, 0xF0};
    constexpr std::array<char32_t, 4> limits = {0x80, 0x800, 0x10000, 0x110000};
    std::size_t length = 1;
    while (length < 4 && codePoint >= limits[length - 1]) ++length;
    std::string text(length, '\0');
    for (std::size_t i = length; i-- > 1; codePoint >>= 6) {
        text[i] = static_cast<char>(0x80 | (codePoint & 0x3F));
    }
    text[0] = static_cast<char>(leads[length - 1] | codePoint);
    return text;
}

}  // namespace marquell::platform
