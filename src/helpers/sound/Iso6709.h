// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace marquell::helpers {

struct GeographicPosition {
    double latitude = 0;             ///< degrees, south negative
    double longitude = 0;            ///< degrees, west negative
    std::optional<double> altitude;  ///< metres
};

/// Reads "+52.5164+013.3777+034.0/" and the forms in minutes and seconds ("+5230-01320/"); what
/// follows doesn't count. Absent for any other text and for what is not on the globe.
std::optional<GeographicPosition> parseIso6709(std::string_view text);

/// In degrees with four digits behind the point, as phones write it.
std::string iso6709Text(const GeographicPosition& position);

}  // namespace marquell::helpers
