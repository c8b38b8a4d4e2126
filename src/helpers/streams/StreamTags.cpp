// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/streams/StreamTags.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "helpers/common/DecodedText.h"
#include "helpers/common/TextList.h"
#include "helpers/sound/PlainTagNames.h"

namespace marquell::helpers {
namespace {

/// Names that mean something else here, or that no other container has; they count where a file has
/// nothing under the usual one.
struct Alias {
    const char* name;  ///< in any case
    std::string_view usual;
};

constexpr std::array aliases = {
    Alias{"performer", "artist"},
    Alias{"lead_performer", "artist"},
    Alias{"summary", "description"},
    Alias{"date_recorded", "recorded date"},
    Alias{"date_released", "release date"},
    Alias{"recording_location", "location"},
    Alias{"product", "album"},
};

std::string textOf(const AVDictionaryEntry& entry) {
    return decodedText(entry.value, Charset::likely);
}

void addFields(NamedTagFields& fields, const AVDictionary* dictionary) {
    const AVDictionaryEntry* entry = nullptr;
    for (std::size_t steps = 0; steps < maximumSteps; ++steps) {
        entry = av_dict_get(dictionary, "", entry, AV_DICT_IGNORE_SUFFIX);
        if (entry == nullptr) break;
        fields.add(entry->key, textOf(*entry));
    }
    for (const Alias& alias : aliases) {
        entry = av_dict_get(dictionary, alias.name, nullptr, 0);
        if (entry != nullptr) fields.add(alias.usual, textOf(*entry));
    }
}

/// Those of streams of one kind.
void addFields(NamedTagFields& fields, const AVFormatContext& context, AVMediaType type) {
    for (const AVStream* const stream : std::span(context.streams, context.nb_streams)) {
        if (stream->codecpar->codec_type == type) addFields(fields, stream->metadata);
    }
}

/// Whether "comment" is what the library made of a description, as it does in Ogg and ASF. Ogg may
/// have comments, too.
bool isCommentDescription(const AVFormatContext& context, Input& input) {
    constexpr std::size_t length = std::size_t{1} << 16;
    constexpr std::string_view field = "description=";
    const std::string_view format = context.iformat->name;
    if (format != "ogg") return format.starts_with("asf");
    const std::span streams(context.streams, context.nb_streams);
    const bool hasLibraryName = std::ranges::any_of(streams, [](const AVStream* stream) {
        return av_dict_get(stream->metadata, "comment", nullptr, AV_DICT_MATCH_CASE) != nullptr;
    });
    if (!hasLibraryName) return false;
    const std::string start = input.bytesAt(0, length);
    return std::search(start.begin(), start.end(), field.begin(), field.end(),
                       [](unsigned char byte, char letter) {
                           return std::tolower(byte) == letter;
                       }) != start.end();
}

}  // namespace

SoundTags streamTags(const AVFormatContext& context, Input& input) {
    NamedTagFields fields;
    addFields(fields, context.metadata);
    addFields(fields, context, AVMEDIA_TYPE_AUDIO);
    addFields(fields, context, AVMEDIA_TYPE_VIDEO);
    SoundTags tags;
    fields.addTo(tags);
    completeDescription(tags);
    if (isCommentDescription(context, input)) tags.comment.clear();
    // The library joins several values of one field so.
    const auto artist = tags.common.find(platform::AudioVisualPropertyKey::commonKeyArtist);
    if (artist != tags.common.end()) tags.artists = listedTexts(artist->second, ";");
    return tags;
}

}  // namespace marquell::helpers
