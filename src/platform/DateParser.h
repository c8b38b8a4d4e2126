// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

#include "platform/Date.h"

namespace marquell::platform {

/// The moment that a text of the form "yyyy:MM:dd HH:mm:ss", as cameras write it, means by the
/// machine's clock (TZ). Blanks and NULs around it don't count. Absent for any other text and for
/// what is no date of the Gregorian calendar. Any thread.
std::optional<Date> parseCameraDate(std::string_view text);

/// The moment that a text of ISO 8601 means, from a year alone to fractions of a second with a
/// zone: "2024", "2024-02", "2024-02-29", "2024-02-29T12:30", "2024-02-29 12:30:15.5+01:00". What
/// is left out is the first of its kind; without zone it is by the machine's clock. Absent for any
/// other text and for what is no date of the Gregorian calendar. Any thread.
std::optional<Date> parseIsoDate(std::string_view text);

}  // namespace marquell::platform
