// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/HeifLocations.h"

namespace marquell::helpers {
namespace {

constexpr std::uint64_t inFile = 0;
constexpr std::uint64_t inMeta = 1;

/// How wide each kind of number is, which the box itself tells.
struct Widths {
    bool isValid() const {
        for (const std::size_t width : {offset, length, base, index}) {
            if (width != 0 && width != 4 && width != 8) return false;
        }
        return version <= 2;
    }
    std::size_t extent() const { return index + offset + length; }

    std::uint64_t version = 0;
    std::size_t offset = 0;
    std::size_t length = 0;
    std::size_t base = 0;
    std::size_t index = 0;
    std::size_t item = 0;
};

Widths readWidths(IsoReader& reader) {
    Widths widths;
    widths.version = IsoVersion(reader).version;
    const std::uint64_t lengths = reader.number(2);
    widths.offset = lengths >> 12 & 0xF;
    widths.length = lengths >> 8 & 0xF;
    widths.base = lengths >> 4 & 0xF;
    widths.index = widths.version == 0 ? 0 : lengths & 0xF;
    widths.item = widths.version < 2 ? 2 : 4;
    return widths;
}

std::vector<HeifLocation::Extent> readExtents(IsoReader& reader, const Widths& widths,
                                              std::uint64_t count) {
    std::vector<HeifLocation::Extent> extents;
    for (std::uint64_t i = 0; i < count && i < maximumSteps; ++i) {
        reader.skip(widths.index);
        const std::uint64_t offset = reader.number(widths.offset);
        const std::uint64_t length = reader.number(widths.length);
        if (reader.hasFailed()) break;
        extents.push_back({offset, length});
    }
    return extents;
}

}  // namespace

std::optional<HeifLocation> findHeifLocation(Input& input, const IsoBox& box, std::uint32_t item) {
    IsoReader reader(input, box);
    const Widths widths = readWidths(reader);
    if (!widths.isValid()) return std::nullopt;
    const std::uint64_t count = reader.number(widths.item);
    for (std::uint64_t i = 0; i < count && i < maximumSteps; ++i) {
        const bool isWanted = reader.number(widths.item) == item;
        const std::uint64_t method = widths.version == 0 ? inFile : reader.number(2) & 0xF;
        const bool isElsewhere = reader.number(2) != 0;
        HeifLocation location{method == inMeta, reader.number(widths.base), {}};
        const std::uint64_t extents = reader.number(2);
        if (reader.hasFailed()) return std::nullopt;
        if (!isWanted) {
            reader.skip(extents * widths.extent());
            continue;
        }
        location.extents = readExtents(reader, widths, extents);
        if (isElsewhere || reader.hasFailed() || method > inMeta) return std::nullopt;
        return location;
    }
    return std::nullopt;
}

std::string readHeifLocation(Input& input, const HeifLocation& location, const IsoBox& source,
                             std::size_t maximum) {
    std::string bytes;
    for (const auto& extent : location.extents) {
        const std::uint64_t available = source.length();
        if (location.base > available || extent.offset > available - location.base) return {};
        const std::uint64_t begin = location.base + extent.offset;
        const std::uint64_t length = extent.length == 0 ? available - begin : extent.length;
        if (length > available - begin || length > maximum - bytes.size()) return {};
        const std::string piece = input.bytesAt(source.begin + begin, length);
        if (piece.size() != length) return {};
        bytes += piece;
    }
    return bytes;
}

}  // namespace marquell::helpers
