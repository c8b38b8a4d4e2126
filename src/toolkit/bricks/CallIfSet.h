// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

namespace marquell::toolkit {

/// Calls a copy of a function, if it is set: it may replace the original, or end its owner, while
/// it runs.
template <typename Function, typename... Arguments>
void callIfSet(Function function, Arguments&&... arguments) {
    if (function) function(std::forward<Arguments>(arguments)...);
}

}  // namespace marquell::toolkit
