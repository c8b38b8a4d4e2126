// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace marquell::formats {

/// What kind of value a cell's text was made from.
enum class CellKind { text, date, number, isTrue, isFalse, missing };

struct Cell {
    std::string_view text;  ///< in valid UTF-8, as the item formatter has it
    CellKind kind = CellKind::missing;
};

}  // namespace marquell::formats
