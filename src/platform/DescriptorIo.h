// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace marquell::platform {

/// Takes the next bytes of something. Returns 0 or errno; the bytes are only good during the call.
using ByteSink = std::function<int(std::string_view bytes)>;

/// Hands all its bytes to the sink, in order. Stops at the first error and returns it, else 0; the
/// error may be its own.
using ByteSource = std::function<int(const ByteSink& sink)>;

// Both go on through short transfers and interruptions, and wait where a descriptor would not.

/// Writes all of `bytes` to an open descriptor. Returns 0 or errno.
int writeAll(int descriptor, std::string_view bytes);

/// Reads an open descriptor to its end. Absent on failure, with errno in `error`.
std::optional<std::string> readAll(int descriptor, int& error);

}  // namespace marquell::platform
