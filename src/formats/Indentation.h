// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

#include "formats/ModeTable.h"

namespace marquell::formats {

/// One level of indentation under `htmlIndentationMode` or `jsonIndentationMode`.
constexpr std::string_view indentationUnit(int indentationMode) {
    constexpr std::array<std::string_view, 8> units = {"",    "\t",   " ",     "  ",
                                                       "   ", "    ", "     ", "      "};
    return rowOfMode(units, indentationMode);
}

}  // namespace marquell::formats
