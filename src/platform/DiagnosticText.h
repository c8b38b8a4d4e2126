// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marquell::platform {

/// What a message to the terminal or a log may show of a file's name or of a user's input: bytes
/// that are no UTF-8 as \x{ff}, control characters (C0, C1, line separators) and bidirectional
/// marks as \u{1b}, so that no name can forge a line or steer the terminal. Of more than 600 bytes
/// the start and the end are shown.
std::string diagnosticText(std::string_view bytes);

}  // namespace marquell::platform
