// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "platform/Date.h"
#include "platform/LocalTime.h"

namespace marquell::platform {

enum class DateStyle {
    date,                 ///< 2024-03-09
    dateAndTime,          ///< 2024-03-09 14:05:07
    dateAndTimeWithAmPm,  ///< 2024-03-09 02:05:07 PM
    mediumDateShortTime,  ///< as the user's locale (LC_TIME) writes it
};

/// Writes dates in the machine's time zone. All but the last style are the same in every locale:
/// Gregorian calendar, ASCII digits, AM and PM, years before 1 with a minus sign. Fractions of a
/// second are cut off downwards. One formatter serves one thread.
class DateFormatter {
public:
    explicit DateFormatter(DateStyle style);
    ~DateFormatter();

    void append(std::string& text, const Date& date);

private:
    class LocaleFormat;

    DateStyle style_;
    LocalZone zone_;
    std::unique_ptr<LocaleFormat> localeFormat_;  ///< there once it is needed
};

/// A date for diagnostics: "2024-03-09 14:05:07 +0000", in UTC. Any thread.
std::string dateDescription(const Date& date);

}  // namespace marquell::platform
