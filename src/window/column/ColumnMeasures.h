// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marquell::window {

// The measures of the column of parameters, in points.

constexpr double parameterWidth = 400;
constexpr double separatorHeight = 15;
constexpr double fragmentSpacing = 2;
constexpr double fragmentLeftInset = 17;
constexpr double fragmentTitleTopInset = 16;
constexpr double fragmentTopInset = 48;  // from a fragment's top to what is below its title
constexpr double fragmentRightInset = -17;
constexpr double fragmentBottomInset = -1;

}  // namespace marquell::window
