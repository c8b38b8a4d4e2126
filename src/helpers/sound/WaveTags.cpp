// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "helpers/common/DecodedText.h"
#include "helpers/common/Numbers.h"
#include "helpers/common/TagDate.h"
#include "helpers/sound/ContainerTags.h"
#include "helpers/sound/Id3Tag.h"

namespace marquell::helpers {
namespace {

using Key = platform::AudioVisualPropertyKey;

/// Of INFO lists, and of the lists that Exif defines for sound.
constexpr std::array listRows = {
    TagRow{"INAM", Key::commonKeyTitle},        TagRow{"IART", Key::commonKeyArtist},
    TagRow{"IPRD", Key::commonKeyAlbumName},    TagRow{"IALB", Key::commonKeyAlbumName},
    TagRow{"IWRI", Key::commonKeyAuthor},       TagRow{"ICMS", Key::commonKeyAuthor},
    TagRow{"IMUS", Key::commonKeyCreator},      TagRow{"ICOM", Key::commonKeyCreator},
    TagRow{"ISBJ", Key::commonKeySubject},      TagRow{"IKEY", Key::commonKeySubject},
    TagRow{"IPUB", Key::commonKeyPublisher},    TagRow{"IDST", Key::commonKeyPublisher},
    TagRow{"IENG", Key::commonKeyContributor},  TagRow{"IPRO", Key::commonKeyContributor},
    TagRow{"ISTR", Key::commonKeyContributor},  TagRow{"ICRD", Key::commonKeyCreationDate},
    TagRow{"IDIT", Key::commonKeyCreationDate}, TagRow{"IGNR", Key::commonKeyType},
    TagRow{"IMED", Key::commonKeyFormat},       TagRow{"ISRF", Key::commonKeyFormat},
    TagRow{"ISRC", Key::commonKeySource},       TagRow{"ILNG", Key::commonKeyLanguage},
    TagRow{"IAS1", Key::commonKeyLanguage},     TagRow{"IBSU", Key::commonKeyRelation},
    TagRow{"erel", Key::commonKeyRelation},     TagRow{"ILOC", Key::commonKeyLocation},
    TagRow{"IARL", Key::commonKeyLocation},     TagRow{"ICOP", Key::commonKeyCopyrights},
    TagRow{"ecor", Key::commonKeyMake},         TagRow{"emdl", Key::commonKeyModel},
    TagRow{"ISFT", Key::commonKeySoftware},     TagRow{"ITCH", Key::commonKeySoftware},
    TagRow{"ICMT", TagPlace::comment},          TagRow{"IKEY", TagPlace::keywords},
    TagRow{"ILYC", TagPlace::lyrics},
};

void addList(TagFields& fields, TagInput& input, ChunkForm form, const Chunk& list) {
    const std::uint32_t type =
        static_cast<std::uint32_t>(bigEndian(input.input().bytesAt(list.begin, 4), 0, 4));
    if (type != fourCharacters("INFO") && type != fourCharacters("exif")) return;
    ChunkWalk walk(input.input(), form, list.begin + 4, list.end);
    for (Chunk item; input.step() && walk.next(item);) {
        const std::string id = input.input().bytesAt(item.begin - 8, 4);
        std::string text = input.bytes(item.begin, item.end);
        // Some write more behind the end of the text.
        text.resize(std::min(text.find('\0'), text.size()));
        fields.add(id, decodedText(text, Charset::likely));
    }
}

/// The fields of the Broadcast Wave extension, which have fixed places.
void addBroadcastTags(SoundTags& tags, TagInput& input, const Chunk& chunk) {
    struct Field {
        std::size_t offset;
        std::size_t length;
        Key key;
    };
    constexpr std::array fields = {
        Field{0, 256, Key::commonKeyDescription},
        Field{256, 32, Key::commonKeyCreator},
        Field{288, 32, Key::commonKeyIdentifier},
        Field{320, 10, Key::commonKeyCreationDate},
    };
    constexpr std::size_t timeOffset = 330;
    constexpr std::size_t timeLength = 8;
    const std::string bytes = input.bytes(
        chunk.begin, std::min<std::uint64_t>(chunk.end, chunk.begin + timeOffset + timeLength));
    const auto textAt = [&bytes](std::size_t offset, std::size_t length) {
        const std::string_view field =
            std::string_view(bytes).substr(std::min(offset, bytes.size()), length);
        return decodedText(field.substr(0, field.find('\0')), Charset::likely);
    };
    for (const Field& field : fields) {
        std::string text = textAt(field.offset, field.length);
        if (field.key == Key::commonKeyCreationDate) {
            text = isoDate(text.append("T").append(textAt(timeOffset, timeLength)));
        }
        if (!text.empty()) addTag(tags, field.key, text);
    }
}

}  // namespace

void addWaveTags(SoundTags& tags, TagInput& input, ChunkForm form) {
    TagFields fields;
    std::optional<Chunk> id3;
    std::optional<Chunk> broadcast;
    ChunkWalk walk(input.input(), form, 12, input.input().size());
    for (Chunk chunk; input.step() && walk.next(chunk);) {
        if (chunk.type == fourCharacters("LIST")) {
            addList(fields, input, form, chunk);
        } else if (chunk.type == fourCharacters("bext")) {
            broadcast = chunk;
        } else if (chunk.type == fourCharacters("id3 ") || chunk.type == fourCharacters("ID3 ")) {
            id3 = chunk;
        }
    }
    if (id3) addId3Tag(tags, input.input(), id3->begin, id3->end);
    addFields(tags, fields, listRows);
    if (broadcast) addBroadcastTags(tags, input, *broadcast);
}

}  // namespace marquell::helpers
