// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace marquell::platform {

/// The user's locale for a category ("LC_TIME", "LC_NUMERIC"): the first of LC_ALL, the category
/// and LANG that is set and not empty, as the environment spells it; "C" when none is.
std::string localeName(const char* category);

/// The sign between whole and fraction in the user's numbers (LC_NUMERIC). UTF-8.
std::string decimalSeparator();

}  // namespace marquell::platform
