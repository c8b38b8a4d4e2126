// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace marquell::lists {

/// The rows of the tag table: every column id that the program knows, whether it is in the column
/// list or not, with separators between groups. Never changes.
class TagListData {
public:
    TagListData();

    const std::vector<std::string> data;

    /// Whether the row, which must be one of `data`, is a line between two groups.
    bool isSeparator(std::size_t row) const { return data.at(row) == "-"; }
};

}  // namespace marquell::lists
