// SPDX-License-Identifier: GPL-3.0-or-later
// The kinds of files that name their fields with words: CAF, AU and FLAC.
#include <algorithm>
#include <cctype>
#include <string>

#include "helpers/common/DecodedText.h"
#include "helpers/common/Numbers.h"
#include "helpers/sound/ContainerTags.h"
#include "helpers/sound/PlainTagNames.h"

namespace marquell::helpers {
namespace {

/// What precedes the separator, which goes too.
std::string_view takeUntil(std::string_view& rest, char separator) {
    const std::size_t length = std::min(rest.find(separator), rest.size());
    const std::string_view part = rest.substr(0, length);
    rest.remove_prefix(std::min(length + 1, rest.size()));
    return part;
}

/// "NAME=text" fields with lengths in front, behind the name of the program.
TagFields vorbisFields(TagInput& input, std::string_view bytes, std::vector<std::string>& artists) {
    const auto take = [&bytes] {
        const auto length = static_cast<std::size_t>(littleEndian(bytes, 0, 4));
        bytes.remove_prefix(std::min<std::size_t>(4, bytes.size()));
        const std::string_view part = bytes.substr(0, length);
        bytes.remove_prefix(part.size());
        return part;
    };
    TagFields fields;
    take();
    std::uint64_t count = littleEndian(bytes, 0, 4);
    bytes.remove_prefix(std::min<std::size_t>(4, bytes.size()));
    for (; count > 0 && !bytes.empty() && input.step(); --count) {
        std::string_view text = take();
        std::string name(takeUntil(text, '='));
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char byte) { return static_cast<char>(std::tolower(byte)); });
        const std::string value = decodedText(text, Charset::likely);
        fields.append(name, value);
        if (name == "artist" && !value.empty()) artists.push_back(value);
    }
    return fields;
}

}  // namespace

void addCafTags(SoundTags& tags, TagInput& input) {
    ChunkWalk walk(input.input(), ChunkForm::wide, 8, input.input().size());
    for (Chunk chunk; input.step() && walk.next(chunk);) {
        if (chunk.type != fourCharacters("info")) continue;
        const std::string bytes = input.bytes(chunk.begin, chunk.end);
        std::string_view rest(bytes);
        std::uint64_t count = bigEndian(rest, 0, 4);
        rest.remove_prefix(std::min<std::size_t>(4, rest.size()));
        NamedTagFields fields;
        for (; count > 0 && !rest.empty() && input.step(); --count) {
            const std::string_view name = takeUntil(rest, '\0');
            fields.add(name, decodedText(takeUntil(rest, '\0'), Charset::likely));
        }
        return fields.addTo(tags);
    }
}

void addAuTags(SoundTags& tags, TagInput& input) {
    constexpr std::uint64_t headerLength = 24;
    const std::uint64_t dataOffset = bigEndian(input.input().bytesAt(4, 4), 0, 4);
    std::string bytes = input.bytes(headerLength, dataOffset);
    bytes.resize(std::min(bytes.find('\0'), bytes.size()));
    NamedTagFields fields;
    for (std::string_view rest = bytes; !rest.empty() && input.step();) {
        std::string_view text = takeUntil(rest, '\n');
        const std::string_view name = takeUntil(text, '=');
        fields.add(name, decodedText(text, Charset::likely));
    }
    fields.addTo(tags);
    const std::string annotation = decodedText(bytes, Charset::likely);
    if (tags.isEmpty() && !annotation.empty()) {
        addTag(tags, platform::AudioVisualPropertyKey::commonKeyDescription, annotation);
    }
}

void addFlacTags(SoundTags& tags, TagInput& input, std::uint64_t begin) {
    constexpr std::uint64_t lastFlag = 0x80;
    constexpr std::uint64_t vorbisComment = 4;
    std::uint64_t position = begin + 4;
    for (bool isLast = false; !isLast && input.step();) {
        const std::string header = input.input().bytesAt(position, 4);
        if (header.size() < 4) return;
        const std::uint64_t kind = bigEndian(header, 0, 1);
        const std::uint64_t end = position + 4 + bigEndian(header, 1, 3);
        if ((kind & ~lastFlag) == vorbisComment) {
            const std::string bytes = input.bytes(position + 4, end);
            const TagFields comments = vorbisFields(input, bytes, tags.artists);
            NamedTagFields fields;
            for (const auto& [name, text] : comments.all()) fields.add(name, text);
            return fields.addTo(tags);
        }
        isLast = (kind & lastFlag) != 0;
        position = end;
    }
}

}  // namespace marquell::helpers
