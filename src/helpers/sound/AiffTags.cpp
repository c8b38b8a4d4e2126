// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "helpers/common/DecodedText.h"
#include "helpers/common/Numbers.h"
#include "helpers/sound/ContainerTags.h"
#include "helpers/sound/Id3Tag.h"

namespace marquell::helpers {
namespace {

using Key = platform::AudioVisualPropertyKey;

constexpr std::array rows = {
    TagRow{"NAME", Key::commonKeyTitle},      TagRow{"AUTH", Key::commonKeyAuthor},
    TagRow{"(c) ", Key::commonKeyCopyrights}, TagRow{"ANNO", TagPlace::comment},
    TagRow{"COMT", TagPlace::comment},
};

/// The first comment of a list of them: behind its time and marker the length and the text.
std::string firstComment(std::string_view bytes) {
    constexpr std::size_t textOffset = 10;
    const auto length = static_cast<std::size_t>(bigEndian(bytes, 8, 2));
    if (bigEndian(bytes, 0, 2) == 0 || bytes.size() < textOffset) return {};
    return std::string(bytes.substr(textOffset, length));
}

}  // namespace

void addAiffTags(SoundTags& tags, TagInput& input) {
    TagFields fields;
    std::optional<Chunk> id3;
    ChunkWalk walk(input.input(), ChunkForm::bigEndian, 12, input.input().size());
    for (Chunk chunk; input.step() && walk.next(chunk);) {
        const std::string id = input.input().bytesAt(chunk.begin - 8, 4);
        if (chunk.type == fourCharacters("ID3 ") || chunk.type == fourCharacters("id3 ")) {
            id3 = chunk;
        } else if (id == "COMT") {
            fields.add(id, decodedText(firstComment(input.bytes(chunk.begin, chunk.end)),
                                       Charset::likely));
        } else if (std::any_of(rows.begin(), rows.end(),
                               [&id](const TagRow& row) { return row.field == id; })) {
            fields.add(id, decodedText(input.bytes(chunk.begin, chunk.end), Charset::likely));
        }
    }
    if (id3) addId3Tag(tags, input.input(), id3->begin, id3->end);
    addFields(tags, fields, rows);
}

}  // namespace marquell::helpers
