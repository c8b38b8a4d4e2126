// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "toolkit/layout/LayoutConstraint.h"
#include "toolkit/solver/Simplex.h"

namespace marquell::toolkit {

/// The solver's tier of a priority.
Tier tierOf(LayoutPriority priority);

/// A demand as it stands in the solver, with what it was made of.
struct LayoutRow {
    Simplex::Constraint handle;
    double constant;
    Tier tier;
};

/// Brings a row in line with what is wanted with the least work: leaves it, changes its constant,
/// or takes it out, so that it has to be entered anew. True if the row stands as wanted.
bool adapt(Simplex& simplex, std::optional<LayoutRow>& row, double constant, Tier tier);

/// Takes the row, if it is there, out of the solver.
void withdraw(Simplex& simplex, std::optional<LayoutRow>& row);

}  // namespace marquell::toolkit
