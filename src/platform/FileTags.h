// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace marquell::platform {

/// The tag names of a file or folder, links followed, from the attribute user.xdg.tags, which file
/// managers keep as a comma-separated list: blanks around a name are dropped, and so are empty
/// names. Empty when there are none; a refused read is also reported as a read failure.
std::vector<std::string> fileTags(const std::string& path);

}  // namespace marquell::platform
