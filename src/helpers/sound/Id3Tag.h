// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "helpers/common/Input.h"
#include "helpers/sound/SoundTags.h"

namespace marquell::helpers {

/// Adds what the ID3v2 tag at `begin` says and those that lie behind it, with what follows from
/// them for the common keys, lyrics and comment; for the keys that `tags` has already, only the
/// frames. Versions 2.2 to 2.4. The bounds are those of a file, which has tags in one place.
/// Returns where they end, or `begin` if there is none there.
std::uint64_t addId3Tag(SoundTags& tags, Input& input, std::uint64_t begin, std::uint64_t end);

/// Where the ID3v2 tags end that the file begins with; its size if there are too many of them.
std::uint64_t id3TagsEnd(Input& input);

}  // namespace marquell::helpers
