// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/solver/Optimizer.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace marquell::toolkit {

std::optional<Symbol> Optimizer::freeSubject(const Row& expression) const {
    std::optional<Symbol> subject;
    for (const auto [symbol, coefficient] : expression.cells) {
        if (tableau_.kind(symbol) != SymbolKind::free) continue;
        if (!subject || tableau_.columnHeight(symbol) < tableau_.columnHeight(*subject)) {
            subject = symbol;
        }
    }
    return subject;
}

std::optional<Symbol> Optimizer::restrictedSubject(const Row& expression) const {
    const double direction = expression.constant > feasibilityTolerance ? -1 : 1;
    const std::optional<Symbol> subject = cheapestEntering(expression, direction);
    if (subject || std::fabs(expression.constant) > feasibilityTolerance) return subject;
    return cheapestEntering(expression, -direction);
}

void Optimizer::insert(Row expression, Symbol subject) {
    tableau_.insert(std::move(expression), subject);
    objective_.substitute(subject, tableau_.row(subject));
}

void Optimizer::pivot(Symbol leaving, Symbol entering) {
    tableau_.pivot(leaving, entering);
    objective_.substitute(entering, tableau_.row(entering));
}

std::optional<Symbol> Optimizer::restoreFeasibility() {
    pivots_.clear();
    while (const std::optional<Symbol> leaving = tableau_.firstInfeasible()) {
        const std::optional<Symbol> entering = cheapestEntering(tableau_.row(*leaving), 1);
        if (!entering) return leaving;
        pivot(*leaving, *entering);
        pivots_.emplace_back(*leaving, *entering);
    }
    return std::nullopt;
}

void Optimizer::undo() {
    for (; !pivots_.empty(); pivots_.pop_back()) {
        const auto [left, entered] = pivots_.back();
        pivot(entered, left);
    }
}

void Optimizer::minimize() {
    while (const std::optional<Symbol> entering = firstGain()) {
        const std::optional<Symbol> leaving = firstObstacle(*entering);
        // Violations are never below 0, so only what is left over from rounding gains for ever.
        if (!leaving) return;
        pivot(*leaving, *entering);
    }
}

/// The symbol that makes the row's value grow, as the direction says, at the least cost per unit.
std::optional<Symbol> Optimizer::cheapestEntering(const Row& row, double direction) const {
    std::optional<Symbol> cheapest;
    double cheapestGrowth = 0;
    for (const auto [symbol, coefficient] : row.cells) {
        const double growth = coefficient * direction;
        if (growth <= 0 || tableau_.kind(symbol) != SymbolKind::restricted) continue;
        if (!cheapest || isCheaper(objective_.cost(symbol), growth, objective_.cost(*cheapest),
                                   cheapestGrowth)) {
            cheapest = symbol;
            cheapestGrowth = growth;
        }
    }
    return cheapest;
}

/// The first symbol that makes the violations less as it grows.
std::optional<Symbol> Optimizer::firstGain() const {
    for (Symbol symbol = 0; symbol < tableau_.symbolCount(); ++symbol) {
        if (tableau_.kind(symbol) == SymbolKind::restricted && isGain(objective_.cost(symbol))) {
            return symbol;
        }
    }
    return std::nullopt;
}

/// The basic symbol that is the first to reach 0 as `entering` grows.
std::optional<Symbol> Optimizer::firstObstacle(Symbol entering) const {
    const auto visitObstacles = [&](auto visit) {
        tableau_.visitColumn(entering, [&](Symbol basic, double constant, double coefficient) {
            if (coefficient > 0 || tableau_.kind(basic) != SymbolKind::restricted) return;
            visit(basic, constant / -coefficient);
        });
    };
    double nearest = std::numeric_limits<double>::infinity();
    visitObstacles([&](Symbol, double distance) { nearest = std::min(nearest, distance); });
    std::optional<Symbol> first;
    visitObstacles([&](Symbol basic, double distance) {
        if (isNegligible(distance - nearest) && (!first || basic < *first)) first = basic;
    });
    return first;
}

}  // namespace marquell::toolkit
