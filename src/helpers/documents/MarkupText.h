// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marquell::helpers {

/// What a reader sees of a text that may be marked up with tags of HTML: those are left out or,
/// where a line would begin, become a blank, and so do line breaks. A text without such tags keeps
/// its lines. Character references are resolved in both. Clean UTF-8 in and out.
std::string textOfMarkup(std::string_view text);

}  // namespace marquell::helpers
