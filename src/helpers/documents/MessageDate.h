// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marquell::helpers {

/// The date of an e-mail (RFC 5322, with the obsolete forms of years and zones) as ISO 8601; empty
/// if it is none.
std::string messageDate(std::string_view text);

}  // namespace marquell::helpers
