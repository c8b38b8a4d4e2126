// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

#include "formats/ModeTable.h"

namespace marquell::formats {

/// What ends a line under `linebreaksMode`.
constexpr std::string_view lineBreak(int linebreaksMode) {
    constexpr std::array<std::string_view, 3> lineBreaks = {"\n", "\r", "\r\n"};
    return rowOfMode(lineBreaks, linebreaksMode);
}

}  // namespace marquell::formats
