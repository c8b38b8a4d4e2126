// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace marquell::platform {

/// Whether a folder of this name is a package: a folder that users take for one file. The name
/// needs a stem and one of the known bundle extensions, in any letter case.
bool isPackageName(std::string_view name);

}  // namespace marquell::platform
