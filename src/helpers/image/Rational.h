// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace marquell::helpers {

/// A fraction as EXIF stores it, signed or not.
struct Rational {
    std::int64_t numerator = 0;    ///< of 32 bits
    std::int64_t denominator = 0;  ///< of 32 bits

    bool isNumber() const { return denominator != 0; }
    /// 0/0, which stands for unknown.
    bool isUnknown() const { return numerator == 0 && denominator == 0; }
};

/// The nearest double. Absent for a denominator of 0.
std::optional<double> quotient(const Rational& rational);

/// Degrees and, as far as they are given and known, minutes and seconds as the nearest double of
/// their exact sum in degrees. Absent without degrees, for negative parts and for x/0.
std::optional<double> degrees(std::span<const Rational> parts);

}  // namespace marquell::helpers
