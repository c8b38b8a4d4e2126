// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/ImageHeader.h"

#include <cmath>
#include <limits>

#include "helpers/image/ImageHeaders.h"

namespace marquell::helpers {
namespace {

std::optional<std::uint32_t> pixelCount(std::uint64_t count) {
    if (count == 0 || count > std::numeric_limits<std::uint32_t>::max()) return std::nullopt;
    return static_cast<std::uint32_t>(count);
}

}  // namespace

void setPixelSize(ImageHeader& header, std::uint64_t width, std::uint64_t height) {
    header.pixelWidth = pixelCount(width);
    header.pixelHeight = pixelCount(height);
}

void setDepth(ImageHeader& header, std::uint64_t bits) {
    if (bits >= 1 && bits <= 64) header.depth = static_cast<std::uint32_t>(bits);
}

std::string profileAt(Input& input, std::uint64_t offset, std::uint64_t length) {
    if (length > maximumProfileBytes) return {};
    std::string profile = input.bytesAt(offset, static_cast<std::size_t>(length));
    if (profile.size() != length) profile.clear();
    return profile;
}

std::optional<double> dpiFromMetric(double pixelsPerUnit, double unitsPerInch) {
    // In ten-thousandths the factor is a whole number, and 5906 per metre are 150.0124.
    constexpr double scale = 10'000;
    const double dpi = pixelsPerUnit * std::round(unitsPerInch * scale) / scale;
    if (!std::isfinite(dpi) || dpi <= 0) return std::nullopt;
    const double whole = std::round(dpi);
    return whole > 0 && std::abs(dpi - whole) <= 0.01 ? whole : dpi;
}

ImageHeader readImageHeader(Input& input, ImageKind kind) {
    switch (kind) {
        case ImageKind::jpeg:
            return readJpegHeader(input);
        case ImageKind::png:
            return readPngHeader(input);
        case ImageKind::gif:
            return readGifHeader(input);
        case ImageKind::bmp:
            return readBmpHeader(input);
        case ImageKind::psd:
            return readPsdHeader(input);
        case ImageKind::webp:
            return readWebpHeader(input);
        case ImageKind::ico:
            return readIcoHeader(input);
        case ImageKind::tga:
            return readTgaHeader(input);
        case ImageKind::jp2:
            return readJp2Header(input);
        case ImageKind::heif:
            return readHeifHeader(input);
        case ImageKind::tiff:
            return readBigTiffHeader(input);
        default:
            return {};
    }
}

}  // namespace marquell::helpers
