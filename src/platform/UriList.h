// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace marquell::platform {

/// The paths of the local files in a list of addresses as programs hand it over (text/uri-list):
/// the exact bytes of each, also such that are no UTF-8. Comments, other schemes, files of other
/// hosts and what can't be understood are left out.
std::vector<std::string> pathsOfUriList(std::string_view uriList);

}  // namespace marquell::platform
