// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "helpers/common/Input.h"
#include "helpers/image/ImageHeader.h"

namespace marquell::helpers {

inline constexpr std::size_t maximumProfileBytes = std::size_t{4} * 1024 * 1024;
/// Metres, in one inch.
inline constexpr double metresPerInch = 0.0254;

// The readers of each kind behind readImageHeader, with its promises.
ImageHeader readJpegHeader(Input& input);
ImageHeader readPngHeader(Input& input);
ImageHeader readGifHeader(Input& input);
ImageHeader readBmpHeader(Input& input);
ImageHeader readPsdHeader(Input& input);
ImageHeader readWebpHeader(Input& input);
ImageHeader readIcoHeader(Input& input);
ImageHeader readTgaHeader(Input& input);
ImageHeader readJp2Header(Input& input);
ImageHeader readHeifHeader(Input& input);
/// Empty for a TIFF of the ordinary kind.
ImageHeader readBigTiffHeader(Input& input);

// Whether what follows a weak signature, or none, is a header of that kind.
bool isPlausibleBmp(Input& input);
bool isPlausibleIco(Input& input);
bool isPlausibleTga(Input& input);

/// Sets what is no nonsense: a size that is not 0 and has at most 32 bits.
void setPixelSize(ImageHeader& header, std::uint64_t width, std::uint64_t height);
/// Sets a depth of 1 to 64 bits.
void setDepth(ImageHeader& header, std::uint64_t bits);

/// A profile that stands in one piece; empty if it is too long or reaches beyond the end.
std::string profileAt(Input& input, std::uint64_t offset, std::uint64_t length);

}  // namespace marquell::helpers
