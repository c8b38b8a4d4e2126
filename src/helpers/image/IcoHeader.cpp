// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/common/Numbers.h"
#include "helpers/image/ImageHeaders.h"

namespace marquell::helpers {
namespace {

constexpr std::string_view pngSignature = "\x89PNG\r\n\x1A\n";
constexpr std::uint64_t frame = 6;
constexpr std::uint64_t entryLength = 16;

/// The first bytes of the first image: the end of a PNG's first chunk, or a bitmap's header.
std::string startOfImage(Input& input, const std::string& entry) {
    return input.bytesAt(littleEndian(entry, 12, 4), 33);
}

}  // namespace

bool isPlausibleIco(Input& input) {
    const std::string start = input.bytesAt(0, frame);
    constexpr std::uint64_t icon = 1;
    constexpr std::uint64_t cursor = 2;
    const std::uint64_t type = littleEndian(start, 2, 2);
    const std::uint64_t count = littleEndian(start, 4, 2);
    if (littleEndian(start, 0, 2) != 0 || (type != icon && type != cursor) || count == 0) {
        return false;
    }
    const std::string entry = input.bytesAt(frame, entryLength);
    if (littleEndian(entry, 12, 4) < frame + count * entryLength) return false;
    const std::string image = startOfImage(input, entry);
    const std::uint64_t headerSize = littleEndian(image, 0, 4);
    return image.starts_with(pngSignature) || headerSize == 40 || headerSize == 108 ||
           headerSize == 124;
}

ImageHeader readIcoHeader(Input& input) {
    ImageHeader header;
    const std::string entry = input.bytesAt(frame, entryLength);
    if (entry.size() < entryLength) return header;
    header.depth = 8;
    const std::string image = startOfImage(input, entry);
    if (image.starts_with(pngSignature)) {
        setPixelSize(header, bigEndian(image, 16, 4), bigEndian(image, 20, 4));
        return header;
    }
    const auto side = [&entry](std::size_t offset) {
        const std::uint64_t pixels = littleEndian(entry, offset, 1);
        return pixels == 0 ? 256 : pixels;
    };
    setPixelSize(header, side(0), side(1));
    return header;
}

}  // namespace marquell::helpers
