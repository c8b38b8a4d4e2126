// SPDX-License-Identifier: GPL-3.0-or-later
#include <bit>

#include "helpers/common/Numbers.h"
#include "helpers/image/ImageHeaders.h"

namespace marquell::helpers {
namespace {

void readBasics(const std::string& content, ImageHeader& header) {
    setPixelSize(header, bigEndian(content, 0, 4), bigEndian(content, 4, 4));
    const std::uint64_t depth = bigEndian(content, 8, 1);
    constexpr std::uint64_t palette = 3;
    constexpr std::uint64_t colored = 2;  // a bit
    const std::uint64_t type = bigEndian(content, 9, 1);
    header.colorModel = (type & colored) != 0 ? "RGB" : "Gray";
    if (type == palette) {
        header.depth = 8;
    } else if (depth <= 16 && std::has_single_bit(depth)) {
        setDepth(header, depth);
    }
}

void readDensity(const std::string& content, ImageHeader& header) {
    constexpr std::uint64_t perMetre = 1;
    if (bigEndian(content, 8, 1) != perMetre) return;
    const auto dpi = [&content](std::size_t offset) {
        return dpiFromMetric(static_cast<double>(bigEndian(content, offset, 4)), metresPerInch);
    };
    header.dpiWidth = dpi(0);
    header.dpiHeight = dpi(4);
}

}  // namespace

ImageHeader readPngHeader(Input& input) {
    ImageHeader header;
    std::uint64_t position = 8;
    for (std::size_t steps = 0; steps < maximumSteps; ++steps) {
        // Length and type, and behind the content a checksum.
        const std::string start = input.bytesAt(position, 8);
        const std::uint64_t length = bigEndian(start, 0, 4);
        const std::uint64_t type = bigEndian(start, 4, 4);
        const bool isEnd = type == fourCharacters("IDAT") || type == fourCharacters("IEND");
        if (start.size() < 8 || length > 0x7FFFFFFF || isEnd) break;
        const std::uint64_t content = position + 8;
        if (type == fourCharacters("IHDR") && length >= 13) {
            readBasics(input.bytesAt(content, 13), header);
        } else if (type == fourCharacters("pHYs") && length >= 9) {
            readDensity(input.bytesAt(content, 9), header);
        }
        position = content + length + 4;
    }
    return header;
}

}  // namespace marquell::helpers
