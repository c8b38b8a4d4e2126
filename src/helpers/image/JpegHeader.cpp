// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <string_view>

#include "helpers/common/Numbers.h"
#include "helpers/image/ImageHeaders.h"
#include "helpers/image/JpegSegments.h"

namespace marquell::helpers {
namespace {

constexpr std::string_view densityMark("JFIF\0", 5);
constexpr std::string_view profileMark("ICC_PROFILE\0", 12);

bool isFrame(std::uint8_t marker) {
    const bool isOther = marker == 0xC4 || marker == 0xC8 || marker == 0xCC;
    return marker >= 0xC0 && marker <= 0xCF && !isOther;
}

std::string_view colorModel(std::uint64_t components) {
    return components == 1 ? "Gray" : components == 4 ? "CMYK" : "RGB";
}

void readDensity(std::string_view content, ImageHeader& header) {
    constexpr std::uint64_t perInch = 1;
    constexpr std::uint64_t perCentimetre = 2;
    const std::uint64_t unit = bigEndian(content, 7, 1);
    if (unit != perInch && unit != perCentimetre) return;
    const double unitsPerInch = unit == perInch ? 1 : 2.54;
    header.dpiWidth = dpiFromMetric(static_cast<double>(bigEndian(content, 8, 2)), unitsPerInch);
    header.dpiHeight = dpiFromMetric(static_cast<double>(bigEndian(content, 10, 2)), unitsPerInch);
}

/// A profile comes in up to 255 numbered pieces, in any order.
class ProfilePieces {
public:
    void add(Input& input, const JpegSegment& segment) {
        const std::size_t frame = profileMark.size() + 2;
        if (segment.length < frame) return;
        const std::string numbers = input.bytesAt(segment.begin + profileMark.size(), 2);
        const auto index = static_cast<std::size_t>(bigEndian(numbers, 0, 1));
        if (index == 0) return;
        count_ = std::max(count_, static_cast<std::size_t>(bigEndian(numbers, 1, 1)));
        if (pieces_[index].length > 0) return;
        pieces_[index] = {segment.marker, segment.begin + frame, segment.length - frame};
    }

    /// Empty if a piece is missing.
    std::string whole(Input& input) const {
        std::string profile;
        for (std::size_t index = 1; index <= count_; ++index) {
            const JpegSegment& piece = pieces_[index];
            if (piece.length > maximumProfileBytes - profile.size()) return {};
            const std::string bytes = profileAt(input, piece.begin, piece.length);
            if (bytes.empty()) return {};
            profile += bytes;
        }
        return profile;
    }

private:
    std::array<JpegSegment, 256> pieces_;
    std::size_t count_ = 0;
};

}  // namespace

ImageHeader readJpegHeader(Input& input) {
    ImageHeader header;
    ProfilePieces profile;
    bool hasFrame = false;
    bool hasDensity = false;
    JpegSegmentWalk walk(input);
    for (JpegSegment segment; walk.next(segment);) {
        const auto length = static_cast<std::size_t>(std::min<std::uint64_t>(segment.length, 16));
        const std::string start = input.bytesAt(segment.begin, length);
        if (isFrame(segment.marker) && !hasFrame) {
            hasFrame = true;
            setDepth(header, bigEndian(start, 0, 1));
            setPixelSize(header, bigEndian(start, 3, 2), bigEndian(start, 1, 2));
            header.colorModel = colorModel(bigEndian(start, 5, 1));
        } else if (segment.marker == 0xE0 && !hasDensity && start.starts_with(densityMark)) {
            hasDensity = true;
            readDensity(start, header);
        } else if (segment.marker == 0xE2 && start.starts_with(profileMark)) {
            profile.add(input, segment);
        }
    }
    header.colorProfile = profile.whole(input);
    return header;
}

}  // namespace marquell::helpers
