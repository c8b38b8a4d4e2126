// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>

#include "helpers/common/Numbers.h"
#include "helpers/image/ImageHeaders.h"

namespace marquell::helpers {
namespace {

constexpr std::size_t headerLength = 18;

constexpr std::uint64_t mapped = 1;
constexpr std::uint64_t trueColor = 2;
constexpr std::uint64_t grey = 3;

struct Fields {
    explicit Fields(Input& input) : bytes(input.bytesAt(0, headerLength)) {}

    std::uint64_t at(std::size_t offset, std::size_t length) const {
        return littleEndian(bytes, offset, length);
    }
    /// The kind of image; bit 3 only tells that it is compressed.
    std::uint64_t type() const { return at(2, 1) & ~std::uint64_t{8}; }
    /// Bits of a colour in the colour map, or else in the pixels.
    std::uint64_t colorBits() const { return type() == mapped ? at(7, 1) : at(16, 1); }

    const std::string bytes;
};

bool isOneOf(std::uint64_t number, std::initializer_list<std::uint64_t> allowed) {
    return std::ranges::count(allowed, number) > 0;
}

bool hasPlausiblePixels(const Fields& fields) {
    const std::uint64_t bits = fields.at(16, 1);
    const bool hasMap = fields.at(1, 1) == 1;
    switch (fields.type()) {
        case mapped:
            return hasMap && isOneOf(bits, {8, 16});
        case trueColor:
            return isOneOf(bits, {15, 16, 24, 32});
        case grey:
            return !hasMap && isOneOf(bits, {8, 16});
        default:
            return false;
    }
}

}  // namespace

bool isPlausibleTga(Input& input) {
    const Fields fields(input);
    if (fields.bytes.size() < headerLength || fields.at(1, 1) > 1) return false;
    const bool hasMap = fields.at(1, 1) == 1;
    const bool isMapPlausible = hasMap ? isOneOf(fields.at(7, 1), {15, 16, 24, 32})
                                       : fields.at(3, 2) + fields.at(5, 2) == 0;
    return isMapPlausible && hasPlausiblePixels(fields) && fields.at(12, 2) > 0 &&
           fields.at(14, 2) > 0;
}

ImageHeader readTgaHeader(Input& input) {
    ImageHeader header;
    const Fields fields(input);
    setPixelSize(header, fields.at(12, 2), fields.at(14, 2));
    header.colorModel = fields.type() == grey ? "Gray" : "RGB";
    const bool isFiveBit = fields.type() != grey && isOneOf(fields.colorBits(), {15, 16});
    header.depth = isFiveBit ? 5 : 8;
    return header;
}

}  // namespace marquell::helpers
