// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace marquell::platform {

// Both go on through short transfers and interruptions, and wait where a descriptor would not.

/// Writes all of `bytes` to an open descriptor. Returns 0 or errno.
int writeAll(int descriptor, std::string_view bytes);

/// Reads an open descriptor to its end. Absent on failure, with errno in `error`.
std::optional<std::string> readAll(int descriptor, int& error);

}  // namespace marquell::platform
