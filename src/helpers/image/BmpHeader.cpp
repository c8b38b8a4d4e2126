// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>

#include "helpers/common/Numbers.h"
#include "helpers/image/ImageHeaders.h"

namespace marquell::helpers {
namespace {

constexpr std::size_t fileHeaderSize = 14;
constexpr std::uint64_t coreHeaderSize = 12;  // the oldest, with 16-bit sizes
constexpr std::array headerSizes = {coreHeaderSize,     std::uint64_t{16}, std::uint64_t{40},
                                    std::uint64_t{52},  std::uint64_t{56}, std::uint64_t{64},
                                    std::uint64_t{108}, std::uint64_t{124}};

/// The header behind the file's own.
class Fields {
public:
    explicit Fields(Input& input) : bytes_(input.bytesAt(fileHeaderSize, 124)) {}

    std::uint64_t at(std::size_t offset, std::size_t length) const {
        return littleEndian(bytes_, offset, length);
    }
    /// A signed number of 32 bits.
    std::int64_t signedAt(std::size_t offset) const {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(at(offset, 4)));
    }
    std::uint64_t size() const { return at(0, 4); }
    bool isCore() const { return size() == coreHeaderSize; }
    std::uint64_t bitsPerPixel() const { return isCore() ? at(10, 2) : at(14, 2); }
    std::uint64_t planes() const { return isCore() ? at(8, 2) : at(12, 2); }
    std::uint64_t width() const {
        return isCore() ? at(4, 2)
                        : static_cast<std::uint64_t>(std::max<std::int64_t>(0, signedAt(4)));
    }
    /// Stored as a negative number if the rows go from top to bottom.
    std::uint64_t height() const {
        return isCore() ? at(6, 2) : static_cast<std::uint64_t>(std::abs(signedAt(8)));
    }

private:
    const std::string bytes_;
};

/// The narrowest of the masks for red, green and blue.
std::uint64_t depthOfMasks(const Fields& fields) {
    int depth = 32;
    for (const std::size_t offset : {40U, 44U, 48U}) {
        depth = std::min(depth, std::popcount(fields.at(offset, 4)));
    }
    return static_cast<std::uint64_t>(depth);
}

std::uint64_t depthOf(const Fields& fields) {
    const std::uint64_t bits = fields.bitsPerPixel();
    if (bits != 16 && bits != 32) return 8;
    constexpr std::uint64_t masks = 3;
    constexpr std::uint64_t masksWithAlpha = 6;
    const std::uint64_t compression = fields.isCore() ? 0 : fields.at(16, 4);
    if (compression == masks || compression == masksWithAlpha) return depthOfMasks(fields);
    return bits == 16 ? 5 : 8;
}

}  // namespace

bool isPlausibleBmp(Input& input) {
    const Fields fields(input);
    constexpr std::array depths = {0U, 1U, 2U, 4U, 8U, 16U, 24U, 32U};
    return std::ranges::count(headerSizes, fields.size()) > 0 && fields.planes() == 1 &&
           std::ranges::count(depths, fields.bitsPerPixel()) > 0 && fields.width() > 0 &&
           fields.height() > 0;
}

ImageHeader readBmpHeader(Input& input) {
    ImageHeader header;
    const Fields fields(input);
    setPixelSize(header, fields.width(), fields.height());
    setDepth(header, depthOf(fields));
    if (fields.size() < 40) return header;
    header.dpiWidth = dpiFromMetric(static_cast<double>(fields.signedAt(24)), metresPerInch);
    header.dpiHeight = dpiFromMetric(static_cast<double>(fields.signedAt(28)), metresPerInch);
    constexpr std::uint64_t embeddedProfile = fourCharacters("MBED");
    if (fields.size() == 124 && fields.at(56, 4) == embeddedProfile) {
        header.colorProfile =
            profileAt(input, fileHeaderSize + fields.at(112, 4), fields.at(116, 4));
    }
    return header;
}

}  // namespace marquell::helpers
