// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/common/IsoBoxes.h"

#include <algorithm>

#include "helpers/common/Numbers.h"

namespace marquell::helpers {

IsoBoxWalk::IsoBoxWalk(Input& input, std::uint64_t begin, std::uint64_t end)
    : input_(input), position_(begin), end_(std::min(end, input.size())) {}

bool IsoBoxWalk::next(IsoBox& box) {
    if (position_ >= end_ || steps_++ == maximumSteps) return false;
    const std::uint64_t available = end_ - position_;
    const std::string start = input_.bytesAt(position_, 16);
    std::uint64_t headerLength = 8;
    std::uint64_t length = bigEndian(start, 0, 4);
    box.type = static_cast<std::uint32_t>(bigEndian(start, 4, 4));
    if (length == 0) {
        length = available;
    } else if (length == 1) {
        headerLength = 16;
        length = bigEndian(start, 8, 8);
    }
    if (length < headerLength || available < headerLength) return false;
    // The last box of a file that was cut off is still looked at.
    length = std::min(length, available);
    box.begin = position_ + headerLength;
    box.end = position_ + length;
    position_ = box.end;
    return true;
}

std::optional<IsoBox> findBox(Input& input, std::uint64_t begin, std::uint64_t end,
                              std::uint32_t type) {
    IsoBoxWalk walk(input, begin, end);
    for (IsoBox box; walk.next(box);) {
        if (box.type == type) return box;
    }
    return std::nullopt;
}

std::uint64_t IsoReader::number(std::size_t length) {
    const std::uint64_t begin = position_;
    skip(length);
    if (hasFailed_) return 0;
    return bigEndian(input_.bytesAt(begin, length), 0, length);
}

std::string IsoReader::text() {
    if (hasFailed_) return {};
    std::string text = input_.bytesAt(
        position_, static_cast<std::size_t>(std::min<std::uint64_t>(256, end_ - position_)));
    const std::size_t length = text.find('\0');
    if (length == std::string::npos && text.size() == 256) {
        hasFailed_ = true;
        return {};
    }
    skip(length == std::string::npos ? text.size() : length + 1);
    text.resize(std::min(length, text.size()));
    return text;
}

void IsoReader::skip(std::uint64_t length) {
    hasFailed_ = hasFailed_ || length > end_ - position_;
    if (!hasFailed_) position_ += length;
}

}  // namespace marquell::helpers
