// SPDX-License-Identifier: GPL-3.0-or-later
#include <optional>
#include <string>

#include "helpers/image/ImageHeaders.h"
#include "helpers/image/Numbers.h"
#include "helpers/image/PhotoshopResources.h"

namespace marquell::helpers {
namespace {

/// Pixels per inch in 16.16 fixed point, whatever unit is shown to users.
std::optional<double> resolution(const std::string& content, std::size_t offset) {
    return dpiFromMetric(static_cast<double>(bigEndian(content, offset, 4)) / 65536, 1);
}

void readResource(Input& input, std::uint64_t id, std::uint64_t content, std::uint64_t length,
                  ImageHeader& header) {
    if (id == resolutionInfo && length >= 16) {
        const std::string fields = input.bytesAt(content, 16);
        header.dpiWidth = resolution(fields, 0);
        header.dpiHeight = resolution(fields, 8);
    } else if (id == colorProfile) {
        header.colorProfile = profileAt(input, content, length);
    }
}

}  // namespace

ImageHeader readPsdHeader(Input& input) {
    ImageHeader header;
    const std::string fields = input.bytesAt(0, 30);
    setPixelSize(header, bigEndian(fields, 18, 4), bigEndian(fields, 14, 4));
    constexpr std::uint64_t indexed = 2;
    setDepth(header, bigEndian(fields, 24, 2) == indexed ? 8 : bigEndian(fields, 22, 2));
    const ByteRange section = photoshopResourceSection(input);
    forEachPhotoshopResource(input, section.begin, section.end,
                             [&](std::uint64_t id, std::uint64_t content, std::uint64_t length) {
                                 readResource(input, id, content, length, header);
                             });
    return header;
}

}  // namespace marquell::helpers
