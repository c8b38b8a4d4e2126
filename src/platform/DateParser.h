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

}  // namespace marquell::platform
