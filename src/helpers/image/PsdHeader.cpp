// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>

#include "helpers/image/ImageHeaders.h"
#include "helpers/image/Numbers.h"

namespace marquell::helpers {
namespace {

constexpr std::array<std::string_view, 5> resourceMarks = {"8BIM", "MeSa", "AgHg", "PHUT", "DCSR"};

/// Pixels per inch in 16.16 fixed point, whatever unit is shown to users.
std::optional<double> resolution(const std::string& content, std::size_t offset) {
    return dpiFromMetric(static_cast<double>(bigEndian(content, offset, 4)) / 65536, 1);
}

void readResource(Input& input, std::uint64_t id, std::uint64_t content, std::uint64_t length,
                  ImageHeader& header) {
    constexpr std::uint64_t resolutionInfo = 0x03ED;
    constexpr std::uint64_t profile = 0x040F;
    if (id == resolutionInfo && length >= 16) {
        const std::string fields = input.bytesAt(content, 16);
        header.dpiWidth = resolution(fields, 0);
        header.dpiHeight = resolution(fields, 8);
    } else if (id == profile) {
        header.colorProfile = profileAt(input, content, length);
    }
}

/// What is of uneven length is followed by one byte.
constexpr std::uint64_t padded(std::uint64_t length) { return length + length % 2; }

void readResources(Input& input, std::uint64_t position, std::uint64_t end, ImageHeader& header) {
    for (std::size_t steps = 0; steps < maximumSteps && position < end; ++steps) {
        // Mark, number and a name with its length in front, then the content with its length.
        const std::string start = input.bytesAt(position, 7);
        if (start.size() < 7 || std::ranges::count(resourceMarks, start.substr(0, 4)) == 0) return;
        const std::uint64_t lengthAt = position + 6 + padded(1 + bigEndian(start, 6, 1));
        const std::string lengthBytes = input.bytesAt(lengthAt, 4);
        if (lengthBytes.size() < 4) return;
        const std::uint64_t length = bigEndian(lengthBytes, 0, 4);
        const std::uint64_t content = lengthAt + 4;
        if (content > end || length > end - content) return;
        readResource(input, bigEndian(start, 4, 2), content, length, header);
        position = content + padded(length);
    }
}

}  // namespace

ImageHeader readPsdHeader(Input& input) {
    ImageHeader header;
    const std::string fields = input.bytesAt(0, 30);
    setPixelSize(header, bigEndian(fields, 18, 4), bigEndian(fields, 14, 4));
    constexpr std::uint64_t indexed = 2;
    setDepth(header, bigEndian(fields, 24, 2) == indexed ? 8 : bigEndian(fields, 22, 2));
    const std::uint64_t section = 30 + bigEndian(fields, 26, 4);
    const std::uint64_t length = bigEndian(input.bytesAt(section, 4), 0, 4);
    readResources(input, section + 4, section + 4 + length, header);
    return header;
}

}  // namespace marquell::helpers
