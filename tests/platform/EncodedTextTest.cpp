// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <random>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "platform/EncodedText.h"
#include "platform/FileDescriptor.h"
#include "platform/Surroundings.h"
#include "platform/TextFile.h"

namespace marquell::platform {
namespace {

using namespace std::string_view_literals;
using enum TextEncoding;

using Written = std::tuple<TextEncoding, std::string_view, std::string_view>;

std::string bytesOf(std::string_view text, TextEncoding encoding) {
    std::string bytes;
    const EncodedText encoded(text, encoding);
    EXPECT_FALSE(encoded.unencodable()) << encodingName(encoding);
    const ByteSink sink = [&bytes](std::string_view more) { return bytes += more, 0; };
    EXPECT_EQ(encoded.writeTo(sink), 0) << encodingName(encoding);
    return bytes;
}

TEST(EncodedText, WritesEachCharacterAsItsOwnBytes) {
    for (const auto& [encoding, text, bytes] : {
             Written{utf8, "e\u0301中", "e\xCC\x81\xE4\xB8\xAD"},
             {utf16, "", "\xFF\xFE"},
             {utf16, "e\u0301", "\xFF\xFE\x65\0\1\3"sv},
             {utf16BigEndian, "a\U0001F600", "\0a\xD8\x3D\xDE\0"sv},
             {utf16LittleEndian, "a\uFEFF", "a\0\xFF\xFE"sv},
             {macOSRoman, "A\u030A€", "\x81\xDB"},
             {isoLatin1, "u\u0308ß\u0085\\é\\e\u0301", "\xFC\xDF\x85\\\xE9\\\xE9"},
             {isoLatin2, "z\u030Cőn\u0301\n", "\xBE\xF5\xF1\n"},
             {iso2022JP, "¥x", "\x1B(J\\x\x1B(B"},
             {iso2022JP, "か\u3099—‖−〜", "\x1B$B$,!=!B!]!A\x1B(B"},
             {japaneseEUC, "か\u3099—‖−〜", "\xA4\xAC\xA1\xBD\xA1\xC2\xA1\xDD\xA1\xC1"},
             {shiftJIS, "か\u3099—‖−〜", "\x82\xAA\x81\x5C\x81\x61\x81\x7C\x81\x60"},
             {shiftJIS, "ｱ\x1A\x1C\x7F", "\xB1\x1A\x1C\x7F"},
             {shiftJIS, "\uFA19\u212B", "\xFB\x7E\x81\xF0"},  // both exchanged by composing
             {isoLatin1, "\u212B", "\xC5"},
         }) {
        EXPECT_EQ(bytesOf(text, encoding), bytes) << encodingName(encoding) << " " << text;
    }
}

TEST(EncodedText, RefusesWhatTheEncodingLacksAndTellsWhere) {
    using Refused = std::tuple<TextEncoding, std::string, std::size_t, char32_t>;
    std::vector<Refused> all = {
        {isoLatin1, "éx中", 3, U'中'},
        {isoLatin1, "\U0001F600", 0, U'\U0001F600'},
        {isoLatin1, "x\u200Dy", 1, 0x200D},
        {macOSRoman, "\u202Egpj", 0, 0x202E},
        {japaneseEUC, "日\uFE0F", 3, 0xFE0F},
        {shiftJIS, "\\¥", 1, 0xA5},
        {shiftJIS, "\uF86F", 0, 0xF86F},
        {iso2022JP, "ab\x1B$B", 2, 0x1B},
        {japaneseEUC, "\u0080", 0, 0x80},
        {isoLatin1, "xe\u0323\u0301", 1, 0x1EB9},  // U+0323 joins first
        {isoLatin2, "\\n\u0301", 2, 0x0301},
    };
    std::string marks = "e";  // a megabyte of them
    for (int i = 0; i < 250'000; ++i) marks += "\u0301\u0316";
    all.push_back({isoLatin1, marks, 3, 0x0316});
    // Around the size of a piece.
    for (std::size_t length = 16'360; length < 16'400; ++length) {
        const std::string before = "ß" + std::string(length, 'x');
        all.push_back({isoLatin1, before + "\\u001e\u0301", before.size() + 6, 0x0301});
        all.push_back({isoLatin1, before + "中", before.size(), U'中'});
    }
    for (const auto& [encoding, text, offset, character] : all) {
        const EncodedText encoded(text, encoding);
        const auto found = encoded.unencodable();
        ASSERT_TRUE(found) << text.substr(0, 20);
        EXPECT_EQ(found->offset, offset) << text.substr(0, 20);
        EXPECT_EQ(found->character, character) << text.substr(0, 20);
        EXPECT_EQ(encoded.writeTo([](std::string_view) { return 0; }), EILSEQ);
    }
}

TEST(EncodedText, LongTextsAreTheSumOfTheirParts) {
    const std::string ascii(150, 'x');
    const std::vector<Written> parts = {
        {isoLatin1, "e\u0301", "\xE9"},
        {isoLatin1, "ß", "\xDF"},
        {isoLatin1, ascii, ascii},
        {iso2022JP, "か\u3099か\n", "\x1B$B$,$+\x1B(B\n"},
        {iso2022JP, "a本\n", "a\x1B$BK\\\x1B(B\n"},
        {iso2022JP, ascii, ascii},
        {shiftJIS, "か\u3099か", "\x82\xAA\x82\xA9"},
        {shiftJIS, "\x1A", "\x1A"},
        {utf16LittleEndian, "é\U0001F600", "\xE9\0\x3D\xD8\0\xDE"sv}};
    std::mt19937 random(1);
    for (const TextEncoding encoding : {isoLatin1, iso2022JP, shiftJIS, utf16LittleEndian}) {
        std::string text;
        std::string bytes;
        while (text.size() < 1'000'000) {
            const auto& [itsEncoding, partText, partBytes] = parts[random() % parts.size()];
            if (itsEncoding != encoding) continue;
            for (auto times = random() % 3 == 0 ? random() % 8000 : 1; times > 0; --times) {
                text += partText;
                bytes += partBytes;
            }
        }
        EXPECT_TRUE(bytesOf(text, encoding) == bytes) << encodingName(encoding);
        int calls = 0;
        const ByteSink broken = [&calls](std::string_view) { return calls++ == 0 ? EPIPE : 0; };
        EXPECT_EQ(EncodedText(text, encoding).writeTo(broken), EPIPE) << encodingName(encoding);
        EXPECT_EQ(calls, 1);
    }
}

TEST(TextFile, WritesNothingAtAllWhenACharacterIsLacking) {
    const tests::TemporaryFolder folder;
    const std::string path = folder / "file";
    EXPECT_FALSE(writeTextFile(path, "é", isoLatin1));
    const std::string text = std::string(200'000, 'x') + "中";
    const auto problem = writeTextFile(path, text, isoLatin1);
    ASSERT_TRUE(problem && problem->error == EILSEQ && problem->unencodable);
    EXPECT_EQ(problem->unencodable->offset, 200'000U);
    EXPECT_EQ(tests::contentOf(path), "\xE9");
    EXPECT_EQ(folder.names().size(), 1U);
    const auto full = writeTextFile("/dev/full", "é", isoLatin1);
    EXPECT_TRUE(full && full->error == ENOSPC && !full->unencodable);

    const FileDescriptor out(::open((folder / "out").c_str(), O_WRONLY | O_CREAT, 0600));
    EXPECT_TRUE(writeText(out.get(), text, isoLatin1));
    EXPECT_FALSE(writeText(out.get(), "é", utf16));
    EXPECT_EQ(tests::contentOf(folder / "out"), "\xFF\xFE\xE9\0"sv);
}

}  // namespace
}  // namespace marquell::platform
