// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <utility>

#include "platform/DiagnosticText.h"
#include "platform/TextBuffer.h"
#include "platform/UnicodeText.h"
#include "platform/Utf8.h"

namespace marquell::platform {
namespace {

std::string encoded(std::uint32_t c) {
    const auto tail = [c](int shift) { return static_cast<char>(0x80 | (c >> shift & 0x3F)); };
    const auto lead = [c](unsigned mark, int shift) {
        return static_cast<char>(mark | c >> shift);
    };
    if (c < 0x80) return {static_cast<char>(c)};
    if (c < 0x800) return {lead(0xC0, 6), tail(0)};
    if (c < 0x10000) return {lead(0xE0, 12), tail(6), tail(0)};
    return {lead(0xF0, 18), tail(12), tail(6), tail(0)};
}

/// The character at the start of `bytes`: the one whose encoding stands there. Slow and plain.
std::string characterAtStart(const std::string& bytes) {
    for (std::size_t length = 1; length <= std::min<std::size_t>(4, bytes.size()); ++length) {
        const auto at = [&bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
        std::uint32_t c = length == 1 ? at(0) : at(0) & (0x7FU >> length);
        for (std::size_t i = 1; i < length; ++i) c = c << 6 | (at(i) & 0x3FU);
        const bool isCharacter = c < 0xD800 || (c > 0xDFFF && c <= 0x10FFFF);
        if (isCharacter && bytes.starts_with(encoded(c))) return encoded(c);
    }
    return {};
}

TEST(Utf8, EachByteOutsideOfCharactersIsReplaced) {
    // Bytes at the edges of what the encoding allows.
    const std::string palette =
        "a\x7F\x80\x82\x8F\x90\x9F\xA0\xBF\xC0\xC1\xC2\xDF\xE0\xE1\xE2\xED\xEF\xF0\xF1\xF3\xF4\xF5"
        "\xFF";
    std::mt19937 random(1);
    for (int round = 0; round < 50'000; ++round) {
        std::string bytes(random() % 12, 'a');
        for (char& byte : bytes) byte = palette[random() % palette.size()];
        std::string expected;
        bool isValid = true;
        for (std::string rest = bytes; !rest.empty();) {
            const std::string character = characterAtStart(rest);
            isValid = isValid && !character.empty();
            expected += character.empty() ? "\uFFFD" : character;
            rest.erase(0, std::max<std::size_t>(1, character.size()));
        }
        ASSERT_EQ(displayText(bytes), expected) << testing::PrintToString(bytes);
        ASSERT_EQ(isValidUtf8(bytes), isValid) << testing::PrintToString(bytes);
    }
    EXPECT_EQ(displayText("\xE2\x82"
                          "A"),
              "\uFFFD\uFFFDA");
}

TEST(UnicodeText, KeysIgnoreCaseAndCanonicalForm) {
    const auto key = [](std::string_view text) {
        std::string made = "before";
        appendCaseInsensitiveKey(made, text);
        return made;
    };
    for (const auto& [a, b] : {std::pair{"STRASSE", "straße"},
                               {"Ångström", "A\u030Angstro\u0308M"},
                               {"\u212B", "å"},
                               {"ΣΑΣ", "σας"},
                               {"ﬁle", "FILE"},
                               {"K", "\u212A"},
                               {"a\u0323\u0307", "A\u0307\u0323"},
                               {"[Z", "[z"}}) {
        EXPECT_EQ(key(a), key(b)) << a << " " << b;
    }
    EXPECT_NE(key("I"), key("ı"));
    EXPECT_LT(key("\uFF61"), key("\U00010000")) << "code points, not UTF-16 units";
}

TEST(UnicodeText, CountsWhatUsersSeeAsCharacters) {
    for (const auto& [text, count] : {std::pair{"", 0},
                                      {"abc", 3},
                                      {"\r\n\n\r", 3},
                                      {"é", 1},
                                      {"e\u0301", 1},
                                      {"\u0301", 1},
                                      {"👨‍👩‍👧", 1},
                                      {"🇩🇪🇫🇷", 2},
                                      {"각", 1},
                                      {"각", 1},
                                      {"a\r\né\r\n", 4}}) {
        EXPECT_EQ(characterCount(text), static_cast<std::size_t>(count)) << text;
    }
    for (const auto& [text, isNumber] : {std::pair{"7", true},
                                         {"Ⅷ", true},
                                         {"½", true},
                                         {"①", true},
                                         {"三", true},
                                         {"٣", true},
                                         {"1\u0301", true},
                                         {"x", false},
                                         {"_", false},
                                         {"e\u0301", false},
                                         {"\u20DD", false}}) {
        EXPECT_EQ(isNumberCharacter(text), isNumber) << text;
    }
}

TEST(DiagnosticText, CannotForgeLinesOrSteerTerminals) {
    const std::string uncut(600, 'x');
    std::string wide = "y";  // cut within a character on both sides
    for (int i = 0; i < 200; ++i) wide += "😀";
    for (const auto& [bytes, shown] :
         {std::pair<std::string, std::string>{"a b\"é", "a b\"é"},
          {std::string("\0\n", 2), "\\u{0}\\u{a}"},
          {"\x1b[2J\x7f\u009b", "\\u{1b}[2J\\u{7f}\\u{9b}"},
          {"\u202Egpj\u2066\u200F\u2028", "\\u{202e}gpj\\u{2066}\\u{200f}\\u{2028}"},
          {"\x9b\xff", "\\x{9b}\\x{ff}"},
          {uncut, uncut},
          {uncut + "y", uncut.substr(0, 200) + "…" + uncut.substr(0, 349) + "y"},
          {wide, wide.substr(0, 197) + "…" + wide.substr(1, 348)}}) {
        EXPECT_EQ(diagnosticText(bytes), shown);
    }
    EXPECT_LT(diagnosticText(std::string(1'000'000, '\x80')).size(), 4000U);
}

TEST(TextBuffer, HoldsWhatWasAppended) {
    TextBuffer buffer;
    EXPECT_EQ(buffer.view(), "");
    std::string expected;
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        const std::string piece(random() % 3 == 0 ? random() % 300 : 0, static_cast<char>(round));
        buffer.append(piece);
        buffer.append(static_cast<char>(round));
        expected += piece + static_cast<char>(round);
    }
    EXPECT_EQ(buffer.view(), expected);
}

}  // namespace
}  // namespace marquell::platform
