// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "helpers/common/Input.h"

namespace marquell::helpers {

/// The names of the layers and layer groups of a PSD or PSB file, the topmost first. Empty for
/// other files.
std::vector<std::string> readPsdLayerNames(Input& input);

}  // namespace marquell::helpers
