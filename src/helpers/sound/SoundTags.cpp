// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/SoundTags.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "helpers/common/Numbers.h"
#include "helpers/sound/ContainerTags.h"
#include "helpers/sound/Id3Tag.h"
#include "helpers/sound/Id3V1.h"

namespace marquell::helpers {
namespace {

using Key = platform::AudioVisualPropertyKey;

/// The boxes that QuickTime and MP4 files begin with.
constexpr std::array<std::string_view, 7> firstBoxes = {"ftyp", "moov", "mdat", "free",
                                                        "skip", "wide", "pnot"};

/// Streams of frames without a header of the file.
constexpr std::array<std::string_view, 7> streamExtensions = {"mp3", "mp2", "mp1", "mpga",
                                                              "aac", "ac3", "eac3"};

template <typename List>
bool contains(const List& list, std::string_view text) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

bool isStreamOfFrames(Input& input, std::string_view extension) {
    const std::string start = input.bytesAt(0, 2);
    const bool isMpeg = bigEndian(start, 0, 2) >> 5U == 0x7FF;
    const bool isAc3 = bigEndian(start, 0, 2) == 0x0B77;
    return isMpeg || isAc3 || contains(streamExtensions, extension);
}

}  // namespace

SoundTags readSoundTags(Input& input, std::string_view extension) {
    SoundTags tags;
    TagInput bounded(input);
    const std::string start = input.bytesAt(0, 8);
    const ChunkFile chunkFile = chunkFileOf(input);
    if (start.starts_with("ID3")) {
        const std::uint64_t end = addId3Tag(tags, input, 0, input.size());
        if (input.bytesAt(end, 4) == "fLaC") {
            addFlacTags(tags, bounded, end);
        } else {
            addId3V1Tag(tags, input);
        }
    } else if (start.starts_with("fLaC")) {
        addFlacTags(tags, bounded, 0);
    } else if (chunkFile.isKnown && chunkFile.type == fourCharacters("WAVE")) {
        addWaveTags(tags, bounded, chunkFile.form);
    } else if (chunkFile.isKnown) {
        addAiffTags(tags, bounded);
    } else if (start.starts_with("caff")) {
        addCafTags(tags, bounded);
    } else if (start.starts_with(".snd")) {
        addAuTags(tags, bounded);
    } else if (contains(firstBoxes,
                        std::string_view(start).substr(std::min<std::size_t>(4, start.size())))) {
        addQuickTimeTags(tags, bounded);
    } else if (isStreamOfFrames(input, extension)) {
        addId3V1Tag(tags, input);
    }
    completeDescription(tags);
    return tags;
}

void completeDescription(SoundTags& tags) {
    if (!tags.comment.empty()) addTag(tags, Key::commonKeyDescription, tags.comment);
}

platform::PropertyDictionary soundTagProperties(const SoundTags& tags) {
    platform::PropertyDictionary properties;
    for (const auto& [key, text] : tags.common) {
        properties.emplace(static_cast<platform::PropertyKey>(key), text);
    }
    if (!tags.lyrics.empty()) {
        properties.emplace(static_cast<platform::PropertyKey>(Key::lyrics), tags.lyrics);
    }
    std::vector<std::string> frames;
    for (const Id3Frame& frame : tags.id3) {
        if (frames.size() == platform::maximumListLength) break;
        frames.push_back(frame.id + " " + frame.text);
    }
    if (!frames.empty()) {
        properties.emplace(static_cast<platform::PropertyKey>(Key::id3Frames), std::move(frames));
    }
    return properties;
}

}  // namespace marquell::helpers
