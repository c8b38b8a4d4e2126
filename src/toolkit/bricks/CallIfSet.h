// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marquell::toolkit {

/// Calls a copy of a function, if it is set: it may replace the original, or end its owner, while
/// it runs.
template <typename Function, typename... Arguments>
void callIfSet(Function function, const Arguments&... arguments) {
    if (function) function(arguments...);
}

}  // namespace marquell::toolkit
