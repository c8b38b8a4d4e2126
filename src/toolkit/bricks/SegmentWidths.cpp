// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/SegmentWidths.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>

namespace marquell::toolkit {
namespace {

int sumOf(const std::vector<int>& lengths) {
    return std::accumulate(lengths.begin(), lengths.end(), 0);
}

/// In proportion to the needs, without loss by rounding.
std::vector<int> shrunk(const std::vector<int>& needs, int length) {
    std::vector<int> widths;
    const int all = sumOf(needs);
    int needed = 0;
    int given = 0;
    for (const int need : needs) {
        needed += need;
        const int edge = all == 0 ? 0 : static_cast<int>(std::int64_t{length} * needed / all);
        widths.push_back(edge - given);
        given = edge;
    }
    return widths;
}

/// One of `count` even shares, rounded away from 0, so that the first ones deal with what is odd.
int evenShare(int length, int count) {
    return (length + (length < 0 ? 1 - count : count - 1)) / count;
}

}  // namespace

std::vector<int> segmentWidths(const std::vector<int>& wishes, const std::vector<int>& needs,
                               int length) {
    if (sumOf(needs) > length) return shrunk(needs, length);
    std::vector<int> widths = wishes;
    int rest = length - sumOf(wishes);
    // What one cannot give the others have to, in another round.
    while (rest != 0 && !widths.empty()) {
        const int share = evenShare(rest, static_cast<int>(widths.size()));
        for (std::size_t i = 0; i < widths.size() && rest != 0; ++i) {
            const int change = rest < 0 ? std::max(share, rest) : std::min(share, rest);
            const int width = std::max(widths[i] + change, needs[i]);
            rest -= width - widths[i];
            widths[i] = width;
        }
    }
    return widths;
}

}  // namespace marquell::toolkit
