// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/common/Input.h"
#include "helpers/sound/SoundTags.h"

namespace marquell::helpers {

/// Adds what the ID3v1 tag at the end of the file says, for the keys and the comment that `tags`
/// doesn't have yet.
void addId3V1Tag(SoundTags& tags, Input& input);

}  // namespace marquell::helpers
