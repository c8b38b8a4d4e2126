// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/PhotoshopResources.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "helpers/common/Numbers.h"
#include "helpers/image/ImageHeaders.h"

namespace marquell::helpers {
namespace {

constexpr std::array<std::string_view, 5> resourceMarks = {"8BIM", "MeSa", "AgHg", "PHUT", "DCSR"};

/// What is of uneven length is followed by one byte.
constexpr std::uint64_t padded(std::uint64_t length) { return length + length % 2; }

}  // namespace

void forEachPhotoshopResource(Input& input, std::uint64_t begin, std::uint64_t end,
                              const std::function<void(std::uint64_t id, std::uint64_t content,
                                                       std::uint64_t length)>& visit) {
    std::uint64_t position = begin;
    for (std::size_t steps = 0; steps < maximumSteps && position < end; ++steps) {
        // Mark, number and a name with its length in front, then the content with its length.
        const std::string start = input.bytesAt(position, 7);
        if (start.size() < 7 || std::ranges::count(resourceMarks, start.substr(0, 4)) == 0) return;
        const std::uint64_t lengthAt = position + 6 + padded(1 + bigEndian(start, 6, 1));
        const std::string lengthBytes = input.bytesAt(lengthAt, 4);
        if (lengthBytes.size() < 4) return;
        const std::uint64_t length = bigEndian(lengthBytes, 0, 4);
        const std::uint64_t content = lengthAt + 4;
        if (content > end || length > end - content) return;
        visit(bigEndian(start, 4, 2), content, length);
        position = content + padded(length);
    }
}

ByteRange photoshopResourceSection(Input& input) {
    const std::uint64_t section = 30 + bigEndian(input.bytesAt(26, 4), 0, 4);
    const std::uint64_t length = bigEndian(input.bytesAt(section, 4), 0, 4);
    return {section + 4, section + 4 + length};
}

}  // namespace marquell::helpers
