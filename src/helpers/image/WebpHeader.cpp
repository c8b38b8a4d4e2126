// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/common/Numbers.h"
#include "helpers/image/ImageHeaders.h"

namespace marquell::helpers {
namespace {

constexpr std::uint64_t lossy = fourCharacters("VP8 ");
constexpr std::uint64_t lossless = fourCharacters("VP8L");
constexpr std::uint64_t canvas = fourCharacters("VP8X");
constexpr std::uint64_t frame = fourCharacters("ANMF");

/// The size in the first bytes of a chunk's content, for each way to say it.
void readSize(std::uint64_t type, const std::string& content, ImageHeader& header) {
    if (type == canvas && content.size() == 10) {
        setPixelSize(header, littleEndian(content, 4, 3) + 1, littleEndian(content, 7, 3) + 1);
    } else if (type == lossy && content.substr(0, 6).ends_with("\x9D\x01\x2A")) {
        // The upper two bits are a scale for display.
        setPixelSize(header, littleEndian(content, 6, 2) & 0x3FFF,
                     littleEndian(content, 8, 2) & 0x3FFF);
    } else if (type == lossless && content.size() >= 5 && content.front() == '\x2F') {
        const std::uint64_t bits = littleEndian(content, 1, 4);
        setPixelSize(header, (bits & 0x3FFF) + 1, (bits >> 14 & 0x3FFF) + 1);
    }
}

}  // namespace

ImageHeader readWebpHeader(Input& input) {
    ImageHeader header;
    header.depth = 8;
    std::uint64_t position = 12;
    for (std::size_t steps = 0; steps < maximumSteps; ++steps) {
        const std::string start = input.bytesAt(position, 8);
        if (start.size() < 8) break;
        const std::uint64_t type = bigEndian(start, 0, 4);
        const std::uint64_t length = littleEndian(start, 4, 4);
        const std::uint64_t content = position + 8;
        if (type == fourCharacters("ICCP")) header.colorProfile = profileAt(input, content, length);
        if (!header.pixelWidth && length >= 5) readSize(type, input.bytesAt(content, 10), header);
        // The profile stands before the pixels.
        if (type == lossy || type == lossless || type == frame) break;
        position = content + length + length % 2;
    }
    return header;
}

}  // namespace marquell::helpers
