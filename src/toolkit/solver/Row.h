// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

namespace marquell::toolkit {

/// A column of the tableau: a variable, or what measures how far a constraint is from its bound.
using Symbol = std::uint32_t;

struct Cell {
    Symbol symbol;
    double coefficient;
};

/// A constant plus a sum of other symbols, which is what a basic symbol equals. The cells are in
/// the order of their symbols, and none has a coefficient that is negligible.
struct Row {
    double constant = 0;
    std::vector<Cell> cells;

    /// 0 if the symbol is not in the row.
    double coefficientOf(Symbol symbol) const;

    /// Takes in a symbol that is not in the row.
    void insert(Cell cell);

    void remove(Symbol symbol);
};

/// Coefficients are small numbers, so what is below this is left over from rounding.
inline bool isNegligible(double coefficient) { return std::fabs(coefficient) < 1e-8; }

/// How far below 0 a symbol may be that must not be: constants are lengths of thousands.
inline constexpr double feasibilityTolerance = 1e-7;

}  // namespace marquell::toolkit
