// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace marquell::helpers {

/// The name of a genre by its number in ID3v1, with the later additions; empty if it has none.
std::string_view id3GenreName(std::uint64_t number);

/// A value of the content type frame, with references such as "(17)", "17" and "(RX)" replaced by
/// names: "(17)(39)Own" becomes "Rock, Noise, Own". Numbers without a name stay.
std::string id3GenreText(std::string_view value);

}  // namespace marquell::helpers
