// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/stat.h>

#include <string>

namespace marquell::platform {

// For a new file of ours, open as `file`, that is to take the place of the one at `path`.

/// Gives it the old one's owner, group, mode and access list, as far as we may set them. What they
/// allowed one group or user is not allowed to another for that, nor does a set-id bit change
/// hands. Returns 0 or errno.
int inheritAccess(const std::string& path, const struct stat& old, int file);

/// Gives it what users and programs attached to the old one (the attributes `user.*`, with the
/// tags), as far as can be.
void inheritUserAttributes(const std::string& path, int file);

}  // namespace marquell::platform
