// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "toolkit/solver/Row.h"
#include "toolkit/solver/Simplex.h"

namespace marquell::toolkit {

/// What a unit of a symbol costs in each tier below `required`, in their order: the first that is
/// not 0 decides.
using Cost = std::array<double, static_cast<std::size_t>(Tier::lowest)>;

bool isGain(const Cost& cost);

/// Whether `left` / `leftDivisor` is less than `right` / `rightDivisor`; the divisors are positive.
bool isCheaper(const Cost& left, double leftDivisor, const Cost& right, double rightDivisor);

/// The sums of the violations in terms of the symbols that are not basic.
class Objective {
public:
    /// 0 for basic symbols.
    const Cost& cost(Symbol symbol) const { return costs_[symbol]; }

    /// Takes in a symbol, which costs nothing as yet.
    void include(Symbol symbol);

    /// A unit of a symbol, or of one that has this row, costs `change` more than before.
    void add(Symbol symbol, Tier tier, double change);
    void add(const Row& row, Tier tier, double change);

    /// Replaces a symbol that has just become basic by its row.
    void substitute(Symbol basic, const Row& row);

private:
    std::vector<Cost> costs_;
};

}  // namespace marquell::toolkit
