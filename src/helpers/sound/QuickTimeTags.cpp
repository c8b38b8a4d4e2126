// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "helpers/common/Numbers.h"
#include "helpers/common/TagDate.h"
#include "helpers/sound/ContainerTags.h"
#include "helpers/sound/QuickTimeFields.h"
#include "helpers/sound/QuickTimeText.h"

namespace marquell::helpers {
namespace {

using Key = platform::AudioVisualPropertyKey;

/// Of iTunes and of the classic user data, which share what begins with the copyright sign (251).
constexpr std::array itemRows = {
    TagRow{"\251nam", Key::commonKeyTitle},       TagRow{"\251ART", Key::commonKeyArtist},
    TagRow{"aART", Key::commonKeyArtist},         TagRow{"\251aut", Key::commonKeyAuthor},
    TagRow{"\251wrt", Key::commonKeyCreator},     TagRow{"\251com", Key::commonKeyCreator},
    TagRow{"\251alb", Key::commonKeyAlbumName},   TagRow{"\251gen", Key::commonKeyType},
    TagRow{"gnre", Key::commonKeyType},           TagRow{"\251day", Key::commonKeyCreationDate},
    TagRow{"desc", Key::commonKeyDescription},    TagRow{"\251des", Key::commonKeyDescription},
    TagRow{"ldes", Key::commonKeyDescription},    TagRow{"\251inf", Key::commonKeyDescription},
    TagRow{"cprt", Key::commonKeyCopyrights},     TagRow{"\251cpy", Key::commonKeyCopyrights},
    TagRow{"\251too", Key::commonKeySoftware},    TagRow{"\251swr", Key::commonKeySoftware},
    TagRow{"\251enc", Key::commonKeySoftware},    TagRow{"\251mak", Key::commonKeyMake},
    TagRow{"\251mod", Key::commonKeyModel},       TagRow{"\251xyz", Key::commonKeyLocation},
    TagRow{"\251pub", Key::commonKeyPublisher},   TagRow{"keyw", Key::commonKeySubject},
    TagRow{"\251key", Key::commonKeySubject},     TagRow{"catg", Key::commonKeySubject},
    TagRow{"\251grp", Key::commonKeySubject},     TagRow{"\251prf", Key::commonKeyContributor},
    TagRow{"\251prd", Key::commonKeyContributor}, TagRow{"\251PRD", Key::commonKeyContributor},
    TagRow{"\251dir", Key::commonKeyContributor}, TagRow{"\251src", Key::commonKeySource},
    TagRow{"\251fmt", Key::commonKeyFormat},      TagRow{"xid ", Key::commonKeyIdentifier},
    TagRow{"\251isr", Key::commonKeyIdentifier},  TagRow{"tvsh", Key::commonKeyRelation},
    TagRow{"\251lyr", TagPlace::lyrics},          TagRow{"\251cmt", TagPlace::comment},
    TagRow{"keyw", TagPlace::keywords},           TagRow{"\251key", TagPlace::keywords},
};

constexpr std::array mobileRows = {
    TagRow{"titl", Key::commonKeyTitle},        TagRow{"perf", Key::commonKeyArtist},
    TagRow{"auth", Key::commonKeyAuthor},       TagRow{"albm", Key::commonKeyAlbumName},
    TagRow{"dscp", Key::commonKeyDescription},  TagRow{"cprt", Key::commonKeyCopyrights},
    TagRow{"gnre", Key::commonKeyType},         TagRow{"clsf", Key::commonKeyType},
    TagRow{"yrrc", Key::commonKeyCreationDate}, TagRow{"loci", Key::commonKeyLocation},
    TagRow{"kywd", Key::commonKeySubject},      TagRow{"coll", Key::commonKeyRelation},
    TagRow{"kywd", TagPlace::keywords},
};

/// What the headers that every film has say.
struct Headers {
    std::string created;
    std::string modified;
    std::string language;  ///< of the first track
};

void readMovieHeader(Headers& headers, TagInput& input, const IsoBox& box) {
    const std::string bytes = input.input().bytesAt(box.begin, 20);
    const std::size_t length = bigEndian(bytes, 0, 1) == 1 ? 8 : 4;
    headers.created = quickTimeDate(bigEndian(bytes, 4, length));
    headers.modified = quickTimeDate(bigEndian(bytes, 4 + length, length));
}

std::string trackLanguage(TagInput& input, const IsoBox& track) {
    const auto media = findTagBox(input, track.begin, track.end, "mdia");
    if (!media) return {};
    const auto header = findTagBox(input, media->begin, media->end, "mdhd");
    if (!header) return {};
    const std::string bytes = input.input().bytesAt(header->begin, 34);
    const bool isLong = bigEndian(bytes, 0, 1) == 1;
    const std::size_t offset = isLong ? 32 : 20;
    if (header->length() < offset + 2) return {};
    return quickTimeLanguage(bigEndian(bytes, offset, 2));
}

void addHeaders(SoundTags& tags, const Headers& headers) {
    if (!headers.created.empty()) addTag(tags, Key::commonKeyCreationDate, headers.created);
    if (!headers.modified.empty()) addTag(tags, Key::commonKeyLastModifiedDate, headers.modified);
    if (!headers.language.empty()) addTag(tags, Key::commonKeyLanguage, headers.language);
}

}  // namespace

std::optional<IsoBox> findTagBox(TagInput& input, std::uint64_t begin, std::uint64_t end,
                                 std::string_view type) {
    TagBoxWalk walk(input, begin, end);
    for (IsoBox box; walk.next(box);) {
        if (box.type == fourCharacters(type)) return box;
    }
    return std::nullopt;
}

void addQuickTimeTags(SoundTags& tags, TagInput& input) {
    const auto movie = findTagBox(input, 0, input.input().size(), "moov");
    if (!movie) return;
    QuickTimeFields fields;
    Headers headers;
    bool hasTrack = false;
    TagBoxWalk walk(input, movie->begin, movie->end);
    for (IsoBox box; walk.next(box);) {
        if (box.type == fourCharacters("mvhd")) {
            readMovieHeader(headers, input, box);
        } else if (box.type == fourCharacters("meta")) {
            addQuickTimeItems(fields, input, box);
        } else if (box.type == fourCharacters("udta")) {
            addQuickTimeUserData(fields, input, box);
        } else if (box.type == fourCharacters("trak") && !hasTrack) {
            hasTrack = true;
            headers.language = trackLanguage(input, box);
        }
    }
    fields.keys.addTo(tags);
    addFields(tags, fields.items, itemRows);
    addFields(tags, fields.items, mobileRows);  // some write them here as well
    fields.ownItems.addTo(tags);
    addFields(tags, fields.userData, itemRows);
    addFields(tags, fields.mobile, mobileRows);
    addHeaders(tags, headers);
}

}  // namespace marquell::helpers
