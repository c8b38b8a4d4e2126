// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "helpers/common/Numbers.h"
#include "helpers/image/ImageHeaders.h"
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

/// By the number of the mode. A bitmap and a duotone are shown as shades of one colour.
constexpr std::array<std::string_view, 10> colorModels = {"Gray", "Gray", "RGB", "RGB",  "CMYK",
                                                          "",     "",     "",    "Gray", "Lab"};

}  // namespace

ImageHeader readPsdHeader(Input& input) {
    ImageHeader header;
    const std::string fields = input.bytesAt(0, 30);
    setPixelSize(header, bigEndian(fields, 18, 4), bigEndian(fields, 14, 4));
    constexpr std::uint64_t indexed = 2;
    const std::uint64_t mode = bigEndian(fields, 24, 2);
    if (mode < colorModels.size()) header.colorModel = colorModels[mode];
    setDepth(header, mode == indexed ? 8 : bigEndian(fields, 22, 2));
    const ByteRange section = photoshopResourceSection(input);
    forEachPhotoshopResource(input, section.begin, section.end,
                             [&](std::uint64_t id, std::uint64_t content, std::uint64_t length) {
                                 readResource(input, id, content, length, header);
                             });
    return header;
}

}  // namespace marquell::helpers
