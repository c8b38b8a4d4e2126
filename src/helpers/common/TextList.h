// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace marquell::helpers {

/// The members of a list that is written as one text with any of the separators (ASCII) between
/// them. Without the blanks around them; none of them empty, and no more than a dictionary may
/// hold.
std::vector<std::string> listedTexts(std::string_view text, std::string_view separators);

}  // namespace marquell::helpers
