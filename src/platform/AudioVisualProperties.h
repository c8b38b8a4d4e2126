// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace marquell::platform {

/// What a reader of sound and video files can say of a file's tags: the keys that mean the same in
/// every format, and what is beside them. Texts but for the last; the numbers mean nothing beside
/// being distinct.
enum class AudioVisualPropertyKey : std::uint16_t {
    commonKeyTitle,
    commonKeyCreator,
    commonKeySubject,
    commonKeyDescription,
    commonKeyPublisher,
    commonKeyContributor,
    commonKeyCreationDate,
    commonKeyLastModifiedDate,
    commonKeyType,
    commonKeyFormat,
    commonKeyIdentifier,
    commonKeySource,
    commonKeyLanguage,
    commonKeyRelation,
    commonKeyLocation,  ///< ISO 6709 where the file has a position, else a name
    commonKeyCopyrights,
    commonKeyAlbumName,
    commonKeyAuthor,
    commonKeyArtist,
    commonKeyMake,
    commonKeyModel,
    commonKeySoftware,
    lyrics,
    /// A list with a text for each ID3 frame that has a text form, in the order of the file: the
    /// frame's identifier as it stands in the file (3 letters in ID3v2.2, else 4), a blank, the
    /// text, which may be empty.
    id3Frames,
};

}  // namespace marquell::platform
