// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/Id3Fields.h"

#include <algorithm>

#include "helpers/common/Input.h"
#include "helpers/common/Numbers.h"

namespace marquell::helpers {
namespace {

/// Where the first text ends: before a unit (of 1 or 2 bytes) of 0.
std::size_t textLength(std::string_view bytes, std::size_t unit) {
    if (unit == 1) return std::min(bytes.find('\0'), bytes.size());
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        if (bytes[i] == '\0' && bytes[i + 1] == '\0') return i;
    }
    return bytes.size();
}

/// In most languages the upper halves of letters are 0, or at least the same.
Charset likelyByteOrder(std::string_view bytes) {
    std::size_t evenZeros = 0;
    std::size_t oddZeros = 0;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        if (bytes[i] == '\0') ++evenZeros;
        if (bytes[i + 1] == '\0') ++oddZeros;
    }
    return evenZeros > oddZeros ? Charset::utf16BigEndian : Charset::utf16LittleEndian;
}

// Latin 1 is what programs declare whatever they write.
std::string decodedNarrow(std::string_view bytes) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
    return decodedText(bytes, Charset::likely);
}

}  // namespace

std::string_view Id3Fields::bytes(std::size_t length) {
    const std::string_view taken = rest_.substr(0, length);
    rest_.remove_prefix(taken.size());
    return taken;
}

std::uint64_t Id3Fields::number(std::size_t length) { return bigEndian(bytes(length), 0, length); }

void Id3Fields::takeEncoding() {
    constexpr std::uint64_t utf16 = 1;
    constexpr std::uint64_t utf16BigEndian = 2;
    const std::uint64_t encoding = number(1);
    const bool hasMark = rest_.starts_with("\xFF\xFE") || rest_.starts_with("\xFE\xFF");
    isWide_ = encoding == utf16 || encoding == utf16BigEndian || hasMark;
    if (encoding == utf16BigEndian) byteOrder_ = Charset::utf16BigEndian;
}

std::vector<std::string> Id3Fields::texts() {
    std::vector<std::string> texts;
    while (left() > 0 && texts.size() < maximumSteps) {
        std::string& last = texts.emplace_back(text());
        last.resize(last.find_last_not_of("\r\n ") + 1);
    }
    return texts;
}

std::string Id3Fields::latin() { return decodedNarrow(takeText(1)); }

std::string_view Id3Fields::textBytes() { return takeText(isWide_ ? 2 : 1); }

std::string_view Id3Fields::takeText(std::size_t unit) {
    const std::string_view text = bytes(textLength(rest_, unit));
    bytes(unit);
    return text;
}

std::string Id3Fields::decoded(std::string_view bytes) {
    if (!isWide_) return decodedNarrow(bytes);
    if (bytes.starts_with("\xFF\xFE")) byteOrder_ = Charset::utf16LittleEndian;
    if (bytes.starts_with("\xFE\xFF")) byteOrder_ = Charset::utf16BigEndian;
    return decodedText(bytes, byteOrder_ ? *byteOrder_ : likelyByteOrder(bytes));
}

}  // namespace marquell::helpers
