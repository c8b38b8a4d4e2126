// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TextChunks.h"

#include <QChar>
#include <algorithm>

#include "window/preview/DecodedText.h"

namespace marquell::window {
namespace {

constexpr std::size_t chunkLength = 512;
constexpr std::size_t farthestCut = 256;  // behind the regular place
constexpr char32_t joiner = 0x200d;

/// Whether a code point goes with the one before it.
bool joinsTheLast(char32_t character) {
    const bool isRegion = character >= 0x1f1e6 && character <= 0x1f1ff;  // two make a flag
    const bool isSkinTone = character >= 0x1f3fb && character <= 0x1f3ff;
    return character == joiner || isRegion || isSkinTone || QChar::isMark(character);
}

/// A place to cut at, at `regular` or little behind. Before an ASCII character every writing may be
/// cut; in one that has none, at least no combination is.
std::size_t cutAt(std::string_view text, std::size_t regular) {
    const std::string_view near = text.substr(regular, farthestCut);
    const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
    const auto ascii = std::ranges::find_if(near, isAscii);
    if (ascii != near.end()) return regular + static_cast<std::size_t>(ascii - near.begin());
    std::size_t first = 0;
    while (first < near.size() && !beginsCodePoint(near, first)) ++first;
    char32_t last = joiner;  // what is before is not looked at
    for (std::size_t at = first; at < near.size();) {
        const auto [character, length] = firstOf(near.substr(at));
        if (last != joiner && !joinsTheLast(character)) return regular + at;
        last = character;
        at += length;
    }
    return regular + first;
}

std::size_t chunkStart(std::string_view text, const Line& line, std::size_t chunk) {
    const std::size_t regular = line.start + chunk * chunkLength;
    if (chunk == 0 || regular >= line.end) return std::min(regular, line.end);
    return cutAt(text.substr(0, line.end), regular);
}

}  // namespace

std::size_t chunkCount(const Line& line) {
    return std::max<std::size_t>((line.end - line.start + chunkLength - 1) / chunkLength, 1);
}

TextRange chunkOf(const platform::LinedText& text, const Line& line, std::size_t chunk) {
    const std::size_t start = chunkStart(text.text(), line, chunk);
    if (chunk + 1 == chunkCount(line)) return {start, line.end};
    return {start, chunkStart(text.text(), line, chunk + 1)};
}

std::size_t chunkAt(const platform::LinedText& text, const Line& line, std::size_t offset) {
    const std::size_t regular = (offset - line.start) / chunkLength;
    const std::size_t chunk = std::min(regular, chunkCount(line) - 1);
    return chunkStart(text.text(), line, chunk) > offset ? chunk - 1 : chunk;
}

}  // namespace marquell::window
