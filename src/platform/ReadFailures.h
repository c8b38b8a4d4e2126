// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string_view>

namespace marquell::platform {

/// Told of each path that should have been readable and was not, with errno. Called on whichever
/// thread met the failure, several at a time; a path may come more than once.
using ReadFailureListener = std::function<void(std::string_view path, int error)>;

/// Installs the process's listener, an empty one to remove it. Not to be called while stages or
/// extractions run. Without a listener failures go unmentioned, as the window wants it.
void setReadFailureListener(ReadFailureListener listener);

void reportReadFailure(std::string_view path, int error);

}  // namespace marquell::platform
