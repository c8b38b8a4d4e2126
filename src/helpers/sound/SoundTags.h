// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "helpers/common/Input.h"
#include "platform/AudioVisualProperties.h"
#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

/// A frame of an ID3 tag in its written form.
struct Id3Frame {
    std::string id;    ///< as it stands in the file: 3 letters in ID3v2.2, else 4
    std::string text;  ///< clean UTF-8, not empty
};

/// What a sound or video file says of itself in tags. All texts are clean UTF-8, without blanks and
/// NULs at the end.
struct SoundTags {
    /// The keys up to commonKeySoftware; no empty texts. Of several fields of one key, the one that
    /// the format's own order of preference puts first.
    std::map<platform::AudioVisualPropertyKey, std::string> common;
    std::string lyrics;
    std::vector<Id3Frame> id3;  ///< in the order of the file, those with a text form alone
    // What the common keys have no place for.
    std::string comment;
    std::string version;
    std::vector<std::string> keywords;
    /// Set if the format lists several one by one; the common key has them in one text.
    std::vector<std::string> artists;

    bool isEmpty() const {
        return common.empty() && lyrics.empty() && id3.empty() && comment.empty() &&
               version.empty() && keywords.empty();
    }
};

/// Reads the tags of MP3 and other files that begin with an ID3 tag, WAV, AIFF, CAF, AU, and of the
/// QuickTime and MP4 family. The content decides which; `extension` (lower case, without the dot)
/// does where it has no signature. Empty for all else and for broken files. Reads little, and takes
/// bounded time and memory whatever the bytes are.
SoundTags readSoundTags(Input& input, std::string_view extension);

/// Makes the comment the description of what has none, which is often written so. readSoundTags
/// has done so.
void completeDescription(SoundTags& tags);

/// The tags as the soundTags task answers.
platform::PropertyDictionary soundTagProperties(const SoundTags& tags);

}  // namespace marquell::helpers
