// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>

#include "helpers/common/Input.h"

namespace marquell::helpers {

/// The numbers of the resources that are looked at.
enum PhotoshopResource : std::uint64_t {
    resolutionInfo = 0x03ED,
    iptcRecord = 0x0404,
    colorProfile = 0x040F,
};

/// Calls `visit` with the number of each resource between two offsets, and where its content is.
void forEachPhotoshopResource(Input& input, std::uint64_t begin, std::uint64_t end,
                              const std::function<void(std::uint64_t id, std::uint64_t content,
                                                       std::uint64_t length)>& visit);

/// Where the resources of a PSD file begin and end.
struct ByteRange {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
};
ByteRange photoshopResourceSection(Input& input);

}  // namespace marquell::helpers
