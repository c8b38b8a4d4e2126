// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "helpers/common/DecodedText.h"

namespace marquell::helpers {

/// The character set that web pages and e-mail know by this name; Charset::likely for UTF-8, ASCII
/// and all that can't be decoded.
Charset charsetNamed(std::string_view name);

}  // namespace marquell::helpers
