// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

namespace marquell::toolkit {

/// Spreads a length over segments in whole px: each gets its wish, and what is over or missing is
/// shared evenly, but none gets less than its need. Where not even the needs have room, the longest
/// are cut.
std::vector<int> segmentWidths(const std::vector<int>& wishes, const std::vector<int>& needs,
                               int length);

}  // namespace marquell::toolkit
