// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace marquell::platform {

/// A byte count for people, in units of 1000 bytes with English unit names: "Zero KB", "1 byte",
/// "999 bytes", whole KB, up to one decimal for MB and two from GB on, without trailing zeros.
/// Halves round to even; a value that rounds to 1000 moves to the next unit. `bytes` >= 0.
std::string byteCountText(std::int64_t bytes, std::string_view decimalSeparator);

/// The same with the user's decimal separator, which is looked up once per process.
std::string byteCountText(std::int64_t bytes);

}  // namespace marquell::platform
