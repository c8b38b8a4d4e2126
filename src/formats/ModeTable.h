// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

namespace marquell::formats {

/// The row that a mode setting selects; the first one for a mode that the table doesn't list.
template <typename Row, std::size_t count>
constexpr const Row& rowOfMode(const std::array<Row, count>& table, int mode) {
    const bool listed = mode >= 0 && static_cast<std::size_t>(mode) < count;
    return table[listed ? static_cast<std::size_t>(mode) : 0];
}

}  // namespace marquell::formats
