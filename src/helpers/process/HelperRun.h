// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/process/RequestLoop.h"

namespace marquell::helpers {

/// Is the whole of a helper's main: bounds and confines the process, and answers requests with
/// `read` until the program wants no more. `prepare` makes the libraries ready before they can open
/// files no longer; `readsSamples` says whether they work afterwards. Returns only if the helper
/// could not begin, with its exit status.
int runHelper(void (*prepare)(), bool (*readsSamples)(), const RequestReader& read);

}  // namespace marquell::helpers
