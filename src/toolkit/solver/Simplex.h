// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace marquell::toolkit {

/// How much a wish of the layout weighs. Tiers are compared, never added up: the smallest violation
/// of a higher tier outweighs any of a lower one.
enum class Tier : std::uint8_t { required, high, window, labelHugging, low, lowest };

enum class Relation : std::uint8_t { lessThanOrEqual, equal, greaterThanOrEqual };

/// A system of linear equations and inequalities, solved incrementally: each change starts from the
/// solution before it. Required constraints hold exactly; of the others, the sum of the violations
/// is as small as can be, tier by tier. Where that leaves a choice, an equal history of calls
/// leads to an equal choice. Not safe for use by several threads at once.
class Simplex {
public:
    using Variable = std::uint32_t;
    using Constraint = std::uint32_t;

    struct Term {
        Variable variable;
        double coefficient;
    };

    /// What came of adding a constraint: its handle, or, if it is required and cannot hold, the
    /// required constraints that it contradicts together. Then the system is as it was before.
    struct Outcome {
        std::optional<Constraint> constraint;
        std::vector<Constraint> contradicts;
    };

    Simplex();
    Simplex(const Simplex&) = delete;
    Simplex& operator=(const Simplex&) = delete;
    ~Simplex();

    /// A variable of any sign, 0 as long as nothing says otherwise.
    Variable addVariable();

    /// A variable that is never below 0; cheaper than a constraint that says so.
    Variable addNonNegativeVariable();

    /// Demands: sum of the terms, `relation`, `constant`. Terms of the same variable add up.
    Outcome add(const std::vector<Term>& terms, Relation relation, double constant, Tier tier);

    void remove(Constraint constraint);

    /// Changes the right side of a constraint. False if the constraint is required and cannot hold
    /// with it; then nothing changes.
    bool setConstant(Constraint constraint, double constant);

    double value(Variable variable) const;

private:
    struct State;
    const std::unique_ptr<State> state_;
};

}  // namespace marquell::toolkit
