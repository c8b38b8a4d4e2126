// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "platform/LinedText.h"

namespace marquell::platform {
namespace {

LinedText lined(std::string_view text) {
    auto buffer = std::make_shared<TextBuffer>();
    buffer->append(text);
    return LinedText(buffer);
}

/// The lines as one reads them, byte after byte.
std::vector<LinedText::Line> linesOf(std::string_view text) {
    std::vector<LinedText::Line> lines;
    std::size_t start = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\n' && text[at] != '\r') continue;
        const std::size_t end = at;
        if (text.substr(at, 2) == "\r\n") ++at;
        lines.push_back({start, end, at + 1});
        start = at + 1;
    }
    lines.push_back({start, text.size(), text.size()});
    return lines;
}

void expectLinesOf(std::string_view text) {
    const LinedText found = lined(text);
    const auto lines = linesOf(text);
    ASSERT_EQ(found.lineCount(), lines.size());
    std::size_t longest = 0;
    std::vector<std::size_t> lineAt(text.size() + 1, lines.size() - 1);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const LinedText::Line line = found.line(i);
        ASSERT_EQ(line.start, lines[i].start) << "line " << i;
        ASSERT_EQ(line.end, lines[i].end) << "line " << i;
        ASSERT_EQ(line.next, lines[i].next) << "line " << i;
        longest = std::max(longest, line.end - line.start);
        for (std::size_t at = line.start; at < line.next; ++at) lineAt[at] = i;
    }
    EXPECT_EQ(found.longestLineLength(), longest);
    for (std::size_t at = 0; at <= text.size(); ++at) {
        ASSERT_EQ(found.lineAt(at), lineAt[at]) << "byte " << at;
    }
}

TEST(LinedText, FindsTheLinesThatAReaderFinds) {
    for (const char* text : {"", "a", "\n", "\r", "\r\n", "\n\r", "a\r", "a\r\n", "\r\r\n\n"}) {
        SCOPED_TRACE(testing::PrintToString(std::string(text)));
        expectLinesOf(text);
    }
    std::mt19937 random(1);
    // Few breaks make lines that are longer than the distance of two places, many make empty ones.
    for (const unsigned letters : {0U, 1U, 5U, 300U, 20'000U}) {
        std::string text;
        while (text.size() < 70'000) {
            const auto any = std::uniform_int_distribution<unsigned>(0, letters + 2)(random);
            text += any == 0 ? "\n" : any == 1 ? "\r\n" : any == 2 ? "\r" : "\xC3\x8A";
        }
        SCOPED_TRACE(letters);
        expectLinesOf(text);
    }
}

TEST(LinedText, FindsLinesWhereItsPlacesMeet) {
    constexpr std::size_t distance = 16 * 1024;
    for (std::size_t length = distance - 3; length < distance + 3; ++length) {
        for (const char* lineBreak : {"\n", "\r", "\r\n"}) {
            const std::string line(length, 'x');
            expectLinesOf(line + lineBreak + lineBreak + line + lineBreak + "y");
        }
    }
    for (const std::size_t count : {255U, 256U, 257U, 512U}) {
        expectLinesOf(std::string(count, '\n'));
        expectLinesOf(std::string(count, '\n') + std::string(3 * distance, 'x') + "\r\n");
    }
}

}  // namespace
}  // namespace marquell::platform
