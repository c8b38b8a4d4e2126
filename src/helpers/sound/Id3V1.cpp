// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/Id3V1.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "helpers/common/Numbers.h"
#include "helpers/sound/Id3Fields.h"
#include "helpers/sound/Id3Genres.h"

namespace marquell::helpers {
namespace {

using Key = platform::AudioVisualPropertyKey;

struct Field {
    Key key;
    std::size_t begin;
    std::size_t length;
};

constexpr std::array fields = {
    Field{Key::commonKeyTitle, 3, 30},
    Field{Key::commonKeyArtist, 33, 30},
    Field{Key::commonKeyAlbumName, 63, 30},
    Field{Key::commonKeyCreationDate, 93, 4},
};
constexpr std::size_t comment = 97;
constexpr std::size_t commentLength = 30;
constexpr std::size_t genre = 127;
constexpr std::size_t tagLength = 128;

std::string fieldText(std::string_view tag, std::size_t begin, std::size_t length) {
    return Id3Fields(tag.substr(begin, length)).latin();
}

}  // namespace

void addId3V1Tag(SoundTags& tags, Input& input) {
    if (input.size() < tagLength) return;
    const std::string tag = input.bytesAt(input.size() - tagLength, tagLength);
    if (tag.size() < tagLength || !tag.starts_with("TAG")) return;
    const auto add = [&tags](Key key, std::string text) {
        if (!text.empty()) tags.common.emplace(key, std::move(text));
    };
    for (const Field& field : fields) add(field.key, fieldText(tag, field.begin, field.length));
    add(Key::commonKeyType, std::string(id3GenreName(bigEndian(tag, genre, 1))));
    if (tags.comment.empty()) tags.comment = fieldText(tag, comment, commentLength);
}

}  // namespace marquell::helpers
