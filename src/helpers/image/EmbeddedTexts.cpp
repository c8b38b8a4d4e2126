// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/EmbeddedTexts.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

#include "helpers/common/DecodedText.h"
#include "helpers/common/Numbers.h"
#include "helpers/image/JpegSegments.h"

namespace marquell::helpers {
namespace {

constexpr std::size_t maximumTextBytes = 65'536;

std::string textAt(Input& input, std::uint64_t offset, std::uint64_t length) {
    const auto bounded =
        static_cast<std::size_t>(std::min<std::uint64_t>(length, maximumTextBytes));
    return decodedText(input.bytesAt(offset, bounded), Charset::likely);
}

void readJpegTexts(Input& input, EmbeddedTexts& texts) {
    constexpr std::uint8_t comment = 0xFE;
    JpegSegmentWalk walk(input);
    for (JpegSegment segment; walk.next(segment) && texts.comment.empty();) {
        if (segment.marker == comment) {
            texts.comment = textAt(input, segment.begin, segment.length);
        }
    }
}

constexpr std::array<std::pair<std::string_view, std::string EmbeddedTexts::*>, 6> pngKeywords = {{
    {"Title", &EmbeddedTexts::title},
    {"Author", &EmbeddedTexts::author},
    {"Description", &EmbeddedTexts::description},
    {"Copyright", &EmbeddedTexts::copyright},
    {"Comment", &EmbeddedTexts::comment},
    {"Creation Time", &EmbeddedTexts::creationTime},
}};

/// Takes off what is in front of the first NUL, and that.
std::string_view takeText(std::string_view& content) {
    const std::size_t end = std::min(content.find('\0'), content.size());
    const std::string_view text = content.substr(0, end);
    content.remove_prefix(std::min(end + 1, content.size()));
    return text;
}

void readPngText(std::string_view content, bool isInternational, EmbeddedTexts& texts) {
    const std::string_view keyword = takeText(content);
    if (isInternational) {
        const bool isCompressed = content.size() < 2 || content[0] != '\0';
        if (isCompressed) return;
        content.remove_prefix(2);
        takeText(content);  // the language
        takeText(content);  // the keyword in it
    }
    const auto* const row = std::find_if(pngKeywords.begin(), pngKeywords.end(),
                                         [&](const auto& known) { return known.first == keyword; });
    if (row == pngKeywords.end()) return;
    std::string& text = texts.*(row->second);
    if (text.empty()) text = decodedText(content, Charset::likely);
}

void readPngTexts(Input& input, EmbeddedTexts& texts) {
    std::uint64_t position = 8;
    for (std::size_t steps = 0; steps < maximumSteps; ++steps) {
        const std::string start = input.bytesAt(position, 8);
        if (start.size() < 8) return;
        const std::uint64_t length = bigEndian(start, 0, 4);
        const std::uint64_t type = bigEndian(start, 4, 4);
        const bool isInternational = type == fourCharacters("iTXt");
        if ((isInternational || type == fourCharacters("tEXt")) && length <= maximumTextBytes) {
            readPngText(input.bytesAt(position + 8, static_cast<std::size_t>(length)),
                        isInternational, texts);
        }
        position += 8 + length + 4;
    }
}

/// The length of a colour table, by the flags in front of it.
std::uint64_t colorTableLength(std::uint64_t flags) {
    constexpr std::uint64_t isThere = 0x80;
    return (flags & isThere) != 0 ? std::uint64_t{3} << ((flags & 7) + 1) : 0;
}

/// Where the sub-blocks from `position` on end; what is in them is added to `content`, if any.
std::uint64_t passSubBlocks(Input& input, std::uint64_t position, std::size_t& steps,
                            std::string* content) {
    for (; steps < maximumSteps; ++steps) {
        const std::string start = input.bytesAt(position, 1);
        const std::uint64_t length = bigEndian(start, 0, 1);
        ++position;
        if (length == 0) break;
        if (content != nullptr) {
            content->append(input.bytesAt(position, static_cast<std::size_t>(length)));
        }
        position += length;
    }
    return position;
}

void readGifTexts(Input& input, EmbeddedTexts& texts) {
    constexpr std::string_view extension = "\x21";
    constexpr std::string_view comment = "\x21\xFE";
    std::uint64_t position = 13 + colorTableLength(bigEndian(input.bytesAt(10, 1), 0, 1));
    for (std::size_t steps = 0; steps < maximumSteps && texts.comment.empty(); ++steps) {
        const std::string start = input.bytesAt(position, 10);
        if (!start.starts_with(extension)) return;  // pixels, behind which nothing is looked for
        std::string content;
        const bool isComment = start.starts_with(comment);
        position = passSubBlocks(input, position + 2, steps, isComment ? &content : nullptr);
        if (isComment) texts.comment = decodedText(content, Charset::likely);
    }
}

}  // namespace

EmbeddedTexts readEmbeddedTexts(Input& input, ImageKind kind) {
    EmbeddedTexts texts;
    if (kind == ImageKind::jpeg) readJpegTexts(input, texts);
    if (kind == ImageKind::png) readPngTexts(input, texts);
    if (kind == ImageKind::gif) readGifTexts(input, texts);
    return texts;
}

}  // namespace marquell::helpers
