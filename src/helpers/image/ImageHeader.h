// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "helpers/common/Input.h"
#include "helpers/image/ImageKind.h"

namespace marquell::helpers {

/// What the container itself says of its (first) image. Each is absent if the file doesn't say or
/// what it says makes no sense, such as a width of 0.
struct ImageHeader {
    std::optional<std::uint32_t> pixelWidth;
    std::optional<std::uint32_t> pixelHeight;
    /// Pixels per inch; a metric density within 0.01 of a whole number of them is that number.
    std::optional<double> dpiWidth;
    std::optional<double> dpiHeight;
    /// Bits of one colour component as it is shown: 8 for a palette of 24-bit colours.
    std::optional<std::uint32_t> depth;
    std::string_view colorModel;  ///< "RGB", "Gray", "CMYK" or "Lab"; empty if not known
    std::string colorProfile;     ///< the embedded ICC profile, empty if there is none
};

/// Reads the header of a file of the given kind. Reads little, and takes bounded time and memory
/// whatever the bytes are. Empty for kinds whose fields all stand in TIFF directories (tiff but for
/// BigTIFF, cr2, orf, rw2, raf, cr3).
ImageHeader readImageHeader(Input& input, ImageKind kind);

/// Dots per inch from a density in pixels per metre or centimetre; absent for none.
std::optional<double> dpiFromMetric(double pixelsPerUnit, double unitsPerInch);

/// The blocks of metadata that stand beside the primary image of a HEIF file.
struct HeifMetadata {
    std::string exif;  ///< a TIFF structure, empty if there is none
    std::string xmp;   ///< a packet, empty if there is none
};
HeifMetadata readHeifMetadata(Input& input);

/// What an ICC profile says of itself; empty as far as it doesn't or is broken.
struct ProfileDescription {
    std::string name;             ///< UTF-8, trimmed
    std::string_view colorModel;  ///< as in ImageHeader
};
ProfileDescription describeColorProfile(const std::string& profile);

}  // namespace marquell::helpers
