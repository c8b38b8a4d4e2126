// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/info/MarquellSplitViewDelegate.h"

#include <algorithm>

namespace marquell::window {

std::optional<double> MarquellSplitViewDelegate::constrainHeightOfInfoPane(double asked) {
    if (!(asked >= minimumHeightOfInfoPane / 2)) return std::nullopt;  // nor what is no number
    return std::clamp(asked, minimumHeightOfInfoPane, maximumHeightOfInfoPane);
}

}  // namespace marquell::window
