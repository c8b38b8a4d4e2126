// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace marquell::platform {

/// Where programs keep the user's configuration: $XDG_CONFIG_HOME if that is an absolute path, else
/// ".config" in the home folder. It need not exist.
std::string configurationFolder();

/// Makes the folder and those above it that are missing, for the user alone. Returns 0, also if
/// something of that name is there already, or errno.
int makeFolder(const std::string& path);

}  // namespace marquell::platform
