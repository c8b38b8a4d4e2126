// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "pipeline/KeySort.h"
#include "pipeline/Node.h"

namespace marquell::pipeline {

/// Whether the item that stood at position a goes before the one at b when both keys tie; a strict
/// weak order.
using TieOrder = std::function<bool(std::uint32_t a, std::uint32_t b)>;

/// The earlier order stays.
bool keepsEarlierOrder(std::uint32_t a, std::uint32_t b);

/// The ordered list of nodes that passes from stage to stage. Once a stage has finished with it,
/// nobody changes it.
class FlatFileList {
public:
    std::vector<std::shared_ptr<Node>> files;

    /// Sorts by the first mode, ties by the second, what is left by `tieOrder`. A mode outside of 0
    /// to 15 leaves the order to `tieOrder`. Modes by date or size extract what they need. Keys are
    /// read once, before they are compared, so a store that changes meanwhile does no harm. When
    /// `stopped` says so it ends early with the list in its earlier order.
    void sort(
        int firstSortMode, int secondSortMode, const StopCheck& stopped = [] { return false; },
        const TieOrder& tieOrder = &keepsEarlierOrder);
};

}  // namespace marquell::pipeline
