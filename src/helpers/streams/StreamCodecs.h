// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

extern "C" {
#include <libavcodec/codec_id.h>
}

namespace marquell::helpers {

/// What people call a codec; empty if it is unknown.
std::string streamCodecName(AVCodecID codec);

/// Whether its samples come out as they went in, so that their width says something of the file.
bool isLosslessSound(AVCodecID codec);

}  // namespace marquell::helpers
