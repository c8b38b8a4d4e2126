// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>

#include "helpers/common/Input.h"

namespace marquell::helpers {

struct JpegSegment {
    std::uint8_t marker = 0;
    std::uint64_t begin = 0;   ///< of the content
    std::uint64_t length = 0;  ///< of the content
};

/// Goes from marker to marker the way decoders do: bytes between segments are skipped.
class JpegSegmentWalk {
public:
    /// `input` must outlive this.
    explicit JpegSegmentWalk(Input& input) : input_(input) {}

    /// False at the image data and where there are no more segments.
    bool next(JpegSegment& segment);

private:
    bool findMarker(std::uint8_t& marker);

    Input& input_;
    std::uint64_t position_ = 0;
    std::uint64_t garbage_ = 0;
    std::size_t steps_ = 0;
};

}  // namespace marquell::helpers
