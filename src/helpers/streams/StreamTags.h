// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/common/Input.h"
#include "helpers/sound/SoundTags.h"

extern "C" {
#include <libavformat/avformat.h>
}

namespace marquell::helpers {

/// The tags that the media library found in an open file: of the file, and where that has none, of
/// its first sound. `input` is that file.
SoundTags streamTags(const AVFormatContext& context, Input& input);

}  // namespace marquell::helpers
