// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace marquell::shell {

/// Groups of countries. A country may be in several.
enum class Region {
    germanSpeakingWorld,
    uk,
    us,
    canada,
    oceania,
    northAmerica,
    europeanUnion,
    allOtherCountries,  // what is in none of the others
};

/// Whether the country is in the group; `country` is its code of two capital letters (ISO 3166).
bool isInRegion(Region region, std::string_view country);

}  // namespace marquell::shell
