// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "helpers/common/Input.h"

namespace marquell::helpers {

/// Where a frame of an ID3v2 tag is. Its content lies within the tag.
struct Id3FrameHeader {
    std::string id;  ///< 3 or 4 capital letters and digits
    std::uint64_t begin = 0;
    std::uint64_t length = 0;
    std::uint64_t flags = 0;  ///< the byte about the form of the content; 0 in ID3v2.2
};

/// Goes over the frames between `begin` and `end`. Those without content are left out.
class Id3FrameWalk {
public:
    /// `version` is 2 to 4, for ID3v2.2 to 2.4. `stepsLeft` counts the frames down.
    Id3FrameWalk(Input& input, std::uint64_t begin, std::uint64_t end, unsigned version,
                 std::size_t& stepsLeft)
        : input_(input), position_(begin), end_(end), version_(version), stepsLeft_(stepsLeft) {}

    /// False at the end, which padding or a frame that leads beyond it makes too, and when there
    /// have been enough of them.
    bool next(Id3FrameHeader& frame);

private:
    std::optional<std::uint64_t> frameLength(const std::string& header) const;
    bool canEndFrame(std::uint64_t position) const;
    bool isWithin(std::uint64_t length) const;

    Input& input_;
    std::uint64_t position_;
    const std::uint64_t end_;
    const unsigned version_;
    std::size_t& stepsLeft_;
};

/// The number that 4 bytes of 7 bits make; absent if one has more, or not all are there.
std::optional<std::uint64_t> id3Number(std::string_view bytes, std::size_t offset);

}  // namespace marquell::helpers
