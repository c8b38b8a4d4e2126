// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/Rational.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace marquell::helpers {
namespace {

// Holds all sums exactly: denominators have at most 32 bits, those of minutes and seconds 6 and 12
// more, so that none of the products below has more than 117.
__extension__ using Wide = unsigned __int128;

/// The nearest double of a fraction (ties to even): one long division, rounded once.
double nearest(Wide numerator, Wide denominator) {
    if (numerator == 0) return 0;
    Wide digits = numerator / denominator;
    Wide rest = numerator % denominator;
    int exponent = 0;
    // 64 significant bits or more, and one below them that says whether anything is left.
    while ((digits >> 63U) == 0) {
        rest <<= 1U;
        digits = digits << 1U | static_cast<unsigned>(rest >= denominator);
        if (rest >= denominator) rest -= denominator;
        --exponent;
    }
    while ((digits >> 64U) != 0) {
        rest |= digits & 1U;
        digits >>= 1U;
        ++exponent;
    }
    auto mantissa = static_cast<std::uint64_t>(digits);
    // 11 bits more than a double has: the lowest can stand for all that was cut off.
    if (rest != 0) mantissa |= 1U;
    return std::ldexp(static_cast<double>(mantissa), exponent);
}

/// The sum of fractions of non-negative numbers, not reduced.
class Sum {
public:
    /// Adds part / divisor.
    void add(const Rational& part, unsigned divisor) {
        const Wide denominator = static_cast<Wide>(part.denominator) * divisor;
        numerator_ = numerator_ * denominator + static_cast<Wide>(part.numerator) * denominator_;
        denominator_ *= denominator;
    }
    double value() const { return nearest(numerator_, denominator_); }

private:
    Wide numerator_ = 0;
    Wide denominator_ = 1;
};

}  // namespace

std::optional<double> quotient(const Rational& rational) {
    if (!rational.isNumber()) return std::nullopt;
    return static_cast<double>(rational.numerator) / static_cast<double>(rational.denominator);
}

std::optional<double> degrees(std::span<const Rational> parts) {
    constexpr std::array<unsigned, 3> divisors = {1, 60, 3600};
    if (parts.empty() || !parts[0].isNumber()) return std::nullopt;
    Sum sum;
    for (std::size_t i = 0; i < parts.size() && i < divisors.size(); ++i) {
        if (parts[i].isUnknown()) continue;
        if (!parts[i].isNumber() || parts[i].numerator < 0 || parts[i].denominator < 0) {
            return std::nullopt;
        }
        sum.add(parts[i], divisors[i]);
    }
    return sum.value();
}

}  // namespace marquell::helpers
