// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marquell::formats {

/// The title of a column under a title mode that asks for titles: the display name, and under mode
/// 2 with the abbreviation of its category.
std::string columnTitle(std::string_view columnId, int includeColumnTitlesMode);

}  // namespace marquell::formats
