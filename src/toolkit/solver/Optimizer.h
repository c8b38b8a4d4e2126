// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "toolkit/solver/Objective.h"
#include "toolkit/solver/Tableau.h"

namespace marquell::toolkit {

/// Moves the tableau from one solution to the next. Ties go to the first symbol (Bland's rule), so
/// that no round of pivots repeats for ever.
class Optimizer {
public:
    Optimizer(Tableau& tableau, Objective& objective) : tableau_(tableau), objective_(objective) {}

    /// The free symbol of a row that is the least work to make basic.
    std::optional<Symbol> freeSubject(const Row& expression) const;

    /// The restricted symbol that makes up for the constant of `expression` = 0 and leaves the
    /// objective at its minimum; none if no symbol that may move can.
    std::optional<Symbol> restrictedSubject(const Row& expression) const;

    void insert(Row expression, Symbol subject);
    void pivot(Symbol leaving, Symbol entering);

    /// Makes the value of each symbol allowed again, from where the objective is at its minimum
    /// (the dual simplex algorithm). Returns the basic symbol that no change of others can help.
    std::optional<Symbol> restoreFeasibility();

    /// Takes back the pivots of the last `restoreFeasibility`.
    void undo();

    /// Brings the objective to its minimum from where all values are allowed.
    void minimize();

private:
    std::optional<Symbol> cheapestEntering(const Row& row, double direction) const;
    std::optional<Symbol> firstGain() const;
    std::optional<Symbol> firstObstacle(Symbol entering) const;

    Tableau& tableau_;
    Objective& objective_;
    std::vector<std::pair<Symbol, Symbol>> pivots_;  // leaving, entering
};

}  // namespace marquell::toolkit
