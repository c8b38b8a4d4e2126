// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "helpers/common/Numbers.h"
#include "helpers/image/HeifItems.h"
#include "helpers/image/ImageHeaders.h"

namespace marquell::helpers {
namespace {

constexpr std::size_t maximumExifBytes = std::size_t{16} * 1024 * 1024;
constexpr std::size_t maximumXmpBytes = std::size_t{8} * 1024 * 1024;

/// The bits of a component by the configuration of the decoder; 0 if this box isn't one.
std::uint64_t depthOfDecoder(Input& input, const IsoBox& box) {
    if (box.type == fourCharacters("hvcC")) {
        const std::string fields = input.bytesAt(box.begin, 18);
        return box.length() < 18 ? 0 : (bigEndian(fields, 17, 1) & 7) + 8;
    }
    if (box.type == fourCharacters("av1C")) {
        const std::uint64_t flags = bigEndian(input.bytesAt(box.begin, 3), 2, 1);
        const bool isHigh = (flags & 0x40) != 0;
        const bool isTwelve = (flags & 0x20) != 0;
        if (box.length() < 3) return 0;
        return !isHigh ? 8 : isTwelve ? 12 : 10;
    }
    return 0;
}

/// The depth that an item's properties tell; 0 if none does.
std::uint64_t depthOf(Input& input, const std::vector<IsoBox>& properties) {
    std::uint64_t depth = 0;
    for (const IsoBox& box : properties) {
        if (box.type != fourCharacters("pixi")) {
            if (depth == 0) depth = depthOfDecoder(input, box);
            continue;
        }
        IsoReader reader(input, box);
        reader.skip(4);  // version and flags
        const std::uint64_t channels = reader.number(1);
        const std::uint64_t bits = reader.number(1);
        if (channels > 0 && bits > 0) return bits;
    }
    return depth;
}

void readSize(Input& input, const IsoBox& box, ImageHeader& header) {
    IsoReader reader(input, box);
    reader.skip(4);  // version and flags
    const std::uint64_t width = reader.number(4);
    setPixelSize(header, width, reader.number(4));
}

void readColors(Input& input, const IsoBox& box, ImageHeader& header) {
    IsoReader reader(input, box);
    const std::uint64_t type = reader.number(4);
    if (type != fourCharacters("prof") && type != fourCharacters("rICC")) return;
    header.colorProfile = profileAt(input, reader.position(), box.end - reader.position());
}

/// The size in the content of an image that is put together from tiles.
void readGridSize(const HeifItems& items, HeifItemId grid, ImageHeader& header) {
    const std::string content = items.data(grid, 64);
    // Version, flags, rows and columns come first.
    const std::size_t width = (bigEndian(content, 1, 1) & 1) != 0 ? 4 : 2;
    if (content.size() != 4 + 2 * width) return;
    setPixelSize(header, bigEndian(content, 4, width), bigEndian(content, 4 + width, width));
}

bool isTiff(const std::string& bytes) {
    return bytes.starts_with(std::string_view("II*\0", 4)) ||
           bytes.starts_with(std::string_view("MM\0*", 4));
}

/// The content of an Exif item: how far ahead the TIFF structure is, then what it is ahead of.
std::string tiffOf(std::string content) {
    const std::uint64_t skipped = bigEndian(content, 0, 4);
    if (content.size() < 4 || skipped > content.size() - 4) return {};
    content.erase(0, 4 + skipped);
    // Some writers count from behind this mark.
    constexpr std::string_view mark("Exif\0\0", 6);
    if (content.starts_with(mark)) content.erase(0, mark.size());
    return isTiff(content) ? content : std::string();
}

/// The content of the item among the candidates that describes the primary one, or of the first.
std::string descriptionOf(const HeifItems& items, const std::vector<HeifItemId>& candidates,
                          std::size_t maximum) {
    if (candidates.empty()) return {};
    const auto primary = items.primary();
    HeifItemId chosen = candidates.front();
    // More than a few are not for real, and each costs a walk.
    const std::size_t count = std::min<std::size_t>(candidates.size(), 4);
    for (std::size_t i = 0; primary && i < count; ++i) {
        const auto targets = items.references(candidates[i], fourCharacters("cdsc"));
        if (std::ranges::count(targets, *primary) == 0) continue;
        chosen = candidates[i];
        break;
    }
    return items.data(chosen, maximum);
}

}  // namespace

ImageHeader readHeifHeader(Input& input) {
    ImageHeader header;
    const HeifItems items(input);
    const auto primary = items.primary();
    if (!primary) return header;
    const auto properties = items.properties(*primary);
    for (const IsoBox& box : properties) {
        if (box.type == fourCharacters("ispe")) readSize(input, box, header);
        if (box.type == fourCharacters("colr")) readColors(input, box, header);
    }
    std::uint64_t depth = depthOf(input, properties);
    const auto tiles = items.references(*primary, fourCharacters("dimg"));
    if (!tiles.empty()) {
        if (!header.pixelWidth) readGridSize(items, *primary, header);
        if (depth == 0) depth = depthOf(input, items.properties(tiles.front()));
    }
    setDepth(header, depth);
    return header;
}

HeifMetadata readHeifMetadata(Input& input) {
    const HeifItems items(input);
    std::vector<HeifItemId> exif;
    std::vector<HeifItemId> xmp;
    for (const HeifItem& item : items.items()) {
        if (item.type == fourCharacters("Exif")) exif.push_back(item.id);
        if (item.contentType == "application/rdf+xml") xmp.push_back(item.id);
    }
    return {tiffOf(descriptionOf(items, exif, maximumExifBytes)),
            descriptionOf(items, xmp, maximumXmpBytes)};
}

}  // namespace marquell::helpers
