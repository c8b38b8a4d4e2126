// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "helpers/common/IsoBoxes.h"

namespace marquell::helpers {

/// Where the bytes of one item of a HEIF file are. Nothing of it is checked against the file yet.
struct HeifLocation {
    struct Extent {
        std::uint64_t offset = 0;
        std::uint64_t length = 0;  ///< 0: all that follows
    };
    bool isInMeta = false;  ///< in the `idat` box, and not anywhere in the file
    std::uint64_t base = 0;
    std::vector<Extent> extents;
};

/// Looks an item up in the `iloc` box. Absent if it isn't there or its bytes are in another file or
/// in another item.
std::optional<HeifLocation> findHeifLocation(Input& input, const IsoBox& box, std::uint32_t item);

/// The bytes; empty if there are more than `maximum` or any of them lie outside of `source`.
std::string readHeifLocation(Input& input, const HeifLocation& location, const IsoBox& source,
                             std::size_t maximum);

}  // namespace marquell::helpers
