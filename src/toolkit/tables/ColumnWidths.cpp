// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/tables/ColumnWidths.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace marquell::toolkit {
namespace {

/// Widens or narrows all alike; odd px go to the first ones.
void share(std::vector<int>& widths, int change, int smallest) {
    std::vector<int*> able;
    for (int& width : widths) {
        if (change > 0 || width > smallest) able.push_back(&width);
    }
    while (change != 0 && !able.empty()) {
        const int count = static_cast<int>(able.size());
        const int each = change / count;
        int odd = change % count;
        change = 0;
        for (int* width : able) {
            const int step = odd > 0 ? 1 : odd < 0 ? -1 : 0;
            odd -= step;
            const int wanted = *width + each + step;
            // What one can't give, the others have to.
            *width = each + step < 0 ? std::max(wanted, std::min(*width, smallest)) : wanted;
            change += wanted - *width;
        }
        std::erase_if(able, [&](const int* width) { return *width <= smallest; });
    }
}

}  // namespace

std::vector<int> equalWidths(int count, int room, int smallest) {
    std::vector<int> widths(static_cast<std::size_t>(count), 0);
    if (count == 0) return widths;
    share(widths, std::max(room, count * smallest), 0);
    return widths;
}

std::vector<int> stretchedWidths(std::vector<int> widths, int room) {
    const int total = std::accumulate(widths.begin(), widths.end(), 0);
    share(widths, std::max(room - total, 0), 0);
    return widths;
}

std::vector<int> widthsAfterResize(std::vector<int> widths, int before, int after, int smallest) {
    const int total = std::accumulate(widths.begin(), widths.end(), 0);
    const int change = total > before ? std::max(0, after - total) : after - before;
    share(widths, change, smallest);
    return widths;
}

}  // namespace marquell::toolkit
