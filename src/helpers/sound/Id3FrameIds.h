// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace marquell::helpers {

/// The identifier of ID3v2.3 for a frame that ID3v2.2 calls by one of three letters; all other
/// identifiers as they are. Good as long as `id`.
std::string_view currentId3FrameId(std::string_view id);

}  // namespace marquell::helpers
