// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "helpers/common/Input.h"
#include "helpers/sound/SoundTags.h"

namespace marquell::helpers {

/// Adds what the ID3v2 tag at `begin` says, with what follows from it for the common keys, lyrics
/// and comment; for the keys that `tags` has already, only the frames. Versions 2.2 to 2.4. Returns
/// where the tag ends, or `begin` if there is none there.
std::uint64_t addId3Tag(SoundTags& tags, Input& input, std::uint64_t begin, std::uint64_t end);

}  // namespace marquell::helpers
