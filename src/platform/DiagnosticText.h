// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marquell::platform {

/// What a message to the terminal or a log may show of a file's name or of a user's input: bad
/// bytes replaced, control characters (C0, C1, line separators) and bidirectional marks escaped,
/// cut at 200 characters, so that no name can forge a line or steer the terminal.
std::string diagnosticText(std::string_view bytes);

}  // namespace marquell::platform
