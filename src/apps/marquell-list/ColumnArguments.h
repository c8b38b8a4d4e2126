// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace marquell::apps {

/// Appends the columns of a "ID[,ID…]" to `columns`, each @TagSpace as the ids of that tag space;
/// an empty argument is no column. Returns what is wrong with it, or nothing.
std::optional<std::string> appendColumns(std::string_view argument,
                                         std::vector<std::string>& columns);

/// The catalogue as tab-separated text with a header line.
std::string catalogueText();

}  // namespace marquell::apps
