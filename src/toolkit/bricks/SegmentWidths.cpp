// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/SegmentWidths.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace marquell::toolkit {
namespace {

int sumOf(const std::vector<int>& lengths) {
    return std::accumulate(lengths.begin(), lengths.end(), 0);
}

/// The longest ones are cut to one length; the first of them take the px that are odd.
std::vector<int> shrunk(std::vector<int> needs, int length) {
    std::vector<int> sorted = needs;
    std::ranges::sort(sorted);
    int rest = length;
    int count = static_cast<int>(sorted.size());
    for (const int need : sorted) {
        if (need > rest / count) break;
        rest -= need;
        --count;
    }
    const int most = rest / count;
    int odd = rest % count;
    for (int& width : needs) {
        if (width > most) width = most + (odd-- > 0 ? 1 : 0);
    }
    return needs;
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
