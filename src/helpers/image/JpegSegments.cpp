// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/JpegSegments.h"

#include <string>

#include "helpers/common/Numbers.h"
#include "helpers/image/ImageHeaders.h"

namespace marquell::helpers {
namespace {

// Bytes outside of any segment that are searched for the next marker, in one file.
constexpr std::uint64_t maximumGarbage = std::uint64_t{1024} * 1024;

}  // namespace

bool JpegSegmentWalk::next(JpegSegment& segment) {
    while (steps_++ < maximumSteps && findMarker(segment.marker)) {
        const bool standsAlone =
            segment.marker == 0x01 || (segment.marker >= 0xD0 && segment.marker <= 0xD8);
        if (standsAlone) continue;
        constexpr std::uint8_t endOfImage = 0xD9;
        constexpr std::uint8_t startOfScan = 0xDA;
        if (segment.marker == endOfImage || segment.marker == startOfScan) return false;
        const std::string length = input_.bytesAt(position_, 2);
        const std::uint64_t whole = bigEndian(length, 0, 2);
        if (whole < 2) return false;
        segment.begin = position_ + 2;
        segment.length = whole - 2;
        position_ += whole;
        return true;
    }
    return false;
}

/// Leaves the position behind the next marker.
bool JpegSegmentWalk::findMarker(std::uint8_t& marker) {
    bool afterFill = false;
    for (; garbage_ < maximumGarbage; ++garbage_) {
        char byte = 0;
        if (!input_.readExactly(position_, {&byte, 1})) return false;
        ++position_;
        marker = static_cast<std::uint8_t>(byte);
        if (afterFill && marker != 0 && marker != 0xFF) return true;
        afterFill = marker == 0xFF;
    }
    return false;
}

}  // namespace marquell::helpers
