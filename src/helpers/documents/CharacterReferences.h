// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marquell::helpers {

/// The text of HTML with characters for references like "&eacute;", "&#233;" and "&#xE9;". What is
/// no known reference stays as it is. Both are clean UTF-8.
std::string withoutReferences(std::string_view text);

}  // namespace marquell::helpers
