// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "toolkit/drawing/DrawingStack.h"

namespace marquell::toolkit {

/// What is drawn in place of a brick's own look while it is in one of its states. Neither: its own.
struct DrawPair {
    std::optional<ButtonDrawingFuncType> function;  // wins over the stack
    std::optional<DrawingStack> stack;
};

}  // namespace marquell::toolkit
