// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/EmbeddedTexts.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

#include "helpers/common/DecodedText.h"
#include "helpers/common/Numbers.h"
#include "helpers/common/TagDate.h"
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

/// Unpacked at most maximumTextBytes, and of broken bytes what precedes the fault.
std::string unpacked(std::string_view packed) {
    std::string text(maximumTextBytes, '\0');
    uLongf length = text.size();
    static_cast<void>(::uncompress(reinterpret_cast<Bytef*>(text.data()), &length,
                                   reinterpret_cast<const Bytef*>(packed.data()), packed.size()));
    text.resize(length);
    return text;
}

/// Reads the chunks with texts of a PNG.
class PngTexts {
public:
    explicit PngTexts(EmbeddedTexts& texts) : texts_(texts) {}

    void read(std::uint64_t type, std::string_view content) {
        const std::string_view keyword = takeText(content);
        const auto* const row =
            std::find_if(pngKeywords.begin(), pngKeywords.end(),
                         [&](const auto& known) { return known.first == keyword; });
        if (row == pngKeywords.end() || !(texts_.*(row->second)).empty()) return;
        bool isPacked = type == fourCharacters("zTXt");
        if (isPacked) content = content.substr(std::min<std::size_t>(1, content.size()));
        if (type == fourCharacters("iTXt")) {
            if (content.size() < 2) return;
            isPacked = content[0] != '\0';
            content.remove_prefix(2);
            takeText(content);  // the language
            takeText(content);  // the keyword in it
        }
        // Texts that unpack to blanks could be many.
        constexpr std::size_t maximumPacked = 50;
        if (isPacked && ++packedCount_ > maximumPacked) return;
        const std::string text = isPacked ? unpacked(content) : std::string();
        texts_.*(row->second) = decodedText(isPacked ? text : content, Charset::likely);
    }

private:
    EmbeddedTexts& texts_;
    std::size_t packedCount_ = 0;
};

/// Of the year in two bytes, and month, day, hour, minute and second in one each.
std::string pngTime(std::string_view content) {
    const std::uint64_t year = bigEndian(content, 0, 2);
    if (content.size() != 7 || year > 9999) return {};
    std::string digits = std::to_string(10'000 + year).substr(1);
    for (std::size_t i = 2; i < content.size(); ++i) {
        const std::uint64_t part = bigEndian(content, i, 1);
        if (part > 99) return {};
        digits += std::to_string(100 + part).substr(1);
    }
    return isoDate(digits + 'Z');
}

void readPngTexts(Input& input, EmbeddedTexts& texts) {
    PngTexts reader(texts);
    std::uint64_t position = 8;
    for (std::size_t steps = 0; steps < maximumSteps; ++steps) {
        const std::string start = input.bytesAt(position, 8);
        if (start.size() < 8) return;
        const std::uint64_t length = bigEndian(start, 0, 4);
        const std::uint64_t type = bigEndian(start, 4, 4);
        const bool isText = type == fourCharacters("tEXt") || type == fourCharacters("zTXt") ||
                            type == fourCharacters("iTXt");
        if (isText && length <= maximumTextBytes) {
            reader.read(type, input.bytesAt(position + 8, static_cast<std::size_t>(length)));
        } else if (type == fourCharacters("tIME") && length == 7) {
            texts.modificationTime = pngTime(input.bytesAt(position + 8, 7));
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
