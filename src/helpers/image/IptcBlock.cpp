// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/IptcBlock.h"

#include <cstddef>

#include "helpers/common/Numbers.h"
#include "helpers/image/JpegSegments.h"
#include "helpers/image/PhotoshopResources.h"

namespace marquell::helpers {
namespace {

constexpr std::size_t maximumBlock = std::size_t{8} * 1024 * 1024;

/// The resources of a JPEG, which may be spread over several segments.
std::string jpegResources(Input& input) {
    constexpr std::uint8_t applicationSegment13 = 0xED;
    constexpr std::string_view mark("Photoshop 3.0\0", 14);
    std::string resources;
    JpegSegmentWalk walk(input);
    for (JpegSegment segment; walk.next(segment);) {
        if (segment.marker != applicationSegment13) continue;
        const std::string content =
            input.bytesAt(segment.begin, static_cast<std::size_t>(segment.length));
        if (content.starts_with(mark) && resources.size() < maximumBlock) {
            resources.append(content, mark.size());
        }
    }
    return resources;
}

}  // namespace

std::string iptcBlockOfResources(Input& resources, std::uint64_t begin, std::uint64_t end) {
    std::string block;
    forEachPhotoshopResource(
        resources, begin, end, [&](std::uint64_t id, std::uint64_t content, std::uint64_t length) {
            if (id != iptcRecord || block.size() + length > maximumBlock) return;
            block += resources.bytesAt(content, static_cast<std::size_t>(length));
        });
    return block;
}

std::string iptcBlock(Input& input, ImageKind kind) {
    if (kind == ImageKind::psd) {
        const ByteRange section = photoshopResourceSection(input);
        return iptcBlockOfResources(input, section.begin, section.end);
    }
    if (kind != ImageKind::jpeg) return {};
    const std::string bytes = jpegResources(input);
    MemoryInput resources(bytes);
    return iptcBlockOfResources(resources, 0, resources.size());
}

void forEachDataSet(std::string_view block, const DataSetVisitor& visit) {
    constexpr char mark = 0x1C;
    constexpr std::size_t headerLength = 5;
    constexpr std::uint64_t isExtended = 0x8000;
    while (block.size() >= headerLength && block.front() == mark) {
        const auto record = static_cast<std::uint8_t>(block[1]);
        const auto dataSet = static_cast<std::uint8_t>(block[2]);
        std::uint64_t length = bigEndian(block, 3, 2);
        block.remove_prefix(headerLength);
        if (length >= isExtended) {
            // The length has a length of its own.
            const auto bytes = static_cast<std::size_t>(length - isExtended);
            if (bytes > 8 || bytes > block.size()) return;
            length = bigEndian(block, 0, bytes);
            block.remove_prefix(bytes);
        }
        if (length > block.size()) return;
        visit(record, dataSet, block.substr(0, static_cast<std::size_t>(length)));
        block.remove_prefix(static_cast<std::size_t>(length));
    }
}

}  // namespace marquell::helpers
