// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ByteCount.h"

#include <array>

#include "platform/Locale.h"

namespace marquell::platform {
namespace {

struct Unit {
    std::string_view name;
    std::int64_t bytes;
    std::int64_t stepsPerUnit;  ///< 1, 10 or 100: none, one or two decimals
    std::size_t decimals;
};

constexpr std::array<Unit, 6> units = {{
    {"KB", 1'000, 1, 0},
    {"MB", 1'000'000, 10, 1},
    {"GB", 1'000'000'000, 100, 2},
    {"TB", 1'000'000'000'000, 100, 2},
    {"PB", 1'000'000'000'000'000, 100, 2},
    {"EB", 1'000'000'000'000'000'000, 100, 2},
}};

/// `bytes` counted in the steps that the unit shows, halves to even.
std::int64_t roundedSteps(std::int64_t bytes, const Unit& unit) {
    const std::int64_t step = unit.bytes / unit.stepsPerUnit;
    const std::int64_t quotient = bytes / step;
    const std::int64_t twiceRest = bytes % step * 2;
    const bool up = twiceRest > step || (twiceRest == step && quotient % 2 != 0);
    return quotient + (up ? 1 : 0);
}

std::string stepsText(std::int64_t steps, const Unit& unit, std::string_view decimalSeparator) {
    std::string text = std::to_string(steps / unit.stepsPerUnit);
    std::string fraction = std::to_string(steps % unit.stepsPerUnit);
    fraction.insert(0, unit.decimals > fraction.size() ? unit.decimals - fraction.size() : 0, '0');
    fraction.erase(fraction.find_last_not_of('0') + 1);
    if (!fraction.empty()) text.append(decimalSeparator).append(fraction);
    return text.append(" ").append(unit.name);
}

}  // namespace

std::string byteCountText(std::int64_t bytes, std::string_view decimalSeparator) {
    if (bytes == 0) return "Zero KB";
    if (bytes == 1) return "1 byte";
    if (bytes < 1000) return std::to_string(bytes) + " bytes";
    for (const Unit& unit : units) {
        const std::int64_t steps = roundedSteps(bytes, unit);
        const bool fits = steps < 1000 * unit.stepsPerUnit || &unit == &units.back();
        if (fits) return stepsText(steps, unit, decimalSeparator);
    }
    return {};
}

std::string byteCountText(std::int64_t bytes) {
    static const std::string separator = decimalSeparator();
    return byteCountText(bytes, separator);
}

}  // namespace marquell::platform
