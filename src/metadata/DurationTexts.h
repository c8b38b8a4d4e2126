// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace marquell::metadata {

// Texts for a number of seconds from 0 to below 2^63.

/// "1 hour 1 minute 1 second" in the user's language, from a day on in days alone; "less than 1
/// second" for what is none.
std::string formatAsDaysAndHoursAndMinutes(double seconds);

/// "01:01:01"; hours go beyond 24 and may have more than two digits.
std::string formatAsHoursAndMinutesAndSecondsWithColon(double seconds);

}  // namespace marquell::metadata
