// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

#include "helpers/sound/Id3Text.h"

namespace marquell::helpers {

// The text of a frame's content, each for the frames that its name tells. Absent for content that
// makes no sense.

using Id3Form = std::optional<Id3Text> (*)(std::string_view content);

// Texts, and addresses of the web.
std::optional<Id3Text> id3PlainText(std::string_view content);
std::optional<Id3Text> id3Genre(std::string_view content);
std::optional<Id3Text> id3People(std::string_view content);
std::optional<Id3Text> id3UserText(std::string_view content);
std::optional<Id3Text> id3Comment(std::string_view content);
std::optional<Id3Text> id3Lyrics(std::string_view content);
std::optional<Id3Text> id3TermsOfUse(std::string_view content);
std::optional<Id3Text> id3Address(std::string_view content);
std::optional<Id3Text> id3UserAddress(std::string_view content);
std::optional<Id3Text> id3Link(std::string_view content);
std::optional<Id3Text> id3Unknown(std::string_view content);

// Somebody's data.
std::optional<Id3Text> id3OwnersData(std::string_view content);
std::optional<Id3Text> id3Encryption(std::string_view content);
std::optional<Id3Text> id3Group(std::string_view content);
std::optional<Id3Text> id3Signature(std::string_view content);
std::optional<Id3Text> id3PlayCounter(std::string_view content);
std::optional<Id3Text> id3Popularimeter(std::string_view content);
std::optional<Id3Text> id3MusicCd(std::string_view content);
std::optional<Id3Text> id3Ownership(std::string_view content);
std::optional<Id3Text> id3Commercial(std::string_view content);

// What belongs to a moment of the sound.
std::optional<Id3Text> id3Events(std::string_view content);
std::optional<Id3Text> id3Tempo(std::string_view content);
std::optional<Id3Text> id3Position(std::string_view content);
std::optional<Id3Text> id3TimedLyrics(std::string_view content);

// How the sound is to be played.
std::optional<Id3Text> id3Volume(std::string_view content);
std::optional<Id3Text> id3Volume2(std::string_view content);
std::optional<Id3Text> id3Equalization(std::string_view content);
std::optional<Id3Text> id3Equalization2(std::string_view content);
std::optional<Id3Text> id3Reverb(std::string_view content);

}  // namespace marquell::helpers
