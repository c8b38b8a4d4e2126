// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace marquell::helpers {

/// The date at the start of a text as ISO 8601 has it, as far as it goes: "2024",
/// "2024-02-29T12:30:15+01:00". Knows the year first, then month and day behind one of "-:/." or
/// nothing, behind a blank or "T" the time and the zone, and what ctime() writes. Empty for all
/// else and for what is no date.
std::string isoDate(std::string_view text);

/// Seconds since the begin of 1904 in UTC, as QuickTime counts, e.g. "2024-02-29T12:30:15Z". Empty
/// for 0 and beyond the year 9999. What would lie before 1970 was counted from there by mistake, as
/// some cameras do.
std::string quickTimeDate(std::uint64_t seconds);

}  // namespace marquell::helpers
