// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Regions.h"

#include <array>

namespace marquell::shell {
namespace {

struct Row {
    Region region;
    std::string_view countries;  // codes of two letters, with a space between them
};

constexpr std::array rows = {
    Row{Region::germanSpeakingWorld, "DE AT CH"},
    Row{Region::uk, "GB GG JE IO KY FK TT BS"},
    Row{Region::us, "US"},
    Row{Region::canada, "CA"},
    Row{Region::oceania, "AU NZ"},
    Row{Region::northAmerica, "US CA"},
    Row{Region::europeanUnion,
        "DE AX AL AD FR HU LV RU SI UA SE ES IS GE BE DK LT IT IM SM BA RO SK BY RS PT BG IE MC NO "
        "HR CY CZ LU ME NL MD MT EE FI GI GR MK VA GL"},
    Row{Region::allOtherCountries,
        "AE AF AG AI AM AO AQ AR AS AW AZ BB BD BF BH BI BJ BL BM BN BO BQ BR BT BV BW BZ CC CD CF "
        "CG CI CK CL CM CN CO CR CU CV CW CX DJ DM DO DZ EC EG EH ER ET FJ FM FO GA GD GF GH GM GN "
        "GP GQ GS GT GU GW GY HK HM HN HT ID IL IN IQ IR JM JO JP KE KG KH KI KM KN KP KR KW KZ LA "
        "LB LC LI LK LR LS LY MA MF MG MH ML MM MN MO MP MQ MR MS MU MV MW MX MY MZ NA NC NE NF NG "
        "NI NP NR NU OM PA PE PF PG PH PK PL PM PN PR PS PW PY QA RE RW SA SB SC SD SG SH SJ SL SN "
        "SO SR SS ST SV SX SY SZ TC TD TF TG TH TJ TK TL TM TN TO TR TV TW TZ UG UM UY UZ VC VE VG "
        "VI VN VU WF WS YE YT ZA ZM ZW"},
};

}  // namespace

bool isInRegion(Region region, std::string_view country) {
    constexpr std::size_t step = 3;  // a code and its space
    for (const Row& row : rows) {
        if (row.region != region) continue;
        for (std::size_t i = 0; i < row.countries.size(); i += step) {
            if (row.countries.substr(i, 2) == country) return true;
        }
    }
    return false;
}

}  // namespace marquell::shell
