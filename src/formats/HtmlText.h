// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "platform/TextBuffer.h"

namespace marquell::formats {

/// Appends a text for use between the tags of an HTML document: markup characters become entities
/// wherever they stand, six signs (currencies, copyright, registered) where they are a character of
/// their own and not the base of a longer one.
void appendHtmlEscaped(platform::TextBuffer& html, std::string_view text);

}  // namespace marquell::formats
