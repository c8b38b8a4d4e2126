// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/Id3Tag.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "helpers/common/Numbers.h"
#include "helpers/sound/Id3CommonKeys.h"
#include "helpers/sound/Id3Content.h"
#include "helpers/sound/Id3FrameIds.h"
#include "helpers/sound/Id3FrameWalk.h"

namespace marquell::helpers {
namespace {

struct TagHeader {
    unsigned version = 0;  ///< 2 to 4
    bool isUnsynchronised = false;
    bool isCompressed = false;  ///< in a way that nobody ever defined
    bool hasExtendedHeader = false;
    std::uint64_t begin = 0;  ///< of what follows the header
    std::uint64_t end = 0;    ///< of the frames and padding
    std::uint64_t after = 0;  ///< where the tag ends
};

std::optional<TagHeader> readTagHeader(Input& input, std::uint64_t begin, std::uint64_t end) {
    constexpr std::size_t headerLength = 10;
    end = std::min(end, input.size());
    if (begin > end || end - begin < headerLength) return std::nullopt;
    const std::string bytes = input.bytesAt(begin, headerLength);
    const auto length = id3Number(bytes, 6);
    const std::uint64_t version = bigEndian(bytes, 3, 1);
    if (!bytes.starts_with("ID3") || !length || version < 2 || version > 4) return std::nullopt;
    const std::uint64_t flags = bigEndian(bytes, 5, 1);
    TagHeader header;
    header.version = static_cast<unsigned>(version);
    header.isUnsynchronised = (flags & 0x80) != 0;
    header.isCompressed = version == 2 && (flags & 0x40) != 0;
    header.hasExtendedHeader = version > 2 && (flags & 0x40) != 0;
    const bool hasFooter = version == 4 && (flags & 0x10) != 0;
    header.begin = begin + headerLength;
    header.end = std::min(header.begin + *length, end);
    header.after = hasFooter ? std::min(header.end + headerLength, end) : header.end;
    return header;
}

/// The length of the extended header that is at the position.
std::uint64_t extendedHeaderLength(Input& input, std::uint64_t begin, unsigned version) {
    const std::string bytes = input.bytesAt(begin, 4);
    const std::uint64_t length = bigEndian(bytes, 0, 4);
    // Some programs say that there is one, and go on with a frame.
    constexpr std::uint64_t lowestId = 0x30000000;
    if (length >= lowestId) return 0;
    return version == 4 ? id3Number(bytes, 0).value_or(0) : 4 + length;
}

/// Reads the tags of one file, with bounds for all of them together.
class TagReader {
public:
    explicit TagReader(SoundTags& tags) : tags_(tags) {}

    void add(Input& input, const TagHeader& tag) {
        if (tag.isCompressed) return;
        if (tag.isUnsynchronised && tag.version < 4) {
            addWholeTag(input, tag);
        } else {
            addFrames(input, tag);
        }
    }

    void addCommonKeys() { keys_.addTo(tags_); }

private:
    void addFrames(Input& input, const TagHeader& tag);
    void addWholeTag(Input& input, TagHeader tag);

    SoundTags& tags_;
    Id3CommonKeys keys_;
    std::size_t stepsLeft_ = maximumSteps;
    std::size_t contentLeft_ = std::size_t{4} * 1024 * 1024;
    std::size_t textLeft_ = std::size_t{2} * 1024 * 1024;
    /// For tags that must be read whole, pictures included.
    std::size_t wholeLeft_ = std::size_t{16} * 1024 * 1024;
};

void TagReader::addFrames(Input& input, const TagHeader& tag) {
    std::uint64_t begin = tag.begin;
    if (tag.hasExtendedHeader) begin += extendedHeaderLength(input, begin, tag.version);
    Id3Contents contents(input, tag.version, tag.isUnsynchronised, contentLeft_);
    Id3FrameWalk walk(input, begin, tag.end, tag.version, stepsLeft_);
    for (Id3FrameHeader frame; textLeft_ > 0 && walk.next(frame);) {
        const std::string_view id = currentId3FrameId(frame.id);
        if (!canHaveId3Text(id)) continue;
        const auto content = contents.read(frame);
        if (!content) continue;
        const auto text = id3Text(id, *content);
        if (!text) continue;
        std::string written = text->written();
        if (written.empty()) continue;
        const bool fits = written.size() <= textLeft_;
        // A text that is too much was as much work as one that isn't.
        textLeft_ -= std::min(textLeft_, written.size());
        if (!fits) return;
        keys_.add(id, *text);
        tags_.id3.push_back({frame.id, std::move(written)});
    }
}

/// In older tags the zeros are anywhere, headers of frames included.
void TagReader::addWholeTag(Input& input, TagHeader tag) {
    const auto length =
        static_cast<std::size_t>(std::min<std::uint64_t>(tag.end - tag.begin, wholeLeft_));
    wholeLeft_ -= length;
    std::string bytes = input.bytesAt(tag.begin, length);
    undoUnsynchronisation(bytes);
    MemoryInput plain(bytes);
    tag.begin = 0;
    tag.end = bytes.size();
    addFrames(plain, tag);
}

}  // namespace

std::uint64_t addId3Tag(SoundTags& tags, Input& input, std::uint64_t begin, std::uint64_t end) {
    // More than a few are none that people made.
    constexpr int most = 16;
    TagReader reader(tags);
    for (int count = 0; count < most; ++count) {
        const auto tag = readTagHeader(input, begin, end);
        if (!tag) break;
        reader.add(input, *tag);
        begin = tag->after;
    }
    reader.addCommonKeys();
    return begin;
}

std::uint64_t id3TagsEnd(Input& input) {
    std::uint64_t position = 0;
    for (std::size_t count = 0; count < maximumSteps; ++count) {
        const auto tag = readTagHeader(input, position, input.size());
        if (!tag) return position;
        position = tag->after;
    }
    return input.size();
}

}  // namespace marquell::helpers
