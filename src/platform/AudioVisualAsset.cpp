// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/AudioVisualAsset.h"

#include <array>
#include <string_view>
#include <utility>

#include "platform/AudioVisualProperties.h"

namespace marquell::platform {
namespace {

using Key = AudioVisualPropertyKey;

constexpr std::array<std::pair<Key, std::string_view>, 22> commonKeys = {{
    {Key::commonKeyTitle, "title"},
    {Key::commonKeyCreator, "creator"},
    {Key::commonKeySubject, "subject"},
    {Key::commonKeyDescription, "description"},
    {Key::commonKeyPublisher, "publisher"},
    {Key::commonKeyContributor, "contributor"},
    {Key::commonKeyCreationDate, "creationDate"},
    {Key::commonKeyLastModifiedDate, "lastModifiedDate"},
    {Key::commonKeyType, "type"},
    {Key::commonKeyFormat, "format"},
    {Key::commonKeyIdentifier, "identifier"},
    {Key::commonKeySource, "source"},
    {Key::commonKeyLanguage, "language"},
    {Key::commonKeyRelation, "relation"},
    {Key::commonKeyLocation, "location"},
    {Key::commonKeyCopyrights, "copyrights"},
    {Key::commonKeyAlbumName, "albumName"},
    {Key::commonKeyAuthor, "author"},
    {Key::commonKeyArtist, "artist"},
    {Key::commonKeyMake, "make"},
    {Key::commonKeyModel, "model"},
    {Key::commonKeySoftware, "software"},
}};

template <typename Value>
const Value* valueOf(const PropertyDictionary& properties, Key key) {
    const auto found = properties.find(static_cast<PropertyKey>(key));
    return found == properties.end() ? nullptr : std::get_if<Value>(&found->second);
}

bool isFrameIdentifier(std::string_view key) {
    constexpr std::string_view allowed = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    return (key.size() == 3 || key.size() == 4) &&
           key.find_first_not_of(allowed) == std::string_view::npos;
}

/// Without a key if it has none that a frame may have.
AudioVisualItem id3Item(std::string_view frame) {
    const std::size_t blank = frame.find(' ');
    AudioVisualItem item;
    if (!isFrameIdentifier(frame.substr(0, blank))) return item;
    item.key = std::string(frame.substr(0, blank));
    if (item.key->size() == 3) item.key->push_back('\0');
    if (blank != std::string_view::npos) item.stringValue = std::string(frame.substr(blank + 1));
    return item;
}

}  // namespace

AudioVisualAsset audioVisualAsset(const PropertyDictionary& properties) {
    AudioVisualAsset asset;
    for (const auto& [key, name] : commonKeys) {
        if (const auto* text = valueOf<std::string>(properties, key)) {
            AudioVisualItem item;
            item.commonKey = std::string(name);
            item.stringValue = *text;
            asset.commonMetadata.push_back(std::move(item));
        }
    }
    if (const auto* frames = valueOf<std::vector<std::string>>(properties, Key::id3Frames)) {
        for (const std::string& frame : *frames) asset.id3Metadata.push_back(id3Item(frame));
    }
    if (const auto* lyrics = valueOf<std::string>(properties, Key::lyrics)) asset.lyrics = *lyrics;
    return asset;
}

}  // namespace marquell::platform
