// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/SoundTagIndex.h"

#include <array>

#include "helpers/common/IndexProperties.h"
#include "helpers/common/TagDate.h"
#include "helpers/sound/Iso6709.h"

namespace marquell::helpers {
namespace {

using Key = platform::AudioVisualPropertyKey;
using Attribute = platform::IndexAttribute;

struct Row {
    Key key;
    Attribute attribute;
};

constexpr std::array rows = {
    Row{Key::commonKeyTitle, Attribute::kMDItemTitle},
    Row{Key::commonKeyAlbumName, Attribute::kMDItemAlbum},
    Row{Key::commonKeyDescription, Attribute::kMDItemDescription},
    Row{Key::commonKeyCopyrights, Attribute::kMDItemCopyright},
    Row{Key::commonKeyMake, Attribute::kMDItemAcquisitionMake},
    Row{Key::commonKeyModel, Attribute::kMDItemAcquisitionModel},
};

std::string textOf(const SoundTags& tags, Key key) {
    const auto found = tags.common.find(key);
    return found == tags.common.end() ? std::string() : found->second;
}

std::vector<std::string> authorsOf(const SoundTags& tags) {
    const std::string artist = textOf(tags, Key::commonKeyArtist);
    const std::string author = textOf(tags, Key::commonKeyAuthor);
    std::vector<std::string> authors = tags.artists;
    if (authors.empty()) authors.push_back(artist);
    if (author != artist) authors.push_back(author);
    return authors;
}

void addLocation(platform::PropertyDictionary& index, const std::string& location) {
    const auto position = parseIso6709(location);
    if (!position) {
        addText(index, Attribute::kMDItemNamedLocation, location);
        return;
    }
    addNumber(index, Attribute::kMDItemLatitude, position->latitude);
    addNumber(index, Attribute::kMDItemLongitude, position->longitude);
    addNumber(index, Attribute::kMDItemAltitude, position->altitude);
}

}  // namespace

void addSoundTagIndex(platform::PropertyDictionary& index, const SoundTags& tags) {
    for (const Row& row : rows) addText(index, row.attribute, textOf(tags, row.key));
    addTexts(index, Attribute::kMDItemAuthors, authorsOf(tags));
    addTexts(index, Attribute::kMDItemKeywords, tags.keywords);
    addText(index, Attribute::kMDItemComment, tags.comment);
    addText(index, Attribute::kMDItemVersion, tags.version);
    addText(index, Attribute::kMDItemContentCreationDate,
            isoDate(textOf(tags, Key::commonKeyCreationDate)));
    addText(index, Attribute::kMDItemContentModificationDate,
            isoDate(textOf(tags, Key::commonKeyLastModifiedDate)));
    addLocation(index, textOf(tags, Key::commonKeyLocation));
}

}  // namespace marquell::helpers
