// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

namespace marquell::toolkit {

/// The width of each of `count` columns that share `room` px equally, none below `smallest`.
std::vector<int> equalWidths(int count, int room, int smallest);

/// The widths, all widened alike where they leave some of the room.
std::vector<int> stretchedWidths(std::vector<int> widths, int room);

/// The widths after the room they are seen in has changed from `before` to `after` px: each takes
/// the same share of the change, but none shrinks below `smallest`. Columns that are wider than the
/// room stay as they are until there is more room than they take.
std::vector<int> widthsAfterResize(std::vector<int> widths, int before, int after, int smallest);

}  // namespace marquell::toolkit
