// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/common/DecodedText.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <utility>

#include "platform/Utf8.h"

namespace marquell::helpers {
namespace {

/// 0x80 to 0x9F of Windows-1252. The five that it leaves undefined are dropped like the control
/// characters that they are elsewhere.
constexpr std::array<char32_t, 32> windows1252High = {
    U'\u20AC', 0,         U'\u201A', U'\u0192', U'\u201E', U'\u2026', U'\u2020', U'\u2021',
    U'\u02C6', U'\u2030', U'\u0160', U'\u2039', U'\u0152', 0,         U'\u017D', 0,
    0,         U'\u2018', U'\u2019', U'\u201C', U'\u201D', U'\u2022', U'\u2013', U'\u2014',
    U'\u02DC', U'\u2122', U'\u0161', U'\u203A', U'\u0153', 0,         U'\u017E', U'\u0178',
};

bool isDropped(char32_t character) {
    if (character == U'\t' || character == U'\n' || character == U'\r') return false;
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

void append(std::string& text, char32_t character) {
    if (!isDropped(character)) text.append(platform::utf8Text(character));
}

void appendWindows1252(std::string& text, std::string_view bytes) {
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        append(text, value >= 0x80 && value < 0xA0 ? windows1252High[value - 0x80U] : value);
    }
}

void appendUtf8(std::string& text, std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t plain = platform::asciiLength(bytes);
        std::copy_if(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(plain),
                     std::back_inserter(text),
                     [](char byte) { return !isDropped(static_cast<unsigned char>(byte)); });
        bytes.remove_prefix(plain);
        if (bytes.empty()) return;
        const std::size_t length = platform::utf8SequenceLength(bytes);
        append(text, platform::firstCodePoint(bytes));
        bytes.remove_prefix(length);
    }
}

/// A surrogate without its partner becomes U+FFFD, an odd byte at the end is dropped.
void appendUtf16(std::string& text, std::string_view bytes, bool isBigEndian) {
    const auto unitAt = [&](std::size_t index) {
        const auto first = static_cast<unsigned char>(bytes[2 * index]);
        const auto second = static_cast<unsigned char>(bytes[2 * index + 1]);
        return static_cast<char32_t>(isBigEndian ? first << 8U | second : second << 8U | first);
    };
    const std::size_t count = bytes.size() / 2;
    for (std::size_t i = 0; i < count; ++i) {
        char32_t character = unitAt(i);
        if (character == 0xFEFF) continue;
        if (character >= 0xD800 && character < 0xE000) {
            const char32_t low = character < 0xDC00 && i + 1 < count ? unitAt(i + 1) : 0;
            const bool isPair = low >= 0xDC00 && low < 0xE000;
            character = isPair ? 0x10000 + ((character - 0xD800) << 10U) + (low - 0xDC00) : 0xFFFD;
            if (isPair) ++i;
        }
        append(text, character);
    }
}

/// What the C library converts, by its names.
constexpr std::array<std::pair<Charset, const char*>, 18> convertedCharsets = {{
    {Charset::jis, "ISO-2022-JP"},
    {Charset::latin2, "ISO-8859-2"},
    {Charset::latin3, "ISO-8859-3"},
    {Charset::latin4, "ISO-8859-4"},
    {Charset::cyrillic, "ISO-8859-5"},
    {Charset::arabic, "ISO-8859-6"},
    {Charset::greek, "ISO-8859-7"},
    {Charset::hebrew, "ISO-8859-8"},
    {Charset::latin5, "ISO-8859-9"},
    {Charset::latin9, "ISO-8859-15"},
    {Charset::windows1250, "WINDOWS-1250"},
    {Charset::windows1251, "WINDOWS-1251"},
    {Charset::koi8, "KOI8-U"},
    {Charset::shiftJis, "CP932"},
    {Charset::eucJp, "EUC-JP"},
    {Charset::eucKr, "UHC"},
    {Charset::gb18030, "GB18030"},
    {Charset::big5, "BIG5-HKSCS"},
}};

/// The converters of this (single-threaded) process, never closed since they are loaded from files.
/// Null where the system has none.
iconv_t converterOf(Charset charset) {
    static const auto* const converters = [] {
        auto* const opened = new std::map<Charset, iconv_t>;
        for (const auto& [known, name] : convertedCharsets) {
            iconv_t converter = ::iconv_open("UTF-8", name);
            // NOLINTNEXTLINE(performance-no-int-to-ptr): iconv_open's own way of saying none
            const bool isOpen = converter != reinterpret_cast<iconv_t>(-1);
            opened->emplace(known, isOpen ? converter : nullptr);
        }
        return opened;
    }();
    return converters->at(charset);
}

void appendConverted(std::string& text, std::string bytes, Charset charset) {
    auto* const converter = converterOf(charset);
    if (converter == nullptr) return;
    ::iconv(converter, nullptr, nullptr, nullptr, nullptr);
    std::string converted(bytes.size() * 4, '\0');
    char* in = bytes.data();
    char* out = converted.data();
    std::size_t inLeft = bytes.size();
    std::size_t outLeft = converted.size();
    // What follows a broken sequence is lost, what precedes it isn't.
    ::iconv(converter, &in, &inLeft, &out, &outLeft);
    converted.resize(converted.size() - outLeft);
    if (platform::isValidUtf8(converted)) appendUtf8(text, converted);
}

std::string_view withoutPadding(std::string_view text) {
    constexpr std::string_view padding("\0 ", 2);
    const std::size_t last = text.find_last_not_of(padding);
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

}  // namespace

std::string decodedText(std::string_view bytes, Charset charset) {
    std::string text;
    switch (charset) {
        case Charset::likely:
            if (platform::isValidUtf8(bytes)) {
                appendUtf8(text, bytes);
                break;
            }
            [[fallthrough]];
        case Charset::windows1252:
            appendWindows1252(text, bytes);
            break;
        case Charset::utf16BigEndian:
        case Charset::utf16LittleEndian:
            appendUtf16(text, bytes, charset == Charset::utf16BigEndian);
            break;
        default:
            appendConverted(text, std::string(bytes), charset);
            break;
    }
    text.resize(withoutPadding(text).size());
    return text;
}

bool isReadableText(std::string_view bytes) {
    const std::string_view text = withoutPadding(bytes);
    if (text.empty() || !platform::isValidUtf8(text)) return false;
    return decodedText(text, Charset::likely) == text;
}

void prepareDecoding() { converterOf(Charset::jis); }

}  // namespace marquell::helpers
