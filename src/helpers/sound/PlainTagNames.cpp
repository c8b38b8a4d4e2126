// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/PlainTagNames.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace marquell::helpers {
namespace {

using Key = platform::AudioVisualPropertyKey;

/// Names as comparableName makes them.
constexpr std::array rows = {
    TagRow{"title", Key::commonKeyTitle},
    TagRow{"displayname", Key::commonKeyTitle},
    TagRow{"artist", Key::commonKeyArtist},
    TagRow{"albumartist", Key::commonKeyArtist},
    TagRow{"author", Key::commonKeyAuthor},
    TagRow{"writer", Key::commonKeyAuthor},
    TagRow{"lyricist", Key::commonKeyAuthor},
    TagRow{"creator", Key::commonKeyCreator},
    TagRow{"composer", Key::commonKeyCreator},
    TagRow{"album", Key::commonKeyAlbumName},
    TagRow{"albumname", Key::commonKeyAlbumName},
    TagRow{"publisher", Key::commonKeyPublisher},
    TagRow{"label", Key::commonKeyPublisher},
    TagRow{"organization", Key::commonKeyPublisher},
    TagRow{"contributor", Key::commonKeyContributor},
    TagRow{"performer", Key::commonKeyContributor},
    TagRow{"producer", Key::commonKeyContributor},
    TagRow{"director", Key::commonKeyContributor},
    TagRow{"conductor", Key::commonKeyContributor},
    TagRow{"subject", Key::commonKeySubject},
    TagRow{"keywords", Key::commonKeySubject},
    TagRow{"keyword", Key::commonKeySubject},
    TagRow{"category", Key::commonKeySubject},
    TagRow{"grouping", Key::commonKeySubject},
    TagRow{"description", Key::commonKeyDescription},
    TagRow{"longdescription", Key::commonKeyDescription},
    TagRow{"synopsis", Key::commonKeyDescription},
    TagRow{"information", Key::commonKeyDescription},
    TagRow{"creationdate", Key::commonKeyCreationDate},
    TagRow{"recordeddate", Key::commonKeyCreationDate},
    TagRow{"date", Key::commonKeyCreationDate},
    TagRow{"year", Key::commonKeyCreationDate},
    TagRow{"releasedate", Key::commonKeyCreationDate},
    TagRow{"creationtime", Key::commonKeyCreationDate},
    TagRow{"lastmodifieddate", Key::commonKeyLastModifiedDate},
    TagRow{"modifieddate", Key::commonKeyLastModifiedDate},
    TagRow{"datemodified", Key::commonKeyLastModifiedDate},
    TagRow{"modificationdate", Key::commonKeyLastModifiedDate},
    TagRow{"modificationtime", Key::commonKeyLastModifiedDate},
    TagRow{"copyright", Key::commonKeyCopyrights},
    TagRow{"copyrights", Key::commonKeyCopyrights},
    TagRow{"rights", Key::commonKeyCopyrights},
    TagRow{"license", Key::commonKeyCopyrights},
    TagRow{"type", Key::commonKeyType},
    TagRow{"genre", Key::commonKeyType},
    TagRow{"format", Key::commonKeyFormat},
    TagRow{"originalformat", Key::commonKeyFormat},
    TagRow{"media", Key::commonKeyFormat},
    TagRow{"source", Key::commonKeySource},
    TagRow{"originalsource", Key::commonKeySource},
    TagRow{"sourcemedia", Key::commonKeySource},
    TagRow{"identifier", Key::commonKeyIdentifier},
    TagRow{"content.identifier", Key::commonKeyIdentifier},
    TagRow{"isrc", Key::commonKeyIdentifier},
    TagRow{"barcode", Key::commonKeyIdentifier},
    TagRow{"catalognumber", Key::commonKeyIdentifier},
    TagRow{"relation", Key::commonKeyRelation},
    TagRow{"collection", Key::commonKeyRelation},
    TagRow{"language", Key::commonKeyLanguage},
    TagRow{"location.iso6709", Key::commonKeyLocation},
    TagRow{"location", Key::commonKeyLocation},
    TagRow{"location.name", Key::commonKeyLocation},
    TagRow{"make", Key::commonKeyMake},
    TagRow{"manufacturer", Key::commonKeyMake},
    TagRow{"model", Key::commonKeyModel},
    TagRow{"software", Key::commonKeySoftware},
    TagRow{"encoder", Key::commonKeySoftware},
    TagRow{"encodingapplication", Key::commonKeySoftware},
    TagRow{"encodingtool", Key::commonKeySoftware},
    TagRow{"tool", Key::commonKeySoftware},
    TagRow{"encodedby", Key::commonKeySoftware},
    TagRow{"lyrics", TagPlace::lyrics},
    TagRow{"unsyncedlyrics", TagPlace::lyrics},
    TagRow{"comment", TagPlace::comment},
    TagRow{"comments", TagPlace::comment},
    TagRow{"keywords", TagPlace::keywords},
    TagRow{"keyword", TagPlace::keywords},
    TagRow{"version", TagPlace::version},
};

constexpr std::string_view applePrefix = "com.apple.quicktime.";

/// What phones write there is a version of their system.
constexpr std::string_view systemVersion = "com.android.version";

/// Lower-case letters, digits and dots only.
std::string comparableName(std::string_view name) {
    std::string comparable;
    for (const char character : name) {
        const auto byte = static_cast<unsigned char>(character);
        if (std::isalnum(byte) == 0 && character != '.') continue;
        comparable += static_cast<char>(std::tolower(byte));
    }
    return comparable;
}

/// The name without a domain of two or three parts, if the rows know what is left then.
std::string withoutDomain(const std::string& name) {
    std::string_view rest = name;
    for (int parts = 1; parts <= 3; ++parts) {
        const std::size_t dot = rest.find('.');
        if (dot == std::string_view::npos) break;
        rest.remove_prefix(dot + 1);
        const bool isKnown = std::any_of(rows.begin(), rows.end(),
                                         [rest](const TagRow& row) { return row.field == rest; });
        if (parts > 1 && isKnown) return std::string(rest);
    }
    return name;
}

}  // namespace

void NamedTagFields::add(std::string_view name, const std::string& text) {
    const std::string comparable = comparableName(name);
    if (comparable.starts_with(applePrefix)) {
        apple_.add(comparable.substr(applePrefix.size()), text);
    } else if (comparable != systemVersion) {
        other_.add(withoutDomain(comparable), text);
    }
}

void NamedTagFields::addTo(SoundTags& tags) const {
    addFields(tags, apple_, rows);
    addFields(tags, other_, rows);
}

}  // namespace marquell::helpers
