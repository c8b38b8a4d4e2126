// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "helpers/common/Input.h"

namespace marquell::helpers {

/// All formats that are opened, in the media library's names, as its options have lists: sound and
/// video alone. What leads to other files (playlists, chapters of presentations, numbered images)
/// or takes any text for a film is not among them.
const std::string& streamFormats();

/// The name of the format that the first bytes behind the ID3 tags show; null if they don't. Spares
/// the library the asking of its several hundred formats, which takes longer than reading most
/// files.
const char* streamFormatOf(Input& input, std::uint64_t tagLength, std::string_view extension);

}  // namespace marquell::helpers
